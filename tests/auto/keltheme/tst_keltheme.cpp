// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "rows.h"
#include "signallog.h"
#include "stage.h"

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kellabel.h>
#include <kellist.h>
#include <kelnavigationtable.h>
#include <kelpindialog.h>
#include <kelprocessbar.h>
#include <kelpushbutton.h>
#include <kelradiobox.h>
#include <kelrow.h>
#include <kelscreen.h>
#include <kelslidecontrol.h>
#include <keltheme.h>

#include <QtCore/QTemporaryDir>
#include <QtGui/QPainter>

#include <cmath>

namespace {

const std::vector<Named> allSchemes = {{"light", KELTheme::Light},
                                       {"dark", KELTheme::Dark},
                                       {"high contrast", KELTheme::HighContrast}};

qreal luminance(const QColor &colour)
{
    const auto linear = [](qreal share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

qreal contrast(const QColor &one, const QColor &other)
{
    const qreal first = luminance(one);
    const qreal second = luminance(other);
    return (qMax(first, second) + 0.05) / (qMin(first, second) + 0.05);
}

// The colour of most pixels of an area, which is its ground.
QColor groundOf(const QImage &image, const QRect &area)
{
    QHash<QRgb, int> counts;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            ++counts[image.pixel(x, y)];
    }
    QRgb most = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > counts.value(most))
            most = it.key();
    }
    return QColor(most);
}

// The highest contrast of a pixel of an area against its ground.
qreal bestContrast(const QImage &image, const QRect &area)
{
    const QColor ground = groundOf(image, area);
    qreal best = 1;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            best = qMax(best, contrast(QColor(image.pixel(x, y)), ground));
    }
    return best;
}

class TwoButtons
{
public:
    TwoButtons() : page(new PlainItem(QRectF(0, 0, 400, 300)))
    {
        first = new KELPushButton(page);
        second = new KELPushButton(page);
        scene.setItemIndexMethod(QGraphicsScene::NoIndex);
        scene.addItem(page);
    }

    QGraphicsScene scene;
    PlainItem *page;
    KELPushButton *first = nullptr;
    KELPushButton *second = nullptr;
};

QBrush groundOf(const KELRoundRectControl *control)
{
    return control->style()->backgroundBrush;
}

} // namespace

class tst_KELTheme : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aTreeIsDressed()
    {
        TwoButtons stage;
        KELTheme theme;
        SignalLog log;
        log.listenTo(&theme);
        theme.applyTo(&stage.scene);
        QCOMPARE(groundOf(stage.first), QBrush(QColor(0xffffff)));
        theme.setScheme(KELTheme::Dark);
        QCOMPARE(theme.scheme(), KELTheme::Dark);
        QCOMPARE(log.take(), u"changed"_s);
        QCOMPARE(groundOf(stage.first), QBrush(QColor(0x222935)));
        QCOMPARE(groundOf(stage.second), QBrush(QColor(0x222935)));
        QCOMPARE(stage.scene.backgroundBrush(), QBrush(QColor(0x0e1116)));
        theme.setScheme(KELTheme::HighContrast);
        QCOMPARE(groundOf(stage.first), QBrush(QColor(Qt::black)));
        QCOMPARE(theme.color(KELTheme::Accent), QColor(0xffe100));
    }

    void whatIsAddedLaterIsDressed()
    {
        TwoButtons stage;
        KELTheme theme;
        theme.setScheme(KELTheme::Dark);
        theme.applyTo(&stage.scene);
        auto *const third = new KELPushButton(stage.page);
        auto *const inner = new KELLabel(third);
        letEventsRun();
        QCOMPARE(groundOf(third), QBrush(QColor(0x222935)));
        QCOMPARE(inner->style()->foregroundBrush, QBrush(QColor(0xf2f5f9)));
        auto *const innermost = new KELPushButton(inner);
        letEventsRun();
        QCOMPARE(groundOf(innermost), QBrush(QColor(0x222935)));
    }

    void partsWithoutAParentAreDressed()
    {
        TwoButtons stage;
        KELTheme theme;
        theme.setScheme(KELTheme::Dark);
        theme.applyTo(&stage.scene);
        KELTheme other; // of nothing
        auto *const dialog = new KELPinDialog;
        dialog->open(&stage.scene);
        letEventsRun();
        QCOMPARE(dialog->partStyle()->backgroundBrush, QBrush(QColor(0x181d25)));
        dialog->partStyle()->backgroundBrush = Qt::red;
        dialog->reject();
        letEventsRun();
        QCOMPARE(dialog->partStyle()->backgroundBrush, QBrush(Qt::red));
    }

    void pagesAreDressed()
    {
        KELScreen screen;
        KELTheme theme;
        theme.setScheme(KELTheme::Dark);
        theme.applyTo(screen.scene());
        auto *const page = new KELPage;
        auto *const row = new KELRow(page);
        screen.push(page);
        QCOMPARE(row->partStyle()->backgroundBrush, QBrush(QColor(0x181d25)));
    }

    void whatIsSetByHandWins()
    {
        TwoButtons stage;
        stage.first->style()->backgroundBrush = QColor(1, 2, 3);
        KELTheme theme;
        theme.applyTo(&stage.scene);
        stage.second->style()->foregroundBrush = QColor(4, 5, 6);
        theme.setScheme(KELTheme::Dark);
        QCOMPARE(groundOf(stage.first), QBrush(QColor(1, 2, 3)));
        QCOMPARE(stage.first->style()->foregroundBrush, QBrush(QColor(0xf2f5f9)));
        QCOMPARE(stage.second->style()->foregroundBrush, QBrush(QColor(4, 5, 6)));
        QCOMPARE(groundOf(stage.second), QBrush(QColor(0x222935)));
    }

    void ownStatesAreKept()
    {
        TwoButtons stage;
        KELTheme theme;
        theme.applyTo(&stage.scene);
        stage.first->setIsCheckedTemplate(
            [](KELPushButtonStyle &look) { look.backgroundBrush = QColor(7, 8, 9); });
        stage.first->setProperty("ownStates", true);
        theme.setScheme(KELTheme::Dark);
        stage.first->setCheck(true);
        stage.second->setCheck(true);
        const QImage own = KelImage::paint(stage.first, QSize(250, 150));
        const QImage themed = KelImage::paint(stage.second, QSize(250, 150));
        QCOMPARE(own.pixelColor(150, 115), QColor(7, 8, 9));
        QCOMPARE(themed.pixelColor(150, 115), QColor(0x4da3ff));
    }

    void aDyingThemeLeavesTheLook()
    {
        TwoButtons stage;
        {
            KELTheme theme;
            theme.applyTo(&stage.scene);
            theme.setScheme(KELTheme::Dark);
        }
        new KELPushButton(stage.page);
        letEventsRun();
        QCOMPARE(groundOf(stage.first), QBrush(QColor(0x222935)));
    }

    void deadRootsAreForgotten()
    {
        KELTheme theme;
        {
            TwoButtons stage;
            theme.applyTo(&stage.scene);
            theme.applyTo(stage.first);
        }
        theme.applyTo(static_cast<QGraphicsScene *>(nullptr));
        theme.applyTo(static_cast<QGraphicsObject *>(nullptr));
        theme.setScheme(KELTheme::Dark);
        theme.setScheme(KELTheme::Scheme(3));
        QCOMPARE(theme.scheme(), KELTheme::Dark);
        QVERIFY(!theme.color(KELTheme::Role(-1)).isValid());
    }

    void slotsMayDeleteTheTheme()
    {
        TwoButtons stage;
        auto *const theme = new KELTheme;
        theme->applyTo(&stage.scene);
        connect(theme, &KELTheme::changed, theme, [theme] { delete theme; });
        theme->setScheme(KELTheme::Dark);
        QCOMPARE(groundOf(stage.first), QBrush(QColor(0x222935)));
    }

    void rolesAreLegible_data() { addRows({{"scheme", allSchemes}}); }

    void rolesAreLegible()
    {
        KELTheme theme;
        theme.setScheme(fetch<KELTheme::Scheme>("scheme"));
        for (const auto ground : {KELTheme::Background, KELTheme::Surface, KELTheme::Raised}) {
            for (const auto text : {KELTheme::Text, KELTheme::Muted, KELTheme::Accent,
                                    KELTheme::Good, KELTheme::Warning, KELTheme::Bad})
                QVERIFY2(contrast(theme.color(ground), theme.color(text)) >= 4.5,
                         qPrintable(u"%1 on %2"_s.arg(text).arg(ground)));
            QVERIFY(contrast(theme.color(ground), theme.color(KELTheme::Disabled)) >= 2.8);
        }
        QVERIFY(contrast(theme.color(KELTheme::Accent), theme.color(KELTheme::OnAccent)) >= 4.5);
        QVERIFY(contrast(theme.color(KELTheme::Bad), theme.color(KELTheme::OnBad)) >= 4.5);
    }

    void theTabInSightIsTold_data() { addRows({{"scheme", allSchemes}}); }

    void theTabInSightIsTold()
    {
        KELTheme theme;
        theme.setScheme(fetch<KELTheme::Scheme>("scheme"));
        KELNavigationTableItem item;
        theme.applyTo(&item);
        const auto *const style = static_cast<const KELNavigationTableItemStyle *>(item.style());
        QVERIFY(style->buttonBackground.color() != theme.color(KELTheme::Background));
    }

    void everyControlIsLegible_data()
    {
        addRows({{"scheme", allSchemes},
                 {"control",
                  {{"base", 0},
                   {"label", 1},
                   {"push button", 2},
                   {"bar, empty", 3},
                   {"bar, full", 4},
                   {"combo box", 5},
                   {"row", 6},
                   {"check box", 7},
                   {"radio box", 8},
                   {"slider", 9}}},
                 {"state", {{"rest", 0}, {"pressed", 1}, {"checked", 2}, {"disabled", 3}}}});
    }

    // What shows best in a picture of it.
    void everyControlIsLegible()
    {
        const int number = fetch<int>("control");
        const int state = fetch<int>("state");
        KELTheme theme;
        theme.setScheme(fetch<KELTheme::Scheme>("scheme"));
        const std::unique_ptr<QGraphicsObject> object(newObject(number));
        auto *const control = qobject_cast<KELRoundRectControl *>(object.get());
        theme.applyTo(object.get());
        if (state == 1 && control)
            control->style()->isMouseDown = true;
        if (state == 2 && control)
            control->setCheck(true);
        if (state == 3)
            object->setEnabled(false);
        const QColor page = theme.color(KELTheme::Surface);
        const QImage image = KelImage::draw(QSize(200, 60), 1, [&](QPainter *painter) {
            painter->fillRect(0, 0, 200, 60, page);
            KelImage::paintTree(painter, object.get());
        });
        const bool isText = number < 7;
        const qreal wanted = state == 3 ? (isText ? 2.8 : 1.2) : isText ? 4.5 : 3;
        const qreal best = bestContrast(image, QRect(10, 16, 180, 28));
        QVERIFY2(best >= wanted, QByteArray::number(best));
    }

    void aFileIsALook()
    {
        TwoButtons stage;
        KELTheme theme;
        theme.applyTo(&stage.scene);
        write("{\"base\": \"dark\", \"roles\": {\"raised\": \"#102030\"}, \"KELRoundRectControl\": "
              "{\"xRadius\": \"3\", \"yRadius\": \"3\"}, \"KELPushButton\": {\"xRadius\": \"5\"}}");
        QVERIFY(theme.load(m_path));
        QCOMPARE(theme.scheme(), KELTheme::Dark);
        QCOMPARE(groundOf(stage.first), QBrush(QColor(0x102030)));
        QCOMPARE(stage.first->style()->xRadius, 5.0);
        QCOMPARE(stage.first->style()->yRadius, 3.0);
        theme.setScheme(KELTheme::Light);
        QCOMPARE(stage.first->style()->xRadius, 12.0);
    }

    void aChangedFileIsLoadedAgain_data()
    {
        addRows({{"way", {{"written", 0}, {"replaced", 1}, {"removed and written", 2}}}});
    }

    void aChangedFileIsLoadedAgain()
    {
        TwoButtons stage;
        KELTheme theme;
        theme.applyTo(&stage.scene);
        write("{\"base\": \"dark\"}");
        QVERIFY(theme.load(m_path));
        const QString otherPath = m_path + u".new"_s;
        switch (fetch<int>("way")) {
        case 0:
            write("{\"base\": \"highContrast\"}");
            break;
        case 1:
            write("{\"base\": \"highContrast\"}", otherPath);
            QVERIFY(std::rename(qPrintable(otherPath), qPrintable(m_path)) == 0);
            break;
        default:
            QVERIFY(QFile::remove(m_path));
            letEventsRun();
            write("{\"base\": \"highContrast\"}");
        }
        QTRY_COMPARE(theme.scheme(), KELTheme::HighContrast);
        QCOMPARE(groundOf(stage.first), QBrush(QColor(Qt::black)));
    }

    void aBrokenFileKeepsTheLook_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("error");
        QTest::newRow("no JSON") << QByteArray("{\n\"base\": \"dark\",\n}") << 3
                                 << u"object is missing after a comma"_s;
        QTest::newRow("a list") << QByteArray("[]") << 1 << u"not an object"_s;
        QTest::newRow("base") << QByteArray("{\n\"base\": \"grey\"}") << 2
                              << u"\"grey\" is no base"_s;
        QTest::newRow("role") << QByteArray("{\"roles\": {\n\n\"ink\": \"#000000\"}}") << 3
                              << u"there is no role ink"_s;
        QTest::newRow("colour") << QByteArray("{\"roles\":\n{\"text\": \"#0\"}}") << 2
                                << u"#0 is no colour"_s;
        QTest::newRow("class") << QByteArray("{\n\"KELButton\": {}}") << 2
                               << u"there is no class KELButton"_s;
        QTest::newRow("field") << QByteArray("{\"KELLabel\": {\n\"colour\": \"#000000\"}}") << 2
                               << u"KELLabel has no field colour"_s;
        QTest::newRow("value") << QByteArray("{\"KELLabel\": {\n\"borderWidth\": \"thin\"}}") << 2
                               << u"\"thin\" is no value for borderWidth"_s;
    }

    void aBrokenFileKeepsTheLook()
    {
        QFETCH(const QByteArray, text);
        QFETCH(const int, line);
        QFETCH(const QString, error);
        TwoButtons stage;
        KELTheme theme;
        theme.applyTo(&stage.scene);
        theme.setScheme(KELTheme::Dark);
        QSignalSpy failed(&theme, &KELTheme::failed);
        write(text);
        QVERIFY(!theme.load(m_path));
        QCOMPARE(failed.count(), 1);
        QCOMPARE(failed.at(0).at(0).toInt(), line);
        QCOMPARE(failed.at(0).at(1).toString(), error);
        QCOMPARE(theme.scheme(), KELTheme::Dark);
        QCOMPARE(groundOf(stage.first), QBrush(QColor(0x222935)));
        auto *const third = new KELPushButton(stage.page);
        letEventsRun();
        QCOMPARE(groundOf(third), QBrush(QColor(0x222935)));
        write("{\"base\": \"highContrast\"}");
        QTRY_COMPARE(theme.scheme(), KELTheme::HighContrast);
        QCOMPARE(groundOf(stage.first), QBrush(QColor(Qt::black)));
    }

    void aMissingFileIsTold()
    {
        KELTheme theme;
        QSignalSpy failed(&theme, &KELTheme::failed);
        const QString path = m_folder.filePath(u"none.json"_s);
        QVERIFY(!theme.load(path));
        QCOMPARE(failed.count(), 1);
        QCOMPARE(failed.at(0).at(0).toInt(), 0);
        QCOMPARE(failed.at(0).at(1).toString(), u"%1 cannot be read"_s.arg(path));
    }

private:
    void write(const QByteArray &text) { write(text, m_path); }

    static void write(const QByteArray &text, const QString &path)
    {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(text);
    }

    template <class Control>
    static Control *newControl()
    {
        auto *const control = new Control;
        control->setboundRect(0, 0, 200, 60);
        control->setText(u"HHHHHH"_s);
        return control;
    }

    static KELProcessBar *newBar(int value)
    {
        auto *const bar = newControl<KELProcessBar>();
        bar->setValue(value);
        return bar;
    }

    static QGraphicsObject *newObject(int number)
    {
        switch (number) {
        case 0:
            return newControl<KELRoundRectControl>();
        case 1:
            return newControl<KELLabel>();
        case 2:
            return newControl<KELPushButton>();
        case 3:
            return newBar(0);
        case 4:
            return newBar(100);
        case 5: {
            auto *const box = newControl<KELComboBox>();
            box->addItem(1, u"HHHHHH"_s);
            box->setSelectIndex(0);
            return box;
        }
        case 6: {
            auto *const row = new KELRow;
            row->setCaption(u"HHHHHH"_s);
            row->setGeometry(0, 0, 200, 60);
            return row;
        }
        case 7:
            return newControl<KELCheckBox>();
        case 8:
            return newControl<KELRadioBox>();
        default:
            return newControl<KELSlideControl>();
        }
    }

    const QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(u"theme.json"_s);
};

KEL_TEST_MAIN(tst_KELTheme)
#include "tst_keltheme.moc"
