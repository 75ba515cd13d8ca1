// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"

#include <kelprocessbar.h>

#include <QtCore/QLocale>
#include <QtCore/QPointer>
#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QMenu>

#include <cmath>
#include <limits>

namespace {

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();
constexpr int lowestInt = std::numeric_limits<int>::min();
constexpr int highestInt = std::numeric_limits<int>::max();
constexpr qreal scales[] = {0.5, 1, 1.5, 2};
constexpr int values[] = {0, 1, 33, 50, 99, 100, 150, -5, -100, lowestInt, highestInt};
const QSize canvas(340, 140);
const QColor paper(200, 220, 240); // of the pictures
const QColor trackColour(69, 69, 69);
const QColor fillColour(67, 110, 238);

QPen textPen(const QBrush &brush)
{
    return QPen(brush, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
}

QRectF barOf(const QRectF &rect)
{
    return QRectF(rect.x(), rect.y() + rect.height() / 2 - 15, rect.width(), 30);
}

QPainterPath pillOf(const KELRoundRectControlStyle &style, const QRectF &rect)
{
    QPainterPath pill;
    pill.addRoundedRect(barOf(rect), style.xRadius, style.yRadius);
    return pill;
}

// What a bar with this style and value in this rectangle looks like.
void drawByHand(QPainter *painter, const KELRoundRectControlStyle &style, const QRectF &rect,
                int value)
{
    const QRectF bar = barOf(rect);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::TextAntialiasing);
    painter->setClipPath(pillOf(style, rect));
    painter->setPen(Qt::NoPen);
    painter->setBrush(style.backgroundBrush);
    painter->drawRect(bar);
    // As a number of pixels it must fit into an int.
    const double share = std::clamp(double(value) * rect.width() / 100, -1e9, 1e9);
    painter->setBrush(style.borderBrush);
    painter->drawRect(QRectF(bar.x(), bar.y(), std::trunc(share), 30));
    painter->setPen(textPen(style.foregroundBrush));
    painter->setBrush(Qt::NoBrush);
    painter->drawText(bar, Qt::AlignHCenter | Qt::AlignVCenter,
                      QString::number(value) + QLatin1Char('%'));
}

QString differenceToHand(KELProcessBar *bar, const QRectF &rect, qreal scale = 1)
{
    const QImage byHand = KelImage::draw(canvas, scale, [&](QPainter *painter) {
        drawByHand(painter, *bar->style(), rect, bar->value());
    });
    return KelImage::difference(KelImage::paint(bar, canvas, scale), byHand);
}

QImage blank(qreal scale = 1)
{
    return KelImage::draw(canvas, scale, [](QPainter *) {});
}

// The rectangle around all pixels for which this is so.
QRect areaWhere(const QImage &image, const std::function<bool(const QColor &)> &isSo)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isSo(image.pixelColor(x, y)))
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

QRect areaOf(const QImage &image, const QColor &colour)
{
    return areaWhere(image, [&colour](const QColor &pixel) { return pixel == colour; });
}

QRect paintedArea(const QImage &image)
{
    return areaWhere(image, [](const QColor &pixel) { return pixel != paper; });
}

// Only two square colours are left of the bar.
void makeBare(KELProcessBar *bar)
{
    bar->style()->xRadius = 0;
    bar->style()->yRadius = 0;
    bar->style()->foregroundBrush = QBrush(Qt::NoBrush);
}

void addValues()
{
    QTest::addColumn<int>("value");
    for (const int value : values)
        QTest::addRow("%d", value) << value;
}

// The signals of a bar in their order, each with the value at that time.
class Recorder
{
public:
    explicit Recorder(KELProcessBar *bar)
    {
        QObject::connect(bar, &KELProcessBar::valueChanged, &m_context,
                         [this, bar] { m_lines += u"changed %1"_s.arg(bar->value()); });
        QObject::connect(bar, &KELProcessBar::completed, &m_context,
                         [this, bar] { m_lines += u"completed %1"_s.arg(bar->value()); });
    }

    QString take() { return std::exchange(m_lines, QStringList()).join(QLatin1String(", ")); }

private:
    QObject m_context;
    QStringList m_lines;
};

class CountingBar : public KELProcessBar
{
public:
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        ++paints;
        KELProcessBar::paint(painter, option, widget);
    }

    int paints = 0;
};

class OpenBar : public KELProcessBar
{
public:
    void makeStyleAgain() { m_style = initStyle(); }
};

using BarSignal = void (KELProcessBar::*)();

enum class Way { Delete, DeleteLater, ClearScene };

} // namespace

Q_DECLARE_METATYPE(BarSignal)
Q_DECLARE_METATYPE(Way)

class tst_KELProcessBar : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasTheDefaultsOfABar()
    {
        const KELProcessBar bar;
        const KELRoundRectControlStyle &style = *bar.style();
        QCOMPARE(style.boundRect, QRectF(0, 0, 100, 30));
        QCOMPARE(bar.boundingRect(), QRectF(0, 0, 100, 30));
        QCOMPARE(style.backgroundBrush, QBrush(QColor(69, 69, 69, 255)));
        QCOMPARE(style.borderBrush, QBrush(QColor(67, 110, 238, 255)));
        QCOMPARE(style.foregroundBrush, QBrush(Qt::white));
        QCOMPARE(style.xRadius, 15.0);
        QCOMPARE(style.yRadius, 15.0);
        QCOMPARE(style.borderWidth, 0.5F);
        ControlTest::hasTheOtherDefaultsOfTheBase(style);
    }

    void inputSettingsAreThoseOfTheBase()
    {
        ControlTest::hasInputSettingsOfTheBase<KELProcessBar>();
    }

    void hasAParentItem() { ControlTest::hasAParentItem<KELProcessBar>(); }

    void declaresTwoSignalsASlotAndAProperty()
    {
        const QMetaObject &meta = KELProcessBar::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELProcessBar"));
        QCOMPARE(meta.superClass(), &KELRoundRectControl::staticMetaObject);
        QCOMPARE(KELProcessBar().metaObject(), &meta);
        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            QCOMPARE(method.access(), QMetaMethod::Public);
            methods += QString::fromLatin1((method.methodType() == QMetaMethod::Signal ? "signal "
                                                : method.methodType() == QMetaMethod::Slot
                                                ? "slot "
                                                : "other ")
                                           + method.methodSignature());
        }
        methods.sort();
        QCOMPARE(methods,
                 QStringList({u"signal completed()"_s, u"signal valueChanged()"_s,
                              u"slot setValue(int)"_s}));
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 1);
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    }

    void initStyleChangesThePresentRecord()
    {
        OpenBar bar;
        QMenu menu;
        bar.setValue(40);
        KELRoundRectControlStyle *const style = bar.style();
        style->boundRect = QRectF(1, 2, 3, 4);
        style->foregroundBrush = QBrush(Qt::red);
        style->backgroundBrush = QBrush(Qt::green);
        style->borderBrush = QBrush(Qt::blue);
        style->xRadius = 5;
        style->yRadius = 6;
        style->borderWidth = 7;
        style->text = u"Start"_s;
        style->textFlags = Qt::AlignRight;
        style->contextMenu = &menu;
        style->isCheck = true;
        bar.makeStyleAgain();
        QCOMPARE(bar.style(), style);
        QCOMPARE(style->boundRect, QRectF(0, 0, 100, 30));
        QCOMPARE(style->foregroundBrush, QBrush(Qt::white));
        QCOMPARE(style->backgroundBrush, QBrush(trackColour));
        QCOMPARE(style->borderBrush, QBrush(fillColour));
        QCOMPARE(style->xRadius, 15.0);
        QCOMPARE(style->yRadius, 15.0);
        QCOMPARE(style->borderWidth, 7.0F);
        QCOMPARE(style->text, u"Start"_s);
        QCOMPARE(style->textFlags, int(Qt::AlignRight));
        QCOMPARE(style->contextMenu, &menu);
        QVERIFY(style->isCheck);
        QCOMPARE(bar.value(), 40);
        style->contextMenu = nullptr;
    }

    void startsAtZero()
    {
        KELProcessBar bar;
        QCOMPARE(bar.value(), 0);
        Recorder recorder(&bar);
        bar.setValue(0);
        QCOMPARE(recorder.take(), QString());
    }

    void everyNumberIsStored_data() { addValues(); }

    void everyNumberIsStored()
    {
        QFETCH(int, value);
        KELProcessBar bar;
        bar.setValue(value);
        QCOMPARE(bar.value(), value);
        bar.setValue(7);
        bar.setValue(value);
        QCOMPARE(bar.value(), value);
    }

    void signalsOfAChange_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<QString>("expected");
        QTest::newRow("start") << 0 << 1 << u"changed 1"_s;
        QTest::newRow("completion") << 99 << 100 << u"changed 100, completed 100"_s;
        QTest::newRow("completion at once") << 0 << 100 << u"changed 100, completed 100"_s;
        QTest::newRow("complete again") << 100 << 100 << QString();
        QTest::newRow("same value") << 42 << 42 << QString();
        QTest::newRow("same negative value") << -5 << -5 << QString();
        QTest::newRow("beyond the end") << 0 << 150 << u"changed 150"_s;
        QTest::newRow("just beyond the end") << 100 << 101 << u"changed 101"_s;
        QTest::newRow("just before the end") << 100 << 99 << u"changed 99"_s;
        QTest::newRow("back to the end") << 150 << 100 << u"changed 100, completed 100"_s;
        QTest::newRow("back to the start") << 100 << 0 << u"changed 0"_s;
        QTest::newRow("below the start") << 0 << -5 << u"changed -5"_s;
        QTest::newRow("hundred below the start") << 0 << -100 << u"changed -100"_s;
        QTest::newRow("highest number") << 100 << highestInt << u"changed 2147483647"_s;
        QTest::newRow("lowest number") << 100 << lowestInt << u"changed -2147483648"_s;
    }

    void signalsOfAChange()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(QString, expected);
        KELProcessBar bar;
        bar.setValue(from);
        Recorder recorder(&bar);
        bar.setValue(to);
        QCOMPARE(recorder.take(), expected);
        bar.setValue(to);
        QCOMPARE(recorder.take(), QString());
        QCOMPARE(bar.value(), to);
    }

    void completedComesEachTime()
    {
        KELProcessBar bar;
        const QSignalSpy changed(&bar, &KELProcessBar::valueChanged);
        const QSignalSpy completed(&bar, &KELProcessBar::completed);
        for (const int value : {100, 100, 99, 100, 150, 100, 0, 100})
            bar.setValue(value);
        QCOMPARE(completed.count(), 4);
        QCOMPARE(changed.count(), 7);
    }

    void setValueIsASlot()
    {
        KELProcessBar bar;
        QVERIFY(QMetaObject::invokeMethod(&bar, "setValue", Q_ARG(int, 64)));
        QCOMPARE(bar.value(), 64);
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
        QVERIFY(property.hasNotifySignal());
        QCOMPARE(property.notifySignal().methodSignature(), QByteArray("valueChanged()"));
    }

    void propertyTellsWhetherTheBarHasStarted_data() { addValues(); }

    void propertyTellsWhetherTheBarHasStarted()
    {
        QFETCH(int, value);
        KELProcessBar bar;
        bar.setValue(value);
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
        QFETCH(int, before);
        QFETCH(QVariant, written);
        QFETCH(int, after);
        KELProcessBar bar;
        bar.setValue(before);
        Recorder recorder(&bar);
        QVERIFY(bar.setProperty("value", written));
        QCOMPARE(bar.value(), after);
        QCOMPARE(recorder.take(), before == after ? QString() : u"changed %1"_s.arg(after));
    }

    void propertySignalsItsChange()
    {
        KELProcessBar bar;
        const QMetaObject &meta = KELProcessBar::staticMetaObject;
        const QSignalSpy spy(&bar, meta.property(meta.propertyOffset()).notifySignal());
        bar.setValue(3);
        QCOMPARE(spy.count(), 1);
        // Through the property nothing changed, but the value did.
        bar.setValue(4);
        QCOMPARE(spy.count(), 2);
        bar.setProperty("value", false);
        QCOMPARE(spy.count(), 3);
    }

    void slotThatTakesCompletionBack()
    {
        KELProcessBar bar;
        Recorder recorder(&bar);
        connect(&bar, &KELProcessBar::valueChanged, this, [&bar] {
            if (bar.value() == 100)
                bar.setValue(50);
        });
        bar.setValue(100);
        QCOMPARE(recorder.take(), u"changed 100, changed 50"_s);
        QCOMPARE(bar.value(), 50);
    }

    void slotThatCompletes()
    {
        KELProcessBar bar;
        Recorder recorder(&bar);
        connect(&bar, &KELProcessBar::valueChanged, this, [&bar] {
            if (bar.value() == 50)
                bar.setValue(100);
        });
        bar.setValue(50);
        QCOMPARE(recorder.take(), u"changed 50, changed 100, completed 100"_s);
        QCOMPARE(bar.value(), 100);
    }

    void slotThatStartsAgain()
    {
        KELProcessBar bar;
        Recorder recorder(&bar);
        connect(&bar, &KELProcessBar::completed, this, [&bar] { bar.setValue(0); });
        for (int round = 0; round < 3; ++round) {
            bar.setValue(100);
            QCOMPARE(recorder.take(), u"changed 100, completed 100, changed 0"_s);
            QCOMPARE(bar.value(), 0);
        }
    }

    void slotThatSetsTheSameValue()
    {
        KELProcessBar bar;
        Recorder recorder(&bar);
        connect(&bar, &KELProcessBar::valueChanged, this, [&bar] { bar.setValue(bar.value()); });
        connect(&bar, &KELProcessBar::completed, this, [&bar] { bar.setValue(100); });
        bar.setValue(100);
        QCOMPARE(recorder.take(), u"changed 100, completed 100"_s);
    }

    void slotThatDeletesTheBar_data()
    {
        QTest::addColumn<BarSignal>("signal");
        QTest::addColumn<Way>("way");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("completions");
        const QPair<Way, const char *> ways[] = {{Way::Delete, "delete"},
                                                 {Way::DeleteLater, "deleteLater"},
                                                 {Way::ClearScene, "scene cleared"}};
        for (const auto &way : ways) {
            QTest::addRow("half way, %s", way.second)
                << BarSignal(&KELProcessBar::valueChanged) << way.first << 50 << 0;
            QTest::addRow("before completion, %s", way.second)
                << BarSignal(&KELProcessBar::valueChanged) << way.first << 100
                << (way.first == Way::DeleteLater ? 1 : 0);
            QTest::addRow("on completion, %s", way.second)
                << BarSignal(&KELProcessBar::completed) << way.first << 100 << 1;
        }
    }

    void slotThatDeletesTheBar()
    {
        QFETCH(BarSignal, signal);
        QFETCH(Way, way);
        QFETCH(int, value);
        QFETCH(int, completions);
        KelTestView view;
        const QPointer<KELProcessBar> bar(new KELProcessBar);
        view.ownScene.addItem(bar);
        QVERIFY(view.showAndWait());
        const QSignalSpy changed(bar, &KELProcessBar::valueChanged);
        const QSignalSpy completed(bar, &KELProcessBar::completed);
        connect(bar, signal, &view, [&view, bar, way] {
            if (way == Way::Delete)
                delete bar;
            else if (way == Way::DeleteLater)
                bar->deleteLater();
            else
                view.ownScene.clear();
        });
        bar->setValue(value);
        QCOMPARE(bar.isNull(), way != Way::DeleteLater);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(bar.isNull());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(completed.count(), completions);
        QVERIFY(view.ownScene.items().isEmpty());
        QCOMPARE(areaOf(view.grab().toImage(), Qt::white), view.viewport()->rect());
    }

    void isTheHandDrawnPicture_data() { addValues(); }

    void isTheHandDrawnPicture()
    {
        QFETCH(int, value);
        for (const QRectF &rect :
             {QRectF(10, 10, 300, 30), QRectF(10, 10, 250, 30), QRectF(0, 0, 100, 30),
              QRectF(5.3, 7.7, 140.4, 40.6), QRectF(10, 5, 100, 119), QRectF(20, 50, 100, 10),
              QRectF(20, 50, 100, 0), QRectF(20, 20, 9, 30), QRectF(20, 20, 0.5, 30),
              QRectF(20, 20, 0, 30), QRectF(320, 20, -300, 40), QRectF(20, 80, 100, -40),
              QRectF(-60, -10, 200, 30), QRectF(-5000, 10, 10000, 30)}) {
            KELProcessBar bar;
            bar.setboundRect(rect);
            bar.setValue(value);
            QCOMPARE(differenceToHand(&bar, rect), QString());
        }
    }

    void isTheHandDrawnPictureScaled_data() { addValues(); }

    void isTheHandDrawnPictureScaled()
    {
        QFETCH(int, value);
        for (const QRectF &rect :
             {QRectF(10, 10, 300, 30), QRectF(5.3, 7.7, 140.4, 40.6), QRectF(20, 50, 100, 9)}) {
            KELProcessBar bar;
            bar.setboundRect(rect);
            bar.setValue(value);
            for (const qreal scale : scales)
                QCOMPARE(differenceToHand(&bar, rect, scale), QString());
        }
    }

    void isTheHandDrawnPictureInOtherLooks_data()
    {
        QTest::addColumn<QBrush>("track");
        QTest::addColumn<QBrush>("fill");
        QTest::addColumn<QBrush>("text");
        QTest::addColumn<QPointF>("radii");

        QLinearGradient gradient(0, 0, 150, 80);
        gradient.setColorAt(0, Qt::yellow);
        gradient.setColorAt(1, Qt::darkBlue);
        const QBrush track(trackColour);
        const QBrush fill(fillColour);
        const QBrush text(Qt::white);
        const QPointF pill(15, 15);
        QTest::newRow("no track") << QBrush(Qt::NoBrush) << fill << text << pill;
        QTest::newRow("no fill") << track << QBrush(Qt::NoBrush) << text << pill;
        QTest::newRow("no text") << track << fill << QBrush(Qt::NoBrush) << pill;
        QTest::newRow("nothing") << QBrush(Qt::NoBrush) << QBrush(Qt::NoBrush)
                                 << QBrush(Qt::NoBrush) << pill;
        QTest::newRow("translucent")
            << QBrush(QColor(0, 0, 0, 90)) << QBrush(QColor(255, 0, 0, 120))
            << QBrush(QColor(0, 200, 0, 150)) << pill;
        QTest::newRow("gradients and patterns")
            << QBrush(Qt::darkGreen, Qt::DiagCrossPattern) << QBrush(gradient)
            << QBrush(Qt::black, Qt::Dense3Pattern) << pill;
        QTest::newRow("square") << track << fill << text << QPointF(0, 0);
        QTest::newRow("different radii") << track << fill << text << QPointF(40, 6);
        QTest::newRow("one radius") << track << fill << text << QPointF(15, 0);
        QTest::newRow("negative radii") << track << fill << text << QPointF(-4, -4);
        QTest::newRow("radii larger than the bar") << track << fill << text << QPointF(900, 700);
        QTest::newRow("radii in per cent would differ") << track << fill << text << QPointF(30, 10);
    }

    void isTheHandDrawnPictureInOtherLooks()
    {
        QFETCH(QBrush, track);
        QFETCH(QBrush, fill);
        QFETCH(QBrush, text);
        QFETCH(QPointF, radii);
        const QRectF rect(10, 10.5, 250, 50);
        KELProcessBar bar;
        bar.setboundRect(rect);
        bar.style()->backgroundBrush = track;
        bar.style()->borderBrush = fill;
        bar.style()->foregroundBrush = text;
        bar.style()->xRadius = radii.x();
        bar.style()->yRadius = radii.y();
        for (const int value : {0, 55, 100, -20}) {
            bar.setValue(value);
            for (const qreal scale : scales)
                QCOMPARE(differenceToHand(&bar, rect, scale), QString());
        }
    }

    void newBarHasItsColours()
    {
        KELProcessBar bar;
        bar.setboundRect(10, 10, 300, 30);
        bar.setValue(30);
        const QImage image = KelImage::paint(&bar, canvas);
        QCOMPARE(image.pixelColor(30, 25), fillColour);
        QCOMPARE(image.pixelColor(99, 25), fillColour);
        QCOMPARE(image.pixelColor(100, 25), trackColour);
        QCOMPARE(image.pixelColor(290, 25), trackColour);
        const QRect lightest = areaWhere(image, [](const QColor &pixel) {
            return pixel != paper && pixel.red() > 200 && pixel.green() > 200;
        });
        QVERIFY(QRect(120, 10, 80, 30).contains(lightest));
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
        QFETCH(qreal, width);
        QFETCH(int, value);
        QFETCH(int, filled);
        KELProcessBar bar;
        makeBare(&bar);
        bar.setboundRect(10, 10, width, 30);
        bar.setValue(value);
        const QImage image = KelImage::paint(&bar, canvas);
        const QImage expected = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            painter->fillRect(10, 10, int(width), 30, trackColour);
            painter->fillRect(10, 10, filled, 30, fillColour);
        });
        // The bar's own end may fall between two pixels.
        const QRect whole(0, 0, 10 + int(width), canvas.height());
        QCOMPARE(KelImage::difference(image.copy(whole), expected.copy(whole)), QString());
    }

    void fillOfLessThanAPixelIsNone_data()
    {
        QTest::addColumn<int>("value");
        QTest::newRow("half a pixel") << 1;
        QTest::newRow("half a pixel to the left") << -1;
    }

    // At half a pixel even a fill beside the bar would show in its first column.
    void fillOfLessThanAPixelIsNone()
    {
        QFETCH(int, value);
        KELProcessBar bar;
        makeBare(&bar);
        bar.setboundRect(10.5, 10, 50, 30);
        const QImage without = KelImage::paint(&bar, canvas);
        bar.setValue(value);
        QCOMPARE(KelImage::difference(KelImage::paint(&bar, canvas), without), QString());
        bar.setValue(2 * value);
        QVERIFY(KelImage::paint(&bar, canvas) != without);
    }

    void noFillBelowOne_data()
    {
        QTest::addColumn<int>("value");
        for (const int value : {0, -1, -5, -100, -1000, lowestInt})
            QTest::addRow("%d", value) << value;
    }

    void noFillBelowOne()
    {
        QFETCH(int, value);
        KELProcessBar bar;
        makeBare(&bar);
        bar.setboundRect(10, 10, 300, 30);
        bar.setValue(value);
        const QRect rect(10, 10, 300, 30);
        for (const int scale : {1, 2}) {
            const QImage expected = KelImage::draw(
                canvas, scale, [&](QPainter *painter) { painter->fillRect(rect, trackColour); });
            QCOMPARE(KelImage::difference(KelImage::paint(&bar, canvas, scale), expected),
                     QString());
        }
    }

    void fullBarFromHundredOn_data()
    {
        QTest::addColumn<int>("value");
        for (const int value : {100, 101, 150, 1000000, highestInt - 1, highestInt})
            QTest::addRow("%d", value) << value;
    }

    void fullBarFromHundredOn()
    {
        QFETCH(int, value);
        KELProcessBar bar;
        makeBare(&bar);
        bar.setboundRect(10, 10, 300, 30);
        bar.setValue(value);
        const QRect rect(10, 10, 300, 30);
        for (const int scale : {1, 2}) {
            const QImage expected = KelImage::draw(
                canvas, scale, [&](QPainter *painter) { painter->fillRect(rect, fillColour); });
            QCOMPARE(KelImage::difference(KelImage::paint(&bar, canvas, scale), expected),
                     QString());
        }
    }

    void endsAreRound()
    {
        KELProcessBar bar;
        bar.setboundRect(10, 10, 300, 30);
        for (const int value : {0, 100}) {
            bar.setValue(value);
            const QImage image = KelImage::paint(&bar, canvas);
            const QColor colour = value == 0 ? trackColour : fillColour;
            for (const QPoint &corner :
                 {QPoint(10, 10), QPoint(309, 10), QPoint(10, 39), QPoint(309, 39)})
                QCOMPARE(image.pixelColor(corner), paper);
            // A circle of radius 15 leaves 4.4 px free on the diagonal.
            QCOMPARE(image.pixelColor(13, 13), paper);
            QCOMPARE(image.pixelColor(16, 16), colour);
            QCOMPARE(image.pixelColor(25, 10), colour);
            QCOMPARE(image.pixelColor(25, 39), colour);
        }
    }

    void textIsTheNumber_data() { addValues(); }

    void textIsTheNumber()
    {
        QFETCH(int, value);
        KELProcessBar bar;
        bar.setboundRect(10, 10, 300, 30);
        bar.style()->backgroundBrush = QBrush(Qt::NoBrush);
        bar.style()->borderBrush = QBrush(Qt::NoBrush);
        bar.style()->foregroundBrush = QBrush(Qt::black);
        bar.setValue(value);
        const QImage byHand = KelImage::draw(canvas, 1, [value](QPainter *painter) {
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::black);
            painter->drawText(QRectF(10, 10, 300, 30), Qt::AlignCenter,
                              QByteArray::number(value) + '%');
        });
        QVERIFY(byHand != blank());
        QCOMPARE(KelImage::difference(KelImage::paint(&bar, canvas), byHand), QString());
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
        KELProcessBar bar;
        bar.setboundRect(10, 10, 300, 60);
        bar.setValue(42);
        const QImage before = KelImage::paint(&bar, canvas);
        KELRoundRectControlStyle *style = bar.style();
        style->borderWidth = 9;
        style->font.setPixelSize(28);
        style->text = u"Caption"_s;
        style->textFlags = Qt::AlignLeft;
        style->trimText = false;
        style->margins = QMarginsF(9, 8, 7, 6);
        style->pixmap = QPixmap(20, 20);
        style->pixmap.fill(Qt::magenta);
        style->icon = KELIconFont('W');
        style->iconSize = 50;
        style->isMouseDown = true;
        bar.setCheck(true);
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
        QCOMPARE(paintedArea(KelImage::paint(bar, canvas)), QRect(15, 35, 200, 30));
    }

    void tallControlHasTheBarInItsMiddle()
    {
        KELProcessBar bar;
        bar.setValue(50);
        for (const int height : {32, 60, 120}) {
            bar.setboundRect(20, 10, 200, height);
            QCOMPARE(paintedArea(KelImage::paint(&bar, canvas)),
                     QRect(20, 10 + height / 2 - 15, 200, 30));
        }
    }

    void controlOfThirtyPaintsNothingOutside_data() { addValues(); }

    void controlOfThirtyPaintsNothingOutside()
    {
        QFETCH(int, value);
        for (const QRectF &rect : {QRectF(20, 20, 200, 30), QRectF(20, 20, 8, 30)}) {
            KELProcessBar bar;
            bar.setboundRect(rect);
            bar.setValue(value);
            for (const qreal scale : scales)
                QCOMPARE(KelImage::pixelsOutside(&bar, scale), QString());
        }
    }

    void lowControlPaintsOutsideItsRectangle_data()
    {
        QTest::addColumn<qreal>("height");
        for (const qreal height : {0.0, 2.0, 10.0, 28.0})
            QTest::addRow("%g px high", height) << height;
    }

    void lowControlPaintsOutsideItsRectangle()
    {
        QFETCH(qreal, height);
        KELProcessBar bar;
        bar.setboundRect(20, 60, 200, height);
        bar.setValue(50);
        QCOMPARE(bar.boundingRect(), QRectF(20, 60, 200, height));
        QCOMPARE(paintedArea(KelImage::paint(&bar, canvas)),
                 QRect(20, 60 + int(height / 2) - 15, 200, 30));
    }

    void rectangleThatIsNotFiniteDrawsNothing_data()
    {
        QTest::addColumn<QRectF>("rect");
        for (const qreal bad : {notANumber, infinite, -infinite}) {
            QTest::addRow("x is %g", bad) << QRectF(bad, 10, 100, 30);
            QTest::addRow("y is %g", bad) << QRectF(10, bad, 100, 30);
            QTest::addRow("width is %g", bad) << QRectF(10, 10, bad, 30);
            QTest::addRow("height is %g", bad) << QRectF(10, 10, 100, bad);
            QTest::addRow("everything is %g", bad) << QRectF(bad, bad, bad, bad);
        }
    }

    void rectangleThatIsNotFiniteDrawsNothing()
    {
        QFETCH(QRectF, rect);
        for (const int value : values) {
            KELProcessBar bar;
            bar.setboundRect(rect);
            bar.setValue(value);
            for (const qreal scale : scales) {
                QCOMPARE(KelImage::difference(KelImage::paint(&bar, canvas, scale), blank(scale)),
                         QString());
            }
        }
    }

    void radiusThatIsNotANumberIsNone_data()
    {
        QTest::addColumn<qreal>("xRadius");
        QTest::addColumn<qreal>("yRadius");
        QTest::newRow("along x") << notANumber << 15.0;
        QTest::newRow("along y") << 15.0 << notANumber;
        QTest::newRow("both") << notANumber << notANumber;
    }

    void radiusThatIsNotANumberIsNone()
    {
        QFETCH(qreal, xRadius);
        QFETCH(qreal, yRadius);
        KELProcessBar bar;
        bar.setboundRect(10, 10, 300, 30);
        bar.setValue(42);
        bar.style()->xRadius = 0;
        bar.style()->yRadius = 0;
        const QImage square = KelImage::paint(&bar, canvas);
        bar.style()->xRadius = xRadius;
        bar.style()->yRadius = yRadius;
        QCOMPARE(KelImage::difference(KelImage::paint(&bar, canvas), square), QString());
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
        QCOMPARE(paintedArea(painted), QRect(10, 25, 300, 30));
        QCOMPARE(painted.pixelColor(160, 40), QColor(Qt::magenta));
    }

    void clipReplacesAnEarlierOne()
    {
        KELProcessBar bar;
        const QRectF rect(10, 10, 300, 30);
        bar.setboundRect(rect);
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
        QImage image(canvas, QImage::Format_ARGB32_Premultiplied);
        image.fill(paper);
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
        QCOMPARE(painter.pen(), textPen(QBrush(Qt::darkGreen)));
        QCOMPARE(painter.brush(), QBrush(Qt::NoBrush));
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.worldTransform(), QTransform::fromTranslate(3, 4));
        QCOMPARE(painter.clipBoundingRect(), QRectF(0, 0, 100, 30));
    }

    void argumentsAreNotRead()
    {
        KELProcessBar bar;
        bar.setboundRect(10, 10, 300, 30);
        bar.setValue(42);
        const QImage painted = KelImage::draw(
            canvas, 1, [&bar](QPainter *painter) { bar.paint(painter, nullptr, nullptr); });
        QCOMPARE(KelImage::difference(painted, KelImage::paint(&bar, canvas)), QString());
    }

    void changeIsOnTheScreen()
    {
        KelTestView view(canvas);
        auto *bar = new KELProcessBar;
        const QRectF rect(10, 10, 300, 30);
        bar->setboundRect(rect);
        view.ownScene.addItem(bar);
        QVERIFY(view.showAndWait());
        for (const int value : {0, 1, 42, 100, 150, -5}) {
            bar->setValue(value);
            // The view keeps a picture of the bar without what is behind it.
            QImage kept(canvas, QImage::Format_ARGB32_Premultiplied);
            kept.fill(Qt::transparent);
            QPainter painter(&kept);
            drawByHand(&painter, *bar->style(), rect, value);
            painter.end();
            QImage byHand = view.grab().toImage();
            byHand.fill(Qt::white);
            QPainter(&byHand).drawImage(0, 0, kept);
            QTRY_COMPARE(KelImage::difference(view.grab().toImage(), byHand), QString());
        }
    }

    void sameValueDoesNotRepaint()
    {
        KelTestView view;
        CountingBar bar;
        bar.setValue(42);
        view.ownScene.addItem(&bar);
        QVERIFY(view.showAndWait());
        QTRY_VERIFY(bar.paints > 0);
        QCoreApplication::processEvents();
        const QSignalSpy sceneChanges(&view.ownScene, &QGraphicsScene::changed);
        bar.paints = 0;
        bar.setValue(42);
        QTest::qWait(50);
        QCOMPARE(bar.paints, 0);
        QCOMPARE(sceneChanges.count(), 0);
        // The whole bar is repainted, not the piece that the fill grew by.
        bar.setValue(43);
        QTRY_VERIFY(bar.paints > 0);
        QTRY_VERIFY(sceneChanges.count() > 0);
        const auto regions = sceneChanges.first().first().value<QList<QRectF>>();
        QCOMPARE(regions.size(), 1);
        QVERIFY(regions.first().contains(QRectF(0, 0, 100, 30)));
    }
};

KEL_TEST_MAIN(tst_KELProcessBar)
#include "tst_kelprocessbar.moc"
