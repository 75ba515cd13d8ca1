// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "record.h"
#include "rows.h"

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kellabel.h>
#include <kelnavigationtable.h>
#include <kelpushbutton.h>
#include <kelradiobox.h>
#include <kelrow.h>
#include <kelslidecontrol.h>
#include <kelstylefields.h>

#include <QtWidgets/QGraphicsRectItem>

#include <cstddef>

namespace {

struct Made
{
    const char *name;
    QGraphicsObject *(*make)();
    int fields;
};

template <class Object>
QGraphicsObject *make()
{
    return new Object;
}

class OwnButton : public KELPushButton
{
};

const std::vector<Made> made = {
    {"base", make<KELRoundRectControl>, 18},
    {"push button", make<KELPushButton>, 19},
    {"a button of the application", make<OwnButton>, 19},
    {"combo box entry", make<KELComboBoxItem>, 19},
    {"check box", make<KELCheckBox>, 19},
    {"radio box", make<KELRadioBox>, 18},
    {"label", make<KELLabel>, 18},
    {"slider", make<KELSlideControl>, 18},
    {"combo box", make<KELComboBox>, 18},
    {"table", make<KELNavigationTable>, 24},
    {"page", make<KELNavigationTableItem>, 20},
    {"row", make<KELRow>, 20},
};

} // namespace

class tst_KELStyleFields : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyFieldHasAName_data() { addRows({{"class", namesOf(made)}}); }

    void everyFieldHasAName()
    {
        const Made &one = made.at(fetch<size_t>("class"));
        const std::unique_ptr<QGraphicsObject> object(one.make());
        KELStyleFields fields(object.get());
        QCOMPARE(fields.names().size(), one.fields);
        for (const QString &name : fields.names()) {
            QVERIFY2(fields.isDefault(name), qPrintable(name));
            const QString text = fields.text(name);
            QVERIFY2(fields.setText(name, text) || text == u"none"_s || text == u"false"_s
                         || name == u"contextMenu"_s,
                     qPrintable(name + u' ' + text));
            QVERIFY2(fields.isDefault(name), qPrintable(name));
        }
    }

    // A field that is appended to a record changes its size.
    void noFieldIsForgotten()
    {
        QCOMPARE(sizeof(KELPushButtonStyle), sizeof(KELRoundRectControlStyle) + sizeof(QMarginsF));
        QCOMPARE(sizeof(KELCheckBoxStyle), sizeof(KELRoundRectControlStyle) + sizeof(QBrush));
        QCOMPARE(offsetof(KELPartStyle, iconSize) + 8, sizeof(KELPartStyle));
        KELRoundRectControl control;
        Record::fill(control.style());
        KELStyleFields fields(&control);
        KELRoundRectControl fresh;
        for (const QString &name : fields.names()) {
            if (name != u"isMouseDown"_s && name != u"isCheck"_s)
                QVERIFY2(fields.reset(name), qPrintable(name));
        }
        control.style()->isMouseDown = control.style()->isCheck = false;
        QCOMPARE(Record::difference(*control.style(), *fresh.style()), QString());
    }

    void textsGoThereAndBack_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        QTest::newRow("brush") << u"backgroundBrush"_s << u"#0B62D6"_s;
        QTest::newRow("translucent brush") << u"borderBrush"_s << u"#800B62D6"_s;
        QTest::newRow("no brush") << u"foregroundBrush"_s << u"none"_s;
        QTest::newRow("float") << u"borderWidth"_s << u"1.5"_s;
        QTest::newRow("real") << u"xRadius"_s << u"-2.25"_s;
        QTest::newRow("text") << u"text"_s << u"a, \"b\""_s;
        QTest::newRow("flags") << u"textFlags"_s << u"129"_s;
        QTest::newRow("bool") << u"trimText"_s << u"false"_s;
        QTest::newRow("font") << u"font"_s << u"DejaVu Sans,-1,16,5,75,1,0,0,0,0"_s;
        QTest::newRow("margins") << u"margins"_s << u"1,2.5,3,-4"_s;
        QTest::newRow("rectangle") << u"boundRect"_s << u"10,20,30,40"_s;
        QTest::newRow("glyph") << u"icon"_s << u"f011"_s;
        QTest::newRow("size") << u"iconSize"_s << u"24"_s;
        QTest::newRow("derived") << u"iconMargins"_s << u"0,0,0,0"_s;
    }

    void textsGoThereAndBack()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, text);
        KELPushButton button;
        KELStyleFields fields(&button);
        QString error;
        QVERIFY2(fields.setText(name, text, &error), qPrintable(error));
        QCOMPARE(fields.text(name), text);
        QVERIFY(!fields.isDefault(name));
        QVERIFY(fields.reset(name));
        QVERIFY(fields.isDefault(name));
    }

    void nonsenseIsRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        QTest::newRow("colour") << u"backgroundBrush"_s << u"#12345"_s;
        QTest::newRow("colour by name") << u"backgroundBrush"_s << u"red"_s;
        QTest::newRow("NaN") << u"borderWidth"_s << u"nan"_s;
        QTest::newRow("infinite") << u"xRadius"_s << u"inf"_s;
        QTest::newRow("too large") << u"borderWidth"_s << u"1e300"_s;
        QTest::newRow("bool") << u"trimText"_s << u"1"_s;
        QTest::newRow("three margins") << u"margins"_s << u"1,2,3"_s;
        QTest::newRow("no size") << u"iconSize"_s << u"0"_s;
        QTest::newRow("fraction") << u"iconSize"_s << u"1.5"_s;
        QTest::newRow("font") << u"font"_s << u"big"_s;
        QTest::newRow("glyph") << u"icon"_s << u"x"_s;
        QTest::newRow("state") << u"isCheck"_s << u"true"_s;
        QTest::newRow("picture") << u"pixmap"_s << u"none"_s;
    }

    void nonsenseIsRefused()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, text);
        KELPushButton button;
        KELStyleFields fields(&button);
        const QString before = fields.text(name);
        QString error;
        QVERIFY(!fields.setText(name, text, &error));
        QCOMPARE(error, u"\"%1\" is no value for %2"_s.arg(text, name));
        QCOMPARE(fields.text(name), before);
    }

    void unknownFieldsAreRefused()
    {
        KELLabel label;
        KELStyleFields fields(&label);
        QString error;
        QVERIFY(!fields.setText(u"iconMargins"_s, u"0,0,0,0"_s, &error));
        QCOMPARE(error, u"there is no field iconMargins"_s);
        QVERIFY(fields.text(u"iconMargins"_s).isNull());
        QVERIFY(!fields.isDefault(u"iconMargins"_s));
        QVERIFY(!fields.reset(u"iconMargins"_s));
    }

    void aRectanglePlacesTheKnob()
    {
        KELSlideControl slider;
        slider.setValue(50);
        KELStyleFields(&slider).setText(u"boundRect"_s, u"0,0,230,40"_s);
        QCOMPARE(slider.boundingRect(), QRectF(0, 0, 230, 40));
    }

    void gradientsAreOthers()
    {
        KELPushButton button;
        button.style()->backgroundBrush = QLinearGradient(0, 0, 1, 1);
        QCOMPARE(KELStyleFields(&button).text(u"backgroundBrush"_s), u"other"_s);
    }

    void partsAreTold()
    {
        KELRow row;
        KELStyleFields fields(&row);
        QVERIFY(fields.setText(u"rowHeight"_s, u"100"_s));
        QCOMPARE(row.effectiveSizeHint(Qt::PreferredSize).height(), 100.0);
    }

    void theDeadHaveNoFields()
    {
        auto *const button = new KELPushButton;
        KELStyleFields fields(button);
        delete button;
        QVERIFY(fields.names().isEmpty());
        QVERIFY(fields.text(u"text"_s).isNull());
        QVERIFY(!fields.setText(u"text"_s, u"a"_s));
        QVERIFY(!fields.isDefault(u"text"_s));
        QVERIFY(!fields.reset(u"text"_s));
        QVERIFY(KELStyleFields(nullptr).names().isEmpty());
        QGraphicsWidget widget;
        QVERIFY(KELStyleFields(&widget).names().isEmpty());
    }
};

KEL_TEST_MAIN(tst_KELStyleFields)
#include "tst_kelstylefields.moc"
