// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "captionscene.h"
#include "keltest.h"

#include <kellabel.h>
#include <kelpushbutton.h>

#include <QtCore/QPointer>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetrics>
#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>

#include <functional>

// A caption that was painted before may be painted from what was kept of it: nobody must see that.

namespace {

using Scene = CaptionScene;
using Change = std::function<void(Scene &)>;

// What the changes begin with.
const char *const beginnings[] = {"short", "wrapped", "right to left"};

Scene beginning(int index)
{
    Scene scene;
    if (index == 1) {
        scene.text = u"A text that takes some lines, and of them more than there is room for"_s;
        scene.trimText = false;
    } else if (index == 2) {
        scene.text = QString::fromUtf8("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D, abc (1)!");
    }
    return scene;
}

// Deletes a control as soon as a text is drawn on it.
class DeletingDevice : public QPaintDevice
{
public:
    explicit DeletingDevice(QGraphicsObject *victim) : m_engine(victim) { }
    QPaintEngine *paintEngine() const override { return &m_engine; }
    bool isDeleted() const { return !m_engine.victim; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmWidth:
        case PdmHeight:
            return 300;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 1;
        }
    }

private:
    class Engine : public QPaintEngine
    {
    public:
        explicit Engine(QGraphicsObject *object) : QPaintEngine(AllFeatures), victim(object) { }
        bool begin(QPaintDevice * /*device*/) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState & /*state*/) override { }
        void drawPixmap(const QRectF & /*rect*/, const QPixmap & /*pixmap*/,
                        const QRectF & /*source*/) override
        { }
        void drawPath(const QPainterPath & /*path*/) override { }
        void drawTextItem(const QPointF & /*pos*/, const QTextItem & /*item*/) override
        {
            delete victim;
        }
        Type type() const override { return User; }

        QPointer<QGraphicsObject> victim;
    };

    mutable Engine m_engine;
};

struct NamedChange
{
    const char *name;
    Change change;
};

const NamedChange changes[] = {
    {"nothing", [](Scene & /*scene*/) {}},
    {"another text", [](Scene &s) { s.text = u"Another text"_s; }},
    {"a text of the same length", [](Scene &s) { s.text = u"B caption & more"_s; }},
    {"no text", [](Scene &s) { s.text.clear(); }},
    {"a long line above a short one",
     [](Scene &s) {
         s.text = u"A line that is much too long for this\nshort"_s;
         s.trimText = false;
         s.flags = Qt::AlignCenter;
     }},
    {"two lines", [](Scene &s) { s.text = u"First\nsecond line"_s; }},
    {"empty lines", [](Scene &s) { s.text = u"\n\nFirst\n\nsecond\n"_s; }},
    {"a long text", [](Scene &s) { s.text = u"A text that is much too long for this"_s; }},
    {"a long text, not elided",
     [](Scene &s) {
         s.text = u"A text that is much too long for this rectangle"_s;
         s.trimText = false;
     }},
    {"a long text on one line, not elided",
     [](Scene &s) {
         s.text = u"A text that is much too long for this rectangle"_s;
         s.trimText = false;
         s.flags = Qt::AlignCenter;
     }},
    {"a tab", [](Scene &s) { s.text = u"one\ttwo"_s; }},
    {"a tab that is expanded",
     [](Scene &s) {
         s.text = u"one\ttwo"_s;
         s.flags = Qt::AlignLeft | Qt::TextExpandTabs;
     }},
    {"a carriage return", [](Scene &s) { s.text = u"one\rtwo"_s; }},
    {"a text in two lengths",
     [](Scene &s) { s.text = u"A very long variant of it"_s + QChar(0x9C) + QLatin1Char('s'); }},
    {"a text in two lengths, not elided",
     [](Scene &s) {
         s.text = u"A very long variant of it"_s + QChar(0x9C) + QLatin1Char('s');
         s.trimText = false;
     }},
    {"text from right to left",
     [](Scene &s) { s.text = QString::fromUtf8("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D a1"); }},
    {"text from right to left, at the left",
     [](Scene &s) {
         s.text = QString::fromUtf8("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D a1  ");
         s.flags = Qt::AlignLeft;
     }},
    {"a combining accent",
     [](Scene &s) { s.text = QString::fromUtf8("Cafe\xCC\x81 \xE2\x96\xBC"); }},
    {"trailing blanks", [](Scene &s) { s.text = u"blanks    "_s; }},
    {"leading blanks", [](Scene &s) { s.text = u"    blanks"_s; }},
    {"larger", [](Scene &s) { s.font.setPointSize(14); }},
    {"in pixels", [](Scene &s) { s.font.setPixelSize(13); }},
    {"bold", [](Scene &s) { s.font.setBold(true); }},
    {"another family", [](Scene &s) { s.font.setFamily(u"DejaVu Sans Mono"_s); }},
    {"underlined", [](Scene &s) { s.font.setUnderline(true); }},
    {"struck out", [](Scene &s) { s.font.setStrikeOut(true); }},
    {"overlined", [](Scene &s) { s.font.setOverline(true); }},
    {"spaced letters", [](Scene &s) { s.font.setLetterSpacing(QFont::AbsoluteSpacing, 2); }},
    {"the painter's own font", [](Scene &s) { s.font = QFont(); }},
    {"another font of the painter",
     [](Scene &s) {
         s.font = QFont();
         s.painterFont.setPointSize(9);
     }},
    {"a font that the painter completes",
     [](Scene &s) {
         s.font = QFont();
         s.font.setBold(true);
         s.painterFont.setItalic(true);
     }},
    {"a finer device", [](Scene &s) { s.dotsPerInch = 150; }},
    {"wider", [](Scene &s) { s.rect.setWidth(180); }},
    {"wider by a little", [](Scene &s) { s.rect.setWidth(120.4); }},
    {"too narrow", [](Scene &s) { s.rect.setWidth(35); }},
    {"too low", [](Scene &s) { s.rect.setHeight(9); }},
    {"too low, not clipped",
     [](Scene &s) {
         s.rect.setHeight(9);
         s.flags |= Qt::TextDontClip;
     }},
    {"higher", [](Scene &s) { s.rect.setHeight(61); }},
    {"without size", [](Scene &s) { s.rect = QRectF(5, 5, 0, 0); }},
    {"elsewhere", [](Scene &s) { s.rect.moveTopLeft(QPointF(30.25, 40.75)); }},
    {"other margins", [](Scene &s) { s.margins = QMarginsF(20, 9, 3, 0); }},
    {"margins that leave nothing", [](Scene &s) { s.margins = QMarginsF(90, 30, 90, 30); }},
    {"at the left", [](Scene &s) { s.flags = Qt::AlignLeft; }},
    {"at the right", [](Scene &s) { s.flags = Qt::AlignRight | Qt::TextWordWrap; }},
    {"at the top", [](Scene &s) { s.flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap; }},
    {"at the bottom", [](Scene &s) { s.flags = Qt::AlignHCenter | Qt::AlignBottom; }},
    {"justified", [](Scene &s) { s.flags = Qt::AlignJustify | Qt::TextWordWrap; }},
    {"on one line", [](Scene &s) { s.flags = Qt::AlignCenter | Qt::TextSingleLine; }},
    {"wrapped anywhere",
     [](Scene &s) {
         s.flags = Qt::AlignCenter | Qt::TextWrapAnywhere;
         s.trimText = false;
     }},
    {"with a mnemonic", [](Scene &s) { s.flags |= Qt::TextShowMnemonic; }},
    {"with a hidden mnemonic", [](Scene &s) { s.flags |= Qt::TextHideMnemonic; }},
    {"no flags", [](Scene &s) { s.flags = 0; }},
    {"another colour", [](Scene &s) { s.brush = QColor(200, 30, 30, 128); }},
    {"painter from right to left", [](Scene &s) { s.direction = Qt::RightToLeft; }},
    {"painter from right to left, at the left",
     [](Scene &s) {
         s.direction = Qt::RightToLeft;
         s.flags = Qt::AlignLeft;
     }},
    {"painter from left to right", [](Scene &s) { s.direction = Qt::LeftToRight; }},
    {"scaled", [](Scene &s) { s.scale = 1.5; }},
    {"turned", [](Scene &s) { s.angle = 30; }},
};

} // namespace

class tst_KELCaptionCache : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void changeIsSeenAtOnce_data()
    {
        QTest::addColumn<int>("begin");
        QTest::addColumn<int>("index");
        for (int begin = 0; begin < int(std::size(beginnings)); ++begin) {
            for (int i = 0; i < int(std::size(changes)); ++i)
                QTest::addRow("%s, %s", beginnings[begin], changes[i].name) << begin << i;
        }
    }

    void changeIsSeenAtOnce()
    {
        QFETCH(int, begin);
        QFETCH(int, index);
        const Scene before = beginning(begin);
        Scene after = before;
        changes[index].change(after);
        KELLabel label;
        // The first time, when a layout is made, and from what is kept; then back again.
        for (const Scene &scene :
             {before, before, before, after, after, after, before, before, before}) {
            apply(scene, &label);
            QCOMPARE(KelImage::difference(painted(scene, &label), drawnByHand(scene)), QString());
        }
    }

    void fontIsChangedInPlace()
    {
        Scene scene;
        scene.text = u"A caption that is cut off"_s;
        KELLabel label;
        apply(scene, &label);
        for (const int pointSize : {11, 11, 11, 8, 8, 8, 13}) {
            label.style()->font.setPointSize(pointSize);
            scene.font.setPointSize(pointSize);
            QCOMPARE(KelImage::difference(painted(scene, &label), drawnByHand(scene)), QString());
        }
    }

    void removedFontIsSeenAtOnce_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("fits") << QString(QChar(0xE001));
        QTest::newRow("is cut off") << QString(40, QChar(0xE001));
    }

    void removedFontIsSeenAtOnce()
    {
        QFETCH(QString, text);
        const int id = QFontDatabase::addApplicationFont(besideProgram(u"icons.ttf"_s));
        QVERIFY(id >= 0);
        Scene scene;
        scene.text = text;
        scene.font = QFont(QFontDatabase::applicationFontFamilies(id).constFirst(), 16);
        KELLabel label;
        apply(scene, &label);
        const auto isAsByHand = [&] {
            for (int i = 0; i < 3; ++i) {
                const QString difference = KelImage::difference(painted(scene, &label),
                                                                drawnByHand(scene));
                if (!difference.isEmpty())
                    return difference;
            }
            return QString();
        };
        QCOMPARE(isAsByHand(), QString());
        const QImage before = drawnByHand(scene);
        QVERIFY(QFontDatabase::removeApplicationFont(id));
        QVERIFY(drawnByHand(scene) != before);
        QCOMPARE(isAsByHand(), QString());
    }

    void substitutionIsSeenAtOnce_data()
    {
        QTest::addColumn<bool>("isNew");
        QTest::newRow("the record as it is") << false;
        QTest::newRow("a new font in the record") << true;
    }

    void substitutionIsSeenAtOnce()
    {
        QFETCH(bool, isNew);
        const QString family = u"No such family %1"_s.arg(isNew);
        Scene scene;
        scene.text = u"Substitutes iiii"_s;
        scene.font = QFont(family, 12);
        KELLabel label;
        apply(scene, &label);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(KelImage::difference(painted(scene, &label), drawnByHand(scene)), QString());
        const QImage before = drawnByHand(scene);
        QFont::insertSubstitution(family, u"DejaVu Sans Mono"_s);
        if (isNew) {
            scene.font = QFont(family, 12);
            apply(scene, &label);
        }
        for (int i = 0; i < 3; ++i)
            QCOMPARE(KelImage::difference(painted(scene, &label), drawnByHand(scene)), QString());
        QVERIFY(drawnByHand(scene) != before);
        QFont::removeSubstitutions(family);
    }

    void captionStripIsSeenAtOnce()
    {
        const auto fill = [](KELPushButton *button, const QString &text, qreal width) {
            QPixmap pixmap(20, 20);
            pixmap.fill(Qt::green);
            button->style()->pixmap = pixmap;
            button->style()->text = text;
            button->setboundRect(0, 0, width, 70);
        };
        KELPushButton button;
        for (const QString &text : {u"One"_s, u"A long caption below"_s}) {
            for (const qreal width : {100.0, 60.0, 140.0}) {
                for (int i = 0; i < 3; ++i) {
                    KELPushButton fresh;
                    fill(&fresh, text, width);
                    fill(&button, text, width);
                    QCOMPARE(KelImage::difference(KelImage::paint(&button, QSize(160, 90)),
                                                  KelImage::paint(&fresh, QSize(160, 90))),
                             QString());
                }
            }
        }
    }

    void painterWithoutDeviceDrawsNothing()
    {
        KELLabel label;
        apply(Scene(), &label);
        QPainter painter;
        for (int i = 0; i < 3; ++i)
            label.paint(&painter, nullptr, nullptr);
        const QStringList warnings = takeWarnings();
        QVERIFY(!warnings.isEmpty());
        for (const QString &warning : warnings)
            QVERIFY2(warning.startsWith(QLatin1String("QPainter::")), qPrintable(warning));
    }

    void controlIsDeletedByThePaintDevice()
    {
        const Scene scene;
        for (int paints = 0; paints < 4; ++paints) {
            auto *const label = new KELLabel;
            apply(scene, label);
            for (int i = 0; i < paints; ++i)
                painted(scene, label);
            DeletingDevice device(label);
            QPainter painter(&device);
            label->paint(&painter, nullptr, nullptr);
            QVERIFY(device.isDeleted());
        }
    }

    void painterIsLeftAsByTheFirstPaint()
    {
        Scene scene;
        scene.rect.setHeight(9); // is clipped
        KELLabel label;
        apply(scene, &label);
        for (int i = 0; i < 3; ++i) {
            picture(scene, [&](QPainter *painter) {
                label.paint(painter, nullptr, nullptr);
                QVERIFY(!painter->hasClipping());
                QCOMPARE(painter->pen().color(), QColor(20, 30, 160));
                QCOMPARE(painter->font().pointSize(), 11);
            });
        }
    }
};

KEL_TEST_MAIN(tst_KELCaptionCache)

#include "tst_kelcaptioncache.moc"
