// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"
#include "handdrawing.h"
#include "looks.h"
#include "record.h"
#include "stage.h"

#include <kelprocessbar.h>

#include <QtCore/QLocale>
#include <QtGui/QPainterPath>

#include <cmath>

namespace {

using KelImage::paper;

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr int lowestInt = std::numeric_limits<int>::min();
constexpr int highestInt = std::numeric_limits<int>::max();
constexpr qreal scales[] = {0.5, 1, 1.5, 2};
const QSize canvas(340, 140);
const QColor trackColour(69, 69, 69);
const QColor fillColour(67, 110, 238);

const std::vector<Named> values = {{"0", 0},
                                   {"1", 1},
                                   {"33", 33},
                                   {"50", 50},
                                   {"99", 99},
                                   {"100", 100},
                                   {"150", 150},
                                   {"-5", -5},
                                   {"-100", -100},
                                   {"lowest", lowestInt},
                                   {"highest", highestInt}};

// What a bar with this style and value in this rectangle looks like.
void drawByHand(QPainter *painter, const KELRoundRectControlStyle &style, const QRectF &rect,
                int value)
{
    const QRectF bar(rect.x(), rect.y() + rect.height() / 2 - 15, rect.width(), 30);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::TextAntialiasing);
    QPainterPath pill;
    pill.addRoundedRect(bar, style.xRadius, style.yRadius);
    painter->setClipPath(pill);
    painter->setPen(Qt::NoPen);
    painter->setBrush(style.backgroundBrush);
    painter->drawRect(bar);
    // Far outside of every picture, and yet a number of pixels that the painter can count with.
    const double share = std::clamp(double(value) * rect.width() / 100, -1e9, 1e9);
    painter->setBrush(style.borderBrush);
    painter->drawRect(QRectF(bar.x(), bar.y(), std::trunc(share), 30));
    painter->setPen(HandDrawing::squarePen(style.foregroundBrush, 1));
    painter->setBrush(Qt::NoBrush);
    painter->drawText(bar, Qt::AlignHCenter | Qt::AlignVCenter,
                      QString::number(value) + QLatin1Char('%'));
}

QString differenceToHand(KELProcessBar *bar, const QRectF &rect)
{
    const auto byHand = [&](QPainter *painter) {
        drawByHand(painter, *bar->style(), rect, bar->value());
    };
    QString difference;
    // Enlarged, a share of 1e9 px is more than the painter can count with.
    const bool isHuge = bar->value() == lowestInt || bar->value() == highestInt;
    for (const qreal scale : scales) {
        if (!isHuge || scale <= 1)
            difference += KelImage::differenceFrom(byHand, bar, canvas, scale);
    }
    return difference;
}

Look brushes(const QBrush &track, const QBrush &fill, const QBrush &text)
{
    return [=](KELRoundRectControlStyle &style) {
        style.backgroundBrush = track;
        style.borderBrush = fill;
        style.foregroundBrush = text;
    };
}

Look radii(qreal x, qreal y)
{
    return [=](KELRoundRectControlStyle &style) {
        style.xRadius = x;
        style.yRadius = y;
    };
}

const std::vector<NamedLook> &barLooks()
{
    const QBrush none(Qt::NoBrush);
    const QBrush colour(Qt::darkCyan);
    static const std::vector<NamedLook> all = {
        {"no track", brushes(none, colour, colour)},
        {"no fill", brushes(colour, none, QBrush(Qt::white))},
        {"no text", brushes(colour, QBrush(Qt::red), none)},
        {"nothing", brushes(none, none, none)},
        {"translucent",
         brushes(QColor(0, 0, 0, 90), QColor(255, 0, 0, 120), QColor(0, 200, 0, 150))},
        {"gradients and patterns",
         brushes(QBrush(Qt::darkGreen, Qt::DiagCrossPattern), HandDrawing::gradient(),
                 QBrush(Qt::black, Qt::Dense3Pattern))},
        {"square", radii(0, 0)},
        {"different radii", radii(40, 6)},
        {"one radius", radii(15, 0)},
        {"negative radii", radii(-4, -4)},
        {"radii larger than the bar", radii(900, 700)},
        {"radii in per cent would differ", radii(30, 10)},
    };
    return all;
}

// Only two square colours are left of the bar.
class BareBar : public KELProcessBar
{
public:
    explicit BareBar(const QRectF &rect)
    {
        style()->xRadius = 0;
        style()->yRadius = 0;
        style()->foregroundBrush = QBrush(Qt::NoBrush);
        setboundRect(rect);
    }
};

// Writes the signals down, each with the value at that time.
class BarStage : public Stage<KELProcessBar>
{
public:
    explicit BarStage(int value = 0)
    {
        get()->setValue(value);
        for (const QString &signal : {u"valueChanged"_s, u"completed"_s}) {
            log.on(signal,
                   [this, signal] { m_lines += u"%1 %2"_s.arg(signal).arg(get()->value()); });
        }
    }

    QString take() { return std::exchange(m_lines, QStringList()).join(QLatin1String(", ")); }

private:
    QStringList m_lines;
};

} // namespace

class tst_KELProcessBar : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasTheDefaultsOfABar()
    {
        KELRoundRectControlStyle expected = Record::defaults();
        setLook(&expected);
        const KELProcessBar bar;
        QCOMPARE(Record::difference(*bar.style(), expected), QString());
        QCOMPARE(bar.boundingRect(), QRectF(0, 0, 100, 30));
    }

    void initStyleChangesThePresentRecord()
    {
        Restyled<KELProcessBar> bar;
        bar.setValue(40);
        KELRoundRectControlStyle *const style = bar.style();
        Record::fill(style);
        style->contextMenu = newMenu(); // dies with the bar
        KELRoundRectControlStyle expected = *style;
        setLook(&expected);
        bar.makeStyleAgain();
        QCOMPARE(bar.style(), style);
        QCOMPARE(Record::difference(*style, expected), QString());
        QCOMPARE(bar.value(), 40);
    }

    void inputSettingsAreThoseOfTheBase()
    {
        ControlTest::hasInputSettingsOfTheBase<KELProcessBar>();
    }

    void declaresTwoSignalsASlotAndAProperty()
    {
        const QMetaObject &meta = KELProcessBar::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELProcessBar"));
        QCOMPARE(meta.superClass(), &KELRoundRectControl::staticMetaObject);
        QCOMPARE(KELProcessBar().metaObject(), &meta);
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);
        QVERIFY(meta.indexOfSignal("completed()") >= meta.methodOffset());
        QVERIFY(meta.indexOfSignal("valueChanged()") >= meta.methodOffset());
        const QMetaMethod slot = meta.method(meta.indexOfSlot("setValue(int)"));
        QCOMPARE(slot.methodType(), QMetaMethod::Slot);
        QCOMPARE(slot.access(), QMetaMethod::Public);
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 1);
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    }

    void startsAtZero()
    {
        BarStage stage;
        QCOMPARE(stage->value(), 0);
        stage->setValue(0);
        QCOMPARE(stage.take(), QString());
    }

    void signalsOfAChange_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<QString>("expected");
        QTest::newRow("start") << 0 << 1 << u"valueChanged 1"_s;
        QTest::newRow("completion") << 99 << 100 << u"valueChanged 100, completed 100"_s;
        QTest::newRow("completion at once") << 0 << 100 << u"valueChanged 100, completed 100"_s;
        QTest::newRow("complete again") << 100 << 100 << QString();
        QTest::newRow("same value") << 42 << 42 << QString();
        QTest::newRow("same negative value") << -5 << -5 << QString();
        QTest::newRow("beyond the end") << 0 << 150 << u"valueChanged 150"_s;
        QTest::newRow("just beyond the end") << 100 << 101 << u"valueChanged 101"_s;
        QTest::newRow("just before the end") << 100 << 99 << u"valueChanged 99"_s;
        QTest::newRow("back to the end") << 150 << 100 << u"valueChanged 100, completed 100"_s;
        QTest::newRow("back to the start") << 100 << 0 << u"valueChanged 0"_s;
        QTest::newRow("below the start") << 0 << -5 << u"valueChanged -5"_s;
        QTest::newRow("hundred below the start") << 0 << -100 << u"valueChanged -100"_s;
        QTest::newRow("highest number") << 100 << highestInt << u"valueChanged 2147483647"_s;
        QTest::newRow("lowest number") << 100 << lowestInt << u"valueChanged -2147483648"_s;
    }

    void signalsOfAChange()
    {
        const int to = fetch<int>("to");
        BarStage stage(fetch<int>("from"));
        stage->setValue(to);
        QCOMPARE(stage.take(), fetch<QString>("expected"));
        stage->setValue(to);
        QCOMPARE(stage.take(), QString());
        QCOMPARE(stage->value(), to);
    }

    void propertyIsABool()
    {
        const QMetaObject &meta = KELProcessBar::staticMetaObject;
        const QMetaProperty property = meta.property(meta.propertyOffset());
        QCOMPARE(QByteArray(property.name()), QByteArray("value"));
        QCOMPARE(QByteArray(property.typeName()), QByteArray("bool"));
        QCOMPARE(property.userType(), int(QMetaType::Bool));
        QVERIFY(property.isReadable());
        QVERIFY(property.isWritable());
        QVERIFY(!property.isResettable());
        QVERIFY(!property.isConstant());
        QCOMPARE(property.notifySignal().methodSignature(), QByteArray("valueChanged()"));
    }

    void propertyTellsWhetherTheBarHasStarted_data() { addRows({{"value", values}}); }

    void propertyTellsWhetherTheBarHasStarted()
    {
        const int value = fetch<int>("value");
        KELProcessBar bar;
        QVERIFY(QMetaObject::invokeMethod(&bar, "setValue", Q_ARG(int, value)));
        QCOMPARE(bar.property("value"), QVariant(value != 0));
        QCOMPARE(bar.property("value").userType(), int(QMetaType::Bool));
    }

    void propertySetsZeroOrOne_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<QVariant>("written");
        QTest::addColumn<int>("after");
        QTest::newRow("true") << 0 << QVariant(true) << 1;
        QTest::newRow("false") << 50 << QVariant(false) << 0;
        QTest::newRow("true to a started bar") << 50 << QVariant(true) << 1;
        QTest::newRow("true to a complete bar") << 100 << QVariant(true) << 1;
        QTest::newRow("false to a new bar") << 0 << QVariant(false) << 0;
        QTest::newRow("a number") << 0 << QVariant(64) << 1;
        QTest::newRow("hundred") << 0 << QVariant(100) << 1;
        QTest::newRow("zero") << 64 << QVariant(0) << 0;
    }

    void propertySetsZeroOrOne()
    {
        const int before = fetch<int>("before");
        const int after = fetch<int>("after");
        BarStage stage(before);
        QVERIFY(stage->setProperty("value", fetch<QVariant>("written")));
        QCOMPARE(stage->value(), after);
        QCOMPARE(stage.take(), before == after ? QString() : u"valueChanged %1"_s.arg(after));
    }

    void slotThatSetsAnotherValue_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("inSlot");
        QTest::addColumn<QString>("expected");
        QTest::newRow("takes completion back")
            << 100 << 50 << u"valueChanged 100, valueChanged 50"_s;
        QTest::newRow("completes")
            << 50 << 100 << u"valueChanged 50, valueChanged 100, completed 100"_s;
    }

    void slotThatSetsAnotherValue()
    {
        const int value = fetch<int>("value");
        BarStage stage;
        stage.log.on(u"valueChanged"_s, [&] {
            if (stage->value() == value)
                stage->setValue(fetch<int>("inSlot"));
        });
        stage->setValue(value);
        QCOMPARE(stage.take(), fetch<QString>("expected"));
        QCOMPARE(stage->value(), fetch<int>("inSlot"));
    }

    void slotThatStartsAgain()
    {
        BarStage stage;
        stage.log.on(u"completed"_s, [&] { stage->setValue(0); });
        for (int round = 0; round < 3; ++round) {
            stage->setValue(100);
            QCOMPARE(stage.take(), u"valueChanged 100, completed 100, valueChanged 0"_s);
            QCOMPARE(stage->value(), 0);
        }
    }

    void slotThatSetsTheSameValue()
    {
        BarStage stage;
        stage.log.on(u"valueChanged"_s, [&] { stage->setValue(stage->value()); });
        stage.log.on(u"completed"_s, [&] { stage->setValue(100); });
        stage->setValue(100);
        QCOMPARE(stage.take(), u"valueChanged 100, completed 100"_s);
    }

    void slotThatDeletesTheBar_data()
    {
        QTest::addColumn<QString>("signal");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("way");
        for (const Named &way : deletionWays) {
            QTest::addRow("half way, %s", way.name) << u"valueChanged"_s << 50 << way.value;
            QTest::addRow("before completion, %s", way.name)
                << u"valueChanged"_s << 100 << way.value;
            QTest::addRow("on completion, %s", way.name) << u"completed"_s << 100 << way.value;
        }
    }

    void slotThatDeletesTheBar()
    {
        const auto signal = fetch<QString>("signal");
        const int value = fetch<int>("value");
        const auto way = fetch<Way>("way");
        Stage<KELProcessBar> stage;
        stage.view.showOnce();
        stage.log.on(signal, [&] { stage.destroy(way); });
        stage->setValue(value);
        QCOMPARE(stage.control.isNull(), way != Way::DeleteLater);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.control);
        const bool isCompleted = value == 100
            && (signal == QLatin1String("completed") || way == Way::DeleteLater);
        QCOMPARE(stage.log.take(), isCompleted ? u"valueChanged completed"_s : u"valueChanged"_s);
        QVERIFY(stage.nextControlIsClicked());
    }

    void isTheHandDrawnPicture_data() { addRows({{"value", values}}); }

    void isTheHandDrawnPicture()
    {
        for (const QRectF &rect :
             {QRectF(10, 10, 300, 30), QRectF(10, 10, 250, 30), QRectF(0, 0, 100, 30),
              QRectF(5.3, 7.7, 140.4, 40.6), QRectF(10, 5, 100, 119), QRectF(20, 50, 100, 10),
              QRectF(20, 50, 100, 9), QRectF(20, 50, 100, 0), QRectF(20, 20, 9, 30),
              QRectF(20, 20, 0.5, 30), QRectF(20, 20, 0, 30), QRectF(320, 20, -300, 40),
              QRectF(20, 80, 100, -40), QRectF(-60, -10, 200, 30), QRectF(-5000, 10, 10000, 30)}) {
            KELProcessBar bar;
            bar.setboundRect(rect);
            bar.setValue(fetch<int>("value"));
            QCOMPARE(differenceToHand(&bar, rect), QString());
        }
    }

    void isTheHandDrawnPictureInOtherLooks_data() { addRows({{"look", namesOf(barLooks())}}); }

    void isTheHandDrawnPictureInOtherLooks()
    {
        const QRectF rect(10, 10.5, 250, 50);
        KELProcessBar bar;
        bar.setboundRect(rect);
        barLooks().at(fetch<size_t>("look")).apply(*bar.style());
        for (const int value : {0, 55, 100, -20}) {
            bar.setValue(value);
            QCOMPARE(differenceToHand(&bar, rect), QString());
        }
    }

    void fillIsCutToWholePixels_data()
    {
        QTest::addColumn<qreal>("width");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("filled");
        QTest::newRow("33 of 300 px") << 300.0 << 33 << 99;
        QTest::newRow("33 of 250 px: 82.5") << 250.0 << 33 << 82;
        QTest::newRow("33 of 250.5 px: 82.665") << 250.5 << 33 << 82;
        QTest::newRow("99 of 250 px: 247.5") << 250.0 << 99 << 247;
        QTest::newRow("1 of 250 px: 2.5") << 250.0 << 1 << 2;
        QTest::newRow("1 of 199 px: 1.99") << 199.0 << 1 << 1;
        QTest::newRow("50 of 101 px: 50.5") << 101.0 << 50 << 50;
        // As a fraction of 1 these would be a little less.
        QTest::newRow("29 of 100 px") << 100.0 << 29 << 29;
        QTest::newRow("57 of 100 px") << 100.0 << 57 << 57;
        QTest::newRow("58 of 100 px") << 100.0 << 58 << 58;
        // In single precision this would be 3.
        QTest::newRow("1 of almost 300 px") << 299.9999999 << 1 << 2;
    }

    void fillIsCutToWholePixels()
    {
        const auto width = fetch<qreal>("width");
        BareBar bar(QRectF(10, 10, width, 30));
        bar.setValue(fetch<int>("value"));
        const QImage expected = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            painter->fillRect(10, 10, int(width), 30, trackColour);
            painter->fillRect(10, 10, fetch<int>("filled"), 30, fillColour);
        });
        // The bar's own end may fall between two pixels.
        const QRect whole(0, 0, 10 + int(width), canvas.height());
        QCOMPARE(
            KelImage::difference(KelImage::paint(&bar, canvas).copy(whole), expected.copy(whole)),
            QString());
    }

    // Whole pixels are counted up to 2^30 - 1, lest a position and a width overflow together.
    void fillOfAnEndlessBar()
    {
        BareBar bar(QRectF(0, 0, 2e9, 30));
        bar.setValue(100);
        const QImage image = KelImage::draw(QSize(200, 30), 1, [&](QPainter *painter) {
            painter->scale(1e-7, 1);
            bar.paint(painter, nullptr, nullptr);
        });
        QCOMPARE(KelImage::areaOf(image, fillColour), QRect(0, 0, 107, 30));
    }

    void fillOfLessThanAPixelIsNone_data()
    {
        addRows({{"value", {{"half a pixel", 1}, {"half a pixel to the left", -1}}}});
    }

    // At half a pixel even a fill beside the bar would show in its first column.
    void fillOfLessThanAPixelIsNone()
    {
        const int value = fetch<int>("value");
        BareBar bar(QRectF(10.5, 10, 50, 30));
        const QImage without = KelImage::paint(&bar, canvas);
        bar.setValue(value);
        QCOMPARE(KelImage::difference(KelImage::paint(&bar, canvas), without), QString());
        bar.setValue(2 * value);
        QVERIFY(KelImage::paint(&bar, canvas) != without);
    }

    void nothingIsFilledBelowOneAndAllFromHundredOn_data()
    {
        addRows({{"value",
                  {{"0", 0},
                   {"-1", -1},
                   {"-5", -5},
                   {"-100", -100},
                   {"-1000", -1000},
                   {"lowest", lowestInt},
                   {"100", 100},
                   {"101", 101},
                   {"150", 150},
                   {"1000000", 1000000},
                   {"next to the highest", highestInt - 1},
                   {"highest", highestInt}}}});
    }

    void nothingIsFilledBelowOneAndAllFromHundredOn()
    {
        const int value = fetch<int>("value");
        const QRect rect(10, 10, 300, 30);
        BareBar bar(rect);
        bar.setValue(value);
        const auto byHand = [&](QPainter *painter) {
            painter->fillRect(rect, value < 1 ? trackColour : fillColour);
        };
        for (const int scale : {1, 2})
            QCOMPARE(KelImage::differenceFrom(byHand, &bar, canvas, scale), QString());
    }

    void textDoesNotDependOnTheLocale()
    {
        KELProcessBar bar;
        bar.setboundRect(10, 10, 300, 30);
        bar.setValue(1234567);
        const QImage before = KelImage::paint(&bar, canvas);
        const QLocale old;
        for (const QLocale &locale :
             {QLocale(QLocale::German), QLocale(QLocale::Arabic, QLocale::Egypt)}) {
            QVERIFY(locale.toString(1234567) != u"1234567"_s);
            QLocale::setDefault(locale);
            const QString difference = KelImage::difference(KelImage::paint(&bar, canvas), before);
            QLocale::setDefault(old);
            QCOMPARE(difference, QString());
        }
    }

    void textIsInThePaintersFont()
    {
        KELProcessBar bar;
        const QRectF rect(10, 10, 300, 30);
        bar.setboundRect(rect);
        bar.setValue(42);
        bar.style()->font.setPixelSize(8);
        QFont font;
        font.setPixelSize(26);
        font.setBold(true);
        const QImage painted = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            painter->setFont(font);
            bar.paint(painter, nullptr);
        });
        const QImage byHand = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            painter->setFont(font);
            drawByHand(painter, *bar.style(), rect, 42);
        });
        QCOMPARE(KelImage::difference(painted, byHand), QString());
        QVERIFY(painted != KelImage::paint(&bar, canvas));
    }

    void otherFieldsAndStatesDoNotShow()
    {
        Restyled<KELProcessBar> bar;
        bar.setboundRect(10, 10, 300, 60);
        bar.setValue(42);
        const QImage before = KelImage::paint(&bar, canvas);
        Record::fill(bar.style());
        bar.makeStyleAgain();
        bar.setboundRect(10, 10, 300, 60);
        bar.setEnabled(false);
        QCOMPARE(KelImage::difference(KelImage::paint(&bar, canvas), before), QString());
    }

    void barOfAChildIsAtItsBoundingRect()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 300, 90);
        auto *bar = new KELProcessBar(&parent);
        bar->setboundRect(5, 5, 200, 50);
        bar->setValue(70);
        QCOMPARE(bar->boundingRect(), QRectF(15, 25, 200, 50));
        QCOMPARE(differenceToHand(bar, QRectF(15, 25, 200, 50)), QString());
        QCOMPARE(KelImage::inkOf(KelImage::paint(bar, canvas)), QRect(15, 35, 200, 30));
    }

    void barIsInTheMiddleOfTheControl_data()
    {
        addRows({{"height",
                  {{"no height", 0},
                   {"2 px", 2},
                   {"10 px", 10},
                   {"28 px", 28},
                   {"32 px", 32},
                   {"60 px", 60},
                   {"120 px", 120}}}});
    }

    // Also where the control is lower than the bar.
    void barIsInTheMiddleOfTheControl()
    {
        const int height = fetch<int>("height");
        KELProcessBar bar;
        bar.setValue(50);
        bar.setboundRect(20, 16, 200, height);
        QCOMPARE(bar.boundingRect(), QRectF(20, 16, 200, height));
        QCOMPARE(KelImage::inkOf(KelImage::paint(&bar, canvas)),
                 QRect(20, 16 + height / 2 - 15, 200, 30));
    }

    void controlOfThirtyPaintsNothingOutside_data() { addRows({{"value", values}}); }

    void controlOfThirtyPaintsNothingOutside()
    {
        for (const QRectF &rect : {QRectF(20, 20, 200, 30), QRectF(20, 20, 8, 30)}) {
            KELProcessBar bar;
            bar.setboundRect(rect);
            bar.setValue(fetch<int>("value"));
            for (const qreal scale : scales)
                QCOMPARE(KelImage::pixelsOutside(&bar, scale), QString());
        }
    }

    void radiusThatIsNotANumberIsNone_data()
    {
        QTest::addColumn<QPointF>("radii");
        QTest::newRow("along x") << QPointF(notANumber, 15);
        QTest::newRow("along y") << QPointF(15, notANumber);
        QTest::newRow("both") << QPointF(notANumber, notANumber);
    }

    void radiusThatIsNotANumberIsNone()
    {
        const auto paintWith = [](const QPointF &radii) {
            KELProcessBar bar;
            bar.setboundRect(10, 10, 300, 30);
            bar.setValue(42);
            bar.style()->xRadius = radii.x();
            bar.style()->yRadius = radii.y();
            return KelImage::paint(&bar, canvas);
        };
        QCOMPARE(KelImage::difference(paintWith(fetch<QPointF>("radii")), paintWith(QPointF())),
                 QString());
    }

    void clipStaysOnThePainter()
    {
        KELProcessBar bar;
        const QRectF rect(10, 10, 300, 60);
        bar.setboundRect(rect);
        bar.setValue(42);
        const QImage painted = KelImage::draw(canvas, 1, [&bar](QPainter *painter) {
            bar.paint(painter, nullptr);
            QCOMPARE(painter->hasClipping(), true);
            painter->fillRect(QRectF(QPointF(), canvas), Qt::magenta);
        });
        const QImage byHand = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            drawByHand(painter, *bar.style(), rect, 42);
            painter->fillRect(QRectF(QPointF(), canvas), Qt::magenta);
        });
        QCOMPARE(KelImage::difference(painted, byHand), QString());
        QCOMPARE(KelImage::inkOf(painted), QRect(10, 25, 300, 30));
        QCOMPARE(painted.pixelColor(160, 40), QColor(Qt::magenta));
    }

    void clipReplacesAnEarlierOne()
    {
        KELProcessBar bar;
        bar.setboundRect(10, 10, 300, 30);
        bar.setValue(42);
        const QImage withoutClip = KelImage::paint(&bar, canvas);
        for (const bool isOn : {true, false}) {
            const QImage painted = KelImage::draw(canvas, 1, [&](QPainter *painter) {
                painter->setClipRect(QRectF(100, 15, 60, 10));
                painter->setClipping(isOn);
                bar.paint(painter, nullptr);
            });
            QCOMPARE(KelImage::difference(painted, withoutClip), QString());
        }
    }

    void paintLeavesThePainterLikeThis()
    {
        KELProcessBar bar;
        bar.setValue(42);
        bar.style()->foregroundBrush = QBrush(Qt::darkGreen);
        QImage image = KelImage::blank(canvas);
        QPainter painter(&image);
        painter.setRenderHints(painter.renderHints(), false);
        painter.setRenderHint(QPainter::LosslessImageRendering);
        painter.setPen(QPen(Qt::red, 9, Qt::DotLine));
        painter.setBrush(QBrush(Qt::red));
        painter.translate(3, 4);
        const QFont font = painter.font();
        bar.paint(&painter, nullptr);
        QCOMPARE(painter.renderHints(),
                 QPainter::Antialiasing | QPainter::TextAntialiasing
                     | QPainter::LosslessImageRendering);
        QCOMPARE(painter.pen(), HandDrawing::squarePen(Qt::darkGreen, 1));
        QCOMPARE(painter.brush(), QBrush(Qt::NoBrush));
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.worldTransform(), QTransform::fromTranslate(3, 4));
        QCOMPARE(painter.clipBoundingRect(), QRectF(0, 0, 100, 30));
    }

    void changeIsOnTheScreen()
    {
        const QRectF rect(10, 10, 250, 30);
        Stage<KELProcessBar> stage(rect);
        stage.other->hide();
        stage.view.showOnce();
        for (const int value : {0, 1, 42, 100, 150, -5}) {
            stage->setValue(value);
            // The view keeps a picture of the bar without what is behind it.
            QImage kept(stage.view.size(), QImage::Format_ARGB32_Premultiplied);
            kept.fill(Qt::transparent);
            QPainter painter(&kept);
            drawByHand(&painter, *stage->style(), rect, value);
            painter.end();
            QImage byHand = stage.view.grab().toImage();
            byHand.fill(Qt::white);
            QPainter(&byHand).drawImage(0, 0, kept);
            QTRY_COMPARE(KelImage::difference(stage.view.grab().toImage(), byHand), QString());
        }
    }

    void sameValueDoesNotRepaint()
    {
        Stage<Counting<KELProcessBar>> stage;
        stage->setValue(42);
        stage.view.showOnce();
        QTRY_VERIFY(stage->paints > 0);
        letEventsRun();
        const QSignalSpy sceneChanges(&stage.view.ownScene, &QGraphicsScene::changed);
        stage->paints = 0;
        stage->setValue(42);
        letEventsRun();
        QCOMPARE(stage->paints, 0);
        QCOMPARE(sceneChanges.count(), 0);
        // The whole bar is repainted, not the piece that the fill grew by.
        stage->setValue(43);
        QTRY_VERIFY(stage->paints > 0);
        QTRY_VERIFY(sceneChanges.count() > 0);
        const auto regions = sceneChanges.first().first().value<QList<QRectF>>();
        QCOMPARE(regions.size(), 1);
        QVERIFY(regions.first().contains(stage->boundingRect()));
    }

private:
    static void setLook(KELRoundRectControlStyle *style)
    {
        style->boundRect = QRectF(0, 0, 100, 30);
        style->backgroundBrush = trackColour;
        style->borderBrush = fillColour;
        style->foregroundBrush = QColor(Qt::white);
        style->xRadius = 15;
        style->yRadius = 15;
    }
};

KEL_TEST_MAIN(tst_KELProcessBar)
#include "tst_kelprocessbar.moc"
