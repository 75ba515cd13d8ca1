// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"

#include <kelcheckbox.h>

#include <QtGui/QLinearGradient>
#include <QtWidgets/QMenu>

#include <limits>
#include <memory>

namespace {

const QColor defaultTrack(200, 200, 200);
const QColor defaultKnob(0, 123, 185);

KELCheckBoxStyle *styleOf(const KELCheckBox &box)
{
    return static_cast<KELCheckBoxStyle *>(box.style());
}

// What the box shows now, from a fresh record as paint() makes it.
KELCheckBoxStyle optionOf(const KELCheckBox &box)
{
    KELCheckBoxStyle option = KELCheckBoxStyle();
    box.initStyleOption(&option, nullptr);
    return option;
}

QStringList rangeWarnings(int count)
{
    QStringList warnings;
    for (int i = 0; i < count; ++i)
        warnings.append(u"QColor::setRgb: RGB parameters out of range"_s);
    return warnings;
}

QBrush gradient()
{
    QLinearGradient colours(0, 0, 80, 0);
    colours.setColorAt(0, Qt::red);
    colours.setColorAt(1, Qt::green);
    return colours;
}

class OpenCheckBox : public KELCheckBox
{
public:
    using KELCheckBox::KELCheckBox;

    void makeStyleAgain() { m_style = initStyle(); }
};

// Writes down what the box says about its state.
class Recorder : public QObject
{
public:
    explicit Recorder(KELCheckBox *box)
    {
        connect(box, &KELCheckBox::checked, this, [this] { note("checked"); });
        connect(box, &KELCheckBox::unchecked, this, [this] { note("unchecked"); });
        connect(box, &KELCheckBox::checkChanged, this, [this] { note("changed"); });
    }
    QString take() { return std::exchange(m_names, QStringList()).join(QLatin1Char(' ')); }

private:
    void note(const char *name) { m_names.append(QLatin1String(name)); }

    QStringList m_names;
};

} // namespace

class tst_KELCheckBox : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasTheDefaultsOfACheckBox()
    {
        const KELCheckBox box;
        const KELCheckBoxStyle &style = *styleOf(box);
        QCOMPARE(style.boundRect, QRectF(100, 100, 100, 30));
        QCOMPARE(style.backgroundBrush, QBrush(QColor(200, 200, 200, 255)));
        QCOMPARE(style.foregroundBrush, QBrush(Qt::black));
        QCOMPARE(style.borderBrush, QBrush(Qt::white));
        QCOMPARE(style.borderWidth, 2.0F);
        QCOMPARE(style.xRadius, 15.0);
        QCOMPARE(style.yRadius, 15.0);
        ControlTest::hasTheOtherDefaultsOfTheBase(style);
        QCOMPARE(style.indicatorBrush, QBrush(QColor(0, 123, 185, 255)));
    }

    void recordStandsForTheBaseRecord()
    {
        QVERIFY((std::is_base_of_v<KELRoundRectControlStyle, KELCheckBoxStyle>));
        QCOMPARE(KELCheckBoxStyle().indicatorBrush, QBrush(Qt::NoBrush));
        QCOMPARE(sizeof(KELCheckBoxStyle), sizeof(KELRoundRectControlStyle) + sizeof(QBrush));
    }

    void takesPointerInput() { ControlTest::takesPointerInput<KELCheckBox>(); }

    void hasAParentItem() { ControlTest::hasAParentItem<KELCheckBox>(); }

    void declaresItsInterface()
    {
        const QMetaObject &meta = KELCheckBox::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELCheckBox"));
        QCOMPARE(meta.superClass(), &KELRoundRectControl::staticMetaObject);
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);
        for (const char *signature : {"checked()", "unchecked()", "checkChanged()"})
            QVERIFY2(meta.indexOfSignal(signature) >= meta.methodOffset(), signature);
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 1);
        const QMetaProperty property = meta.property(meta.propertyOffset());
        QCOMPARE(QByteArray(property.name()), QByteArray("check"));
        QCOMPARE(int(property.type()), int(QVariant::Bool));
        QVERIFY(property.isReadable());
        QVERIFY(property.isWritable());
        QVERIFY(!property.isConstant());
        QCOMPARE(property.notifySignal().methodSignature(), QByteArray("checkChanged()"));
    }

    void initStyleCarriesTheLookOver()
    {
        OpenCheckBox box;
        auto *menu = new QMenu; // dies with the box
        KELCheckBoxStyle *style = styleOf(box);
        style->boundRect = QRectF(1, 2, 3, 4);
        style->text = u"Pump"_s;
        style->foregroundBrush = QBrush(Qt::green);
        style->font.setPixelSize(33);
        style->margins = QMarginsF(1, 2, 3, 4);
        style->textFlags = Qt::AlignRight;
        style->trimText = false;
        style->icon = KELIconFont('x');
        style->iconSize = 12;
        style->pixmap = QPixmap(3, 3);
        style->contextMenu = menu;
        style->isMouseDown = true;
        style->isCheck = true;
        style->backgroundBrush = QBrush(Qt::red);
        style->borderBrush = QBrush(Qt::red);
        style->borderWidth = 7;
        style->indicatorBrush = QBrush(Qt::red);
        style->xRadius = 1;
        style->yRadius = 1;

        box.makeStyleAgain();
        style = styleOf(box);
        QCOMPARE(style->boundRect, QRectF(1, 2, 3, 4));
        QCOMPARE(style->text, u"Pump"_s);
        QCOMPARE(style->foregroundBrush, QBrush(Qt::green));
        QCOMPARE(style->font.pixelSize(), 33);
        QCOMPARE(style->margins, QMarginsF(1, 2, 3, 4));
        QCOMPARE(style->textFlags, int(Qt::AlignRight));
        QVERIFY(!style->trimText);
        QCOMPARE(style->icon.getIcon(), QChar('x'));
        QCOMPARE(style->iconSize, 12);
        QCOMPARE(style->pixmap.size(), QSize(3, 3));
        QCOMPARE(style->contextMenu, menu);
        QVERIFY(!style->isMouseDown);
        QVERIFY(!style->isCheck);
        QCOMPARE(style->backgroundBrush, QBrush(defaultTrack));
        QCOMPARE(style->borderBrush, QBrush(Qt::white));
        QCOMPARE(style->borderWidth, 2.0F);
        QCOMPARE(style->indicatorBrush, QBrush(defaultKnob));
        QCOMPARE(style->xRadius, 15.0);
        QCOMPARE(style->yRadius, 15.0);
    }

    void initStyleReturnsTheNewRecord()
    {
        KELCheckBox box;
        KELRoundRectControlStyle *made = box.initStyle();
        QCOMPARE(box.style(), made);
    }

    void initStyleMakesANewRecordEachTime()
    {
        OpenCheckBox box;
        for (int i = 0; i < 3; ++i) {
            // The new record is made before the old one goes, so it cannot be in its place.
            const auto old = quintptr(box.style());
            box.makeStyleAgain();
            QVERIFY(quintptr(box.style()) != old);
        }
    }

    void initStyleAgainFreesTheOldRecord_data() { addBrushes(); }

    void initStyleAgainFreesTheOldRecord()
    {
        QFETCH(bool, texture);
        QPixmap pixmap(8, 8);
        pixmap.fill(Qt::red);
        OpenCheckBox box;
        // A leak of the gradient is for the sanitizers to see.
        for (int i = 0; i < 3; ++i) {
            styleOf(box)->indicatorBrush = texture ? QBrush(pixmap) : gradient();
            styleOf(box)->text = u"Pump %1"_s.arg(i);
            QCOMPARE(pixmap.isDetached(), !texture);
            box.makeStyleAgain();
            QVERIFY2(pixmap.isDetached(), "the old knob brush is still there");
        }
    }

    void knobBrushIsFreedWithTheBox_data() { addBrushes(); }

    void knobBrushIsFreedWithTheBox()
    {
        QFETCH(bool, texture);
        QPixmap pixmap(8, 8);
        pixmap.fill(Qt::red);
        for (const bool styleMadeAgain : {false, true}) {
            auto box = std::make_unique<OpenCheckBox>();
            if (styleMadeAgain)
                box->makeStyleAgain();
            styleOf(*box)->indicatorBrush = texture ? QBrush(pixmap) : gradient();
            QCOMPARE(pixmap.isDetached(), !texture);
            box.reset();
            QVERIFY2(pixmap.isDetached(), "the knob brush is still there");
        }
    }

    void menuIsDisposedOfWithTheBox()
    {
        const QPointer<QMenu> menu(new QMenu);
        auto box = std::make_unique<OpenCheckBox>();
        box->style()->contextMenu = menu;
        box->makeStyleAgain();
        QCoreApplication::sendPostedEvents(menu, QEvent::DeferredDelete);
        QVERIFY(menu);
        box.reset();
        QCoreApplication::sendPostedEvents(menu, QEvent::DeferredDelete);
        QVERIFY(!menu);
    }

    void optionCarriesTheRecord()
    {
        KELCheckBox box;
        KELCheckBoxStyle *style = styleOf(box);
        style->boundRect = QRectF(3, 4, 50, 60);
        style->font.setPixelSize(33);
        style->xRadius = 5;
        style->yRadius = 6;
        style->margins = QMarginsF(1, 2, 3, 4);
        style->borderBrush = QBrush(Qt::blue);
        style->borderWidth = 3.5F;
        style->foregroundBrush = QBrush(Qt::green);
        style->text = u"Pump"_s;
        style->textFlags = Qt::AlignRight;
        for (const bool trim : {false, true}) {
            style->trimText = trim;
            box.setCheck(trim);
            const KELCheckBoxStyle option = optionOf(box);
            QCOMPARE(option.boundRect, QRectF(3, 4, 50, 60));
            QCOMPARE(option.font, style->font);
            QCOMPARE(option.xRadius, 5.0);
            QCOMPARE(option.yRadius, 6.0);
            QCOMPARE(option.trimText, trim);
            QCOMPARE(option.margins, QMarginsF(1, 2, 3, 4));
            QCOMPARE(option.isCheck, trim);
            QCOMPARE(option.borderBrush, QBrush(Qt::blue));
            QCOMPARE(option.borderWidth, 3.5F);
            QCOMPARE(option.foregroundBrush, QBrush(Qt::green));
            QCOMPARE(option.text, u"Pump"_s);
            QCOMPARE(option.textFlags, int(Qt::AlignRight));
        }
    }

    void optionLeavesPicturesOut()
    {
        KELCheckBox box;
        styleOf(box)->pixmap = QPixmap(4, 4);
        styleOf(box)->pixmap.fill(Qt::red);
        styleOf(box)->icon = KELIconFont('x');
        styleOf(box)->iconSize = 12;
        const KELCheckBoxStyle option = optionOf(box);
        QVERIFY(option.pixmap.isNull());
        QVERIFY(option.icon.isNull());
        QCOMPARE(option.iconSize, 0);
    }

    void optionLeavesThePressOut()
    {
        KELCheckBox box;
        styleOf(box)->isMouseDown = true;
        styleOf(box)->contextMenu = new QMenu; // dies with the box
        QVERIFY(!optionOf(box).isMouseDown);
        QCOMPARE(optionOf(box).contextMenu, nullptr);
    }

    void optionHasTheRectangleInTheScene()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 100);
        auto *box = new KELCheckBox(&parent);
        box->setboundRect(5, 5, 50, 30);
        QCOMPARE(optionOf(*box).boundRect, QRectF(15, 25, 50, 30));
    }

    void optionFillsFieldsWithoutInitialiser()
    {
        KELCheckBox box;
        QMenu menu;
        styleOf(box)->borderBrush = QBrush(Qt::NoBrush);
        KELCheckBoxStyle option = KELCheckBoxStyle();
        option.borderWidth = 99;
        option.textFlags = 99;
        option.trimText = false;
        option.iconSize = 99;
        option.contextMenu = &menu;
        box.initStyleOption(&option, nullptr);
        QCOMPARE(option.borderWidth, 0.0F);
        QCOMPARE(option.textFlags, 0);
        QVERIFY(option.trimText);
        QCOMPARE(option.iconSize, 0);
        QCOMPARE(option.contextMenu, nullptr);
    }

    void defaultColours_data()
    {
        QTest::addColumn<bool>("on");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<QColor>("track");
        QTest::addColumn<QColor>("knob");
        QTest::addColumn<QColor>("outline");

        const QColor knob(0, 123, 185, 255);
        const QColor disabledKnob(130, 130, 130, 150);
        const QColor outline(255, 255, 255, 255);
        const QColor disabledOutline(255, 255, 255, 125);
        QTest::newRow("off, enabled")
            << false << true << QColor(200, 200, 200, 255) << knob << outline;
        QTest::newRow("off, disabled")
            << false << false << QColor(200, 200, 200, 85) << disabledKnob << disabledOutline;
        QTest::newRow("on, enabled")
            << true << true << QColor(70, 193, 255, 185) << knob << outline;
        QTest::newRow("on, disabled")
            << true << false << QColor(200, 200, 200, 80) << disabledKnob << disabledOutline;
    }

    void defaultColours()
    {
        QFETCH(bool, on);
        QFETCH(bool, enabled);
        QFETCH(QColor, track);
        QFETCH(QColor, knob);
        QFETCH(QColor, outline);
        KELCheckBox box;
        box.setCheck(on);
        box.setEnabled(enabled);
        const KELCheckBoxStyle option = optionOf(box);
        QCOMPARE(option.backgroundBrush, QBrush(track));
        QCOMPARE(option.indicatorBrush, QBrush(knob));
        QCOMPARE(option.borderBrush, QBrush(outline));
        QCOMPARE(option.borderWidth, 2.0F);
        QCOMPARE(option.foregroundBrush, QBrush(Qt::black));
    }

    void coloursAreComputedFromTheRecord_data()
    {
        QTest::addColumn<bool>("on");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<QColor>("track");
        QTest::addColumn<QColor>("knob");
        QTest::addColumn<QColor>("outline");

        const QColor knob(11, 122, 183, 201);
        const QColor disabledKnob(20, 55, 126, 150);
        const QColor outline(4, 5, 6, 207);
        const QColor disabledOutline(4, 5, 6, 77);
        QTest::newRow("off, enabled")
            << false << true << QColor(90, 125, 196, 240) << knob << outline;
        QTest::newRow("off, disabled")
            << false << false << QColor(90, 125, 196, 70) << disabledKnob << disabledOutline;
        QTest::newRow("on, enabled")
            << true << true << QColor(81, 192, 253, 131) << knob << outline;
        QTest::newRow("on, disabled")
            << true << false << QColor(90, 125, 196, 80) << disabledKnob << disabledOutline;
    }

    void coloursAreComputedFromTheRecord()
    {
        QFETCH(bool, on);
        QFETCH(bool, enabled);
        QFETCH(QColor, track);
        QFETCH(QColor, knob);
        QFETCH(QColor, outline);
        KELCheckBox box;
        styleOf(box)->backgroundBrush = QColor(90, 125, 196, 240);
        styleOf(box)->indicatorBrush = QColor(11, 122, 183, 201);
        styleOf(box)->borderBrush = QColor(4, 5, 6, 207);
        styleOf(box)->borderWidth = 5;
        box.setCheck(on);
        box.setEnabled(enabled);
        const KELCheckBoxStyle option = optionOf(box);
        QCOMPARE(option.backgroundBrush, QBrush(track));
        QCOMPARE(option.indicatorBrush, QBrush(knob));
        QCOMPARE(option.borderBrush, QBrush(outline));
        QCOMPARE(option.borderWidth, 5.0F);
    }

    void enabledBrushesAreCopiedWhole()
    {
        KELCheckBox box;
        const QBrush hatched(QColor(100, 110, 120, 230), Qt::DiagCrossPattern);
        styleOf(box)->backgroundBrush = gradient();
        styleOf(box)->indicatorBrush = hatched;
        styleOf(box)->borderBrush = gradient();
        QCOMPARE(optionOf(box).backgroundBrush, gradient());
        QCOMPARE(optionOf(box).indicatorBrush, hatched);
        QCOMPARE(optionOf(box).borderBrush, gradient());
        box.setCheck(true);
        QCOMPARE(optionOf(box).indicatorBrush, hatched);
        QCOMPARE(optionOf(box).borderBrush, gradient());
        QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(170, 180, 190, 160)));
    }

    void disabledBrushesAreSolid()
    {
        KELCheckBox box;
        styleOf(box)->backgroundBrush = QBrush(QColor(100, 110, 120, 230), Qt::DiagCrossPattern);
        styleOf(box)->indicatorBrush = QBrush(QColor(1, 2, 3, 4), Qt::Dense3Pattern);
        styleOf(box)->borderBrush = QBrush(QColor(1, 2, 3, 230), Qt::HorPattern);
        box.setEnabled(false);
        QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(100, 110, 120, 60)));
        QCOMPARE(optionOf(box).indicatorBrush, QBrush(QColor(30, 40, 50, 150)));
        QCOMPARE(optionOf(box).borderBrush, QBrush(QColor(1, 2, 3, 100)));
        box.setCheck(true);
        QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(100, 110, 120, 80)));
    }

    void disabledByAParent()
    {
        KELRoundRectControl parent;
        const auto *box = new KELCheckBox(&parent);
        parent.setEnabled(false);
        QCOMPARE(optionOf(*box).indicatorBrush, QBrush(QColor(130, 130, 130, 150)));
        QCOMPARE(optionOf(*box).backgroundBrush, QBrush(QColor(200, 200, 200, 85)));
        QCOMPARE(optionOf(*box).borderBrush, QBrush(QColor(255, 255, 255, 125)));
    }

    void withoutKnob()
    {
        KELCheckBox box;
        styleOf(box)->indicatorBrush = QBrush(QColor(10, 20, 30), Qt::NoBrush);
        for (const bool enabled : {true, false}) {
            box.setEnabled(enabled);
            QCOMPARE(optionOf(box).indicatorBrush.style(), Qt::NoBrush);
            box.setCheck(true);
            // A brush that was left out counts as black.
            QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(70, 70, 70, 185)));
            box.setCheck(false);
            QCOMPARE(optionOf(box).backgroundBrush.color().alpha(), enabled ? 255 : 85);
        }
    }

    void withoutTrack_data()
    {
        QTest::addColumn<bool>("on");

        QTest::newRow("off") << false;
        QTest::newRow("on") << true;
    }

    void withoutTrack()
    {
        QFETCH(bool, on);
        KELCheckBox box;
        styleOf(box)->backgroundBrush = QBrush(QColor(80, 90, 100), Qt::NoBrush);
        box.setCheck(on);
        QCOMPARE(optionOf(box).backgroundBrush.style(), Qt::NoBrush);
        QCOMPARE(optionOf(box).indicatorBrush, QBrush(defaultKnob));
        box.setEnabled(false);
        QCOMPARE(optionOf(box).backgroundBrush.style(), Qt::NoBrush);
        // The knob takes the colour of a track that is not drawn.
        QCOMPARE(optionOf(box).indicatorBrush, QBrush(QColor(10, 20, 30, 150)));
    }

    void withoutOutline_data()
    {
        QTest::addColumn<QBrush>("brush");
        QTest::addColumn<float>("width");

        QTest::newRow("no brush") << QBrush(Qt::red, Qt::NoBrush) << 2.0F;
        QTest::newRow("width zero") << QBrush(Qt::red) << 0.0F;
        QTest::newRow("width negative") << QBrush(Qt::red) << -1.0F;
        QTest::newRow("width not a number")
            << QBrush(Qt::red) << std::numeric_limits<float>::quiet_NaN();
    }

    void withoutOutline()
    {
        QFETCH(QBrush, brush);
        QFETCH(float, width);
        KELCheckBox box;
        styleOf(box)->borderBrush = brush;
        styleOf(box)->borderWidth = width;
        for (const bool enabled : {true, false}) {
            box.setEnabled(enabled);
            QCOMPARE(optionOf(box).borderBrush, QBrush(Qt::NoBrush));
            QCOMPARE(optionOf(box).borderWidth, 0.0F);
        }
    }

    void withoutForeground()
    {
        KELCheckBox box;
        styleOf(box)->text = u"Pump"_s;
        styleOf(box)->foregroundBrush = QBrush(Qt::red, Qt::NoBrush);
        QCOMPARE(optionOf(box).foregroundBrush, QBrush(Qt::NoBrush));
        QVERIFY(optionOf(box).text.isNull());
        QCOMPARE(optionOf(box).textFlags, 0);
    }

    void withoutText_data()
    {
        QTest::addColumn<QString>("text");

        QTest::newRow("null") << QString();
        QTest::newRow("empty") << u""_s;
    }

    void withoutText()
    {
        QFETCH(QString, text);
        KELCheckBox box;
        styleOf(box)->text = text;
        styleOf(box)->foregroundBrush = QBrush(Qt::red);
        QCOMPARE(optionOf(box).foregroundBrush, QBrush(Qt::red));
        QVERIFY(optionOf(box).text.isNull());
        QCOMPARE(optionOf(box).textFlags, 0);
    }

    void colourOutOfRangeIsInvalid_data()
    {
        QTest::addColumn<bool>("on");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<QColor>("track");
        QTest::addColumn<QColor>("knob");
        QTest::addColumn<QColor>("outline");
        QTest::addColumn<QString>("invalid");

        const QColor white(Qt::white);
        const QString knob = u"knob"_s;
        const QString track = u"track"_s;
        const QString outline = u"outline"_s;
        QTest::newRow("disabled knob, red")
            << false << false << QColor(69, 200, 200) << defaultKnob << white << knob;
        QTest::newRow("disabled knob, green")
            << false << false << QColor(200, 69, 200) << defaultKnob << white << knob;
        QTest::newRow("disabled knob, blue")
            << false << false << QColor(200, 200, 69) << defaultKnob << white << knob;
        QTest::newRow("disabled knob, black track")
            << false << false << QColor(0, 0, 0) << defaultKnob << white << knob;
        QTest::newRow("track on, red")
            << true << true << defaultTrack << QColor(186, 0, 0) << white << track;
        QTest::newRow("track on, green")
            << true << true << defaultTrack << QColor(0, 186, 0) << white << track;
        QTest::newRow("track on, blue")
            << true << true << defaultTrack << QColor(0, 0, 186) << white << track;
        QTest::newRow("track on, alpha")
            << true << true << defaultTrack << QColor(0, 0, 0, 69) << white << track;
        QTest::newRow("track off and disabled, alpha")
            << false << false << QColor(200, 200, 200, 169) << defaultKnob << white << track;
        QTest::newRow("disabled outline, alpha, off")
            << false << false << defaultTrack << defaultKnob << QColor(0, 0, 0, 129) << outline;
        QTest::newRow("disabled outline, alpha, on")
            << true << false << defaultTrack << defaultKnob << QColor(0, 0, 0, 129) << outline;
    }

    void colourOutOfRangeIsInvalid()
    {
        QFETCH(bool, on);
        QFETCH(bool, enabled);
        QFETCH(QColor, track);
        QFETCH(QColor, knob);
        QFETCH(QColor, outline);
        QFETCH(QString, invalid);
        KELCheckBox box;
        styleOf(box)->backgroundBrush = track;
        styleOf(box)->indicatorBrush = knob;
        styleOf(box)->borderBrush = outline;
        box.setCheck(on);
        box.setEnabled(enabled);
        const KELCheckBoxStyle option = optionOf(box);
        QCOMPARE(takeWarnings(), rangeWarnings(1));
        QCOMPARE(option.indicatorBrush.color().isValid(), invalid != QLatin1String("knob"));
        QCOMPARE(option.backgroundBrush.color().isValid(), invalid != QLatin1String("track"));
        QCOMPARE(option.borderBrush.color().isValid(), invalid != QLatin1String("outline"));
        QCOMPARE(option.indicatorBrush.style(), Qt::SolidPattern);
        QCOMPARE(option.backgroundBrush.style(), Qt::SolidPattern);
        QCOMPARE(option.borderBrush.style(), Qt::SolidPattern);
    }

    void colourAtTheLimitIsValid()
    {
        KELCheckBox box;
        styleOf(box)->backgroundBrush = QColor(70, 70, 70, 170);
        styleOf(box)->indicatorBrush = QColor(185, 185, 185, 70);
        styleOf(box)->borderBrush = QColor(255, 255, 255, 130);
        box.setEnabled(false);
        QCOMPARE(optionOf(box).indicatorBrush, QBrush(QColor(0, 0, 0, 150)));
        QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(70, 70, 70, 0)));
        QCOMPARE(optionOf(box).borderBrush, QBrush(QColor(255, 255, 255, 0)));
        box.setEnabled(true);
        box.setCheck(true);
        QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(255, 255, 255, 0)));
    }

    void trackFromAnInvalidKnob()
    {
        KELCheckBox box;
        styleOf(box)->backgroundBrush = QColor(10, 200, 200);
        box.setCheck(true);
        box.setEnabled(false);
        const KELCheckBoxStyle option = optionOf(box);
        QCOMPARE(takeWarnings(), rangeWarnings(1));
        QVERIFY(!option.indicatorBrush.color().isValid());
        // Qt counts an invalid colour as opaque black.
        QCOMPARE(option.backgroundBrush, QBrush(QColor(70, 70, 70, 185)));
    }

    void optionDoesNotChangeTheRecord()
    {
        KELCheckBox box;
        box.setCheck(true);
        box.setEnabled(false);
        optionOf(box);
        optionOf(box);
        QCOMPARE(styleOf(box)->backgroundBrush, QBrush(defaultTrack));
        QCOMPARE(styleOf(box)->indicatorBrush, QBrush(defaultKnob));
        QCOMPARE(styleOf(box)->borderBrush, QBrush(Qt::white));
        QCOMPARE(optionOf(box).backgroundBrush, QBrush(QColor(200, 200, 200, 80)));
    }

    void checkedEventTellsTheStoredState_data()
    {
        QTest::addColumn<bool>("stored");
        QTest::addColumn<bool>("argument");
        QTest::addColumn<QString>("names");

        QTest::newRow("off, told off") << false << false << u"unchecked changed"_s;
        QTest::newRow("off, told on") << false << true << u"unchecked changed"_s;
        QTest::newRow("on, told off") << true << false << u"checked changed"_s;
        QTest::newRow("on, told on") << true << true << u"checked changed"_s;
    }

    void checkedEventTellsTheStoredState()
    {
        QFETCH(bool, stored);
        QFETCH(bool, argument);
        QFETCH(QString, names);
        KELCheckBox box;
        Recorder recorder(&box);
        box.style()->isCheck = stored;
        box.onCheckedEvent(argument);
        QCOMPARE(recorder.take(), names);
        QCOMPARE(box.isCheck(), stored);
    }

private:
    static void addBrushes()
    {
        QTest::addColumn<bool>("texture");

        QTest::newRow("texture") << true;
        QTest::newRow("gradient") << false;
    }
};

KEL_TEST_MAIN(tst_KELCheckBox)
#include "tst_kelcheckbox.moc"
