// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"
#include "handdrawing.h"
#include "record.h"
#include "stage.h"

#include <kellineitem.h>

#include <QtCore/QLineF>

#include <limits>

namespace {

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();
constexpr qreal scales[] = {0.5, 1, 1.5, 2};
const QSize canvas(220, 120);
const QLineF slanted(20, 15, 190, 100);

struct NamedLine
{
    const char *name;
    QLineF line;
};

const NamedLine lines[] = {
    {"horizontal", QLineF(10, 50, 200, 50)},
    {"horizontal, to the left", QLineF(200, 50, 10, 50)},
    {"horizontal between two rows", QLineF(10.5, 50.5, 200.5, 50.5)},
    {"vertical", QLineF(60, 10, 60, 110)},
    {"vertical, upwards", QLineF(60, 110, 60, 10)},
    {"falling", slanted},
    {"rising", QLineF(20, 100, 190, 15)},
    {"steep", QLineF(100, 10, 117, 110)},
    {"at fractions", QLineF(10.3, 20.7, 180.55, 90.2)},
    {"one point", QLineF(40, 40, 40, 40)},
    {"shorter than a pixel", QLineF(40.2, 40.2, 40.6, 40.4)},
    {"out of the picture", QLineF(-90, -30, 400, 160)},
    {"far out of the picture", QLineF(-1e6, 50, 1e6, 50)},
    {"at negative coordinates", QLineF(-30, -20, -5, -60)},
};

const QLineF &lineOfRow()
{
    return lines[fetch<size_t>("line")].line;
}

struct NamedWidth
{
    const char *name;
    float width;
};

const NamedWidth widths[] = {{"width 0", 0}, {"width 0.5", 0.5F}, {"width 1", 1},
                             {"width 2", 2}, {"width 3.7", 3.7F}, {"width 11", 11}};

float widthOfRow()
{
    return widths[fetch<size_t>("width")].width;
}

void setLine(KELLineItem *item, const QLineF &line)
{
    item->setLine(line.p1(), line.p2());
}

// Writes down what setLine() does to it.
class RecordingLine : public Counting<KELLineItem>
{
public:
    void setboundRect(const QRectF & /*rect*/) override { ++rectCalls; }
    void setboundRect(qreal x, qreal y, qreal w, qreal h) override
    {
        fourNumberCalls.append(QRectF(x, y, w, h));
        pictureInCall = KelImage::paint(this, canvas);
        if (passesOn)
            KELLineItem::setboundRect(x, y, w, h);
    }

    bool passesOn = true;
    int rectCalls = 0;
    QList<QRectF> fourNumberCalls;
    QImage pictureInCall;
};

// A line of a width and brush, or as a new one is.
struct Line : RecordingLine
{
    explicit Line(const QLineF &line = slanted) { setLine(line.p1(), line.p2()); }
    Line(const QLineF &line, float width, const QBrush &brush = Qt::black) : Line(line)
    {
        style()->borderWidth = width;
        style()->borderBrush = brush;
    }
};

// Empty when the item is painted as this line.
QString differenceToHand(KELLineItem *item, const QLineF &line, qreal width,
                         const QBrush &brush = Qt::black, qreal scale = 1)
{
    const auto byHand = [&](QPainter *painter) {
        painter->setPen(HandDrawing::squarePen(brush, width));
        painter->drawLine(line);
    };
    return KelImage::differenceFrom(byHand, item, canvas, scale);
}

QString differenceToHandInAllScales(KELLineItem *item, const QLineF &line)
{
    for (const qreal scale : scales) {
        const QString difference = differenceToHand(item, line, qreal(item->style()->borderWidth),
                                                    item->style()->borderBrush, scale);
        if (!difference.isEmpty())
            return difference;
    }
    return QString();
}

QRect inkOf(KELLineItem *item, qreal scale = 1)
{
    return KelImage::inkOf(KelImage::paint(item, canvas, scale));
}

bool isBlankInAllScales(KELLineItem *item)
{
    return std::all_of(std::begin(scales), std::end(scales), [item](qreal scale) {
        return KelImage::paint(item, canvas, scale) == KelImage::blank(canvas, scale);
    });
}

QRectF scaled(const QRectF &rect, qreal scale)
{
    return QRectF(rect.topLeft() * scale, rect.size() * scale);
}

} // namespace

class tst_KELLineItem : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasTheDefaultsOfTheBase()
    {
        QCOMPARE(Record::difference(*KELLineItem().style(), Record::defaults()), QString());
    }

    void inputSettingsAreThoseOfTheBase() { ControlTest::hasInputSettingsOfTheBase<KELLineItem>(); }

    void hasAParentItem() { ControlTest::hasAParentItem<KELLineItem>(); }

    void declaresNoInterfaceOfItsOwn()
    {
        ControlTest::declaresNoInterfaceOfItsOwn<KELLineItem>("KELLineItem");
    }

    void initStyleReturnsThePresentRecord()
    {
        Restyled<KELLineItem> item;
        KELRoundRectControlStyle *const style = item.style();
        Record::fill(style);
        const KELRoundRectControlStyle before = *style;
        item.makeStyleAgain();
        QCOMPARE(item.style(), style);
        QCOMPARE(Record::difference(*style, before), QString());
    }

    void startsAsAPointAtTheOrigin()
    {
        KELLineItem item;
        QCOMPARE(item.boundingRect(), QRectF(100, 100, 100, 30));
        item.style()->borderWidth = 8;
        QCOMPARE(inkOf(&item), QRect(0, 0, 4, 4));
        QCOMPARE(differenceToHand(&item, QLineF(0, 0, 0, 0), 8), QString());
    }

    void rectangleIsTheBoxAroundTheLine_data()
    {
        QTest::addColumn<QLineF>("line");
        QTest::addColumn<QRectF>("box");

        QTest::newRow("horizontal") << QLineF(10, 50, 200, 50) << QRectF(10, 50, 190, 0);
        QTest::newRow("vertical") << QLineF(60, 10, 60, 110) << QRectF(60, 10, 0, 100);
        QTest::newRow("falling") << QLineF(20, 15, 190, 100) << QRectF(20, 15, 170, 85);
        QTest::newRow("rising") << QLineF(20, 100, 190, 15) << QRectF(20, 15, 170, 85);
        QTest::newRow("at binary fractions")
            << QLineF(10.25, 20.5, 30.75, 90.125) << QRectF(10.25, 20.5, 20.5, 69.625);
        QTest::newRow("on both sides of the origin")
            << QLineF(-30, 20, 10, -60) << QRectF(-30, -60, 40, 80);
        QTest::newRow("negative") << QLineF(-30, -20, -5, -60) << QRectF(-30, -60, 25, 40);
        QTest::newRow("one point") << QLineF(40, 41, 40, 41) << QRectF(40, 41, 0, 0);
        QTest::newRow("origin") << QLineF() << QRectF(0, 0, 0, 0);
        QTest::newRow("large") << QLineF(-1e12, 1, 1e12, 3) << QRectF(-1e12, 1, 2e12, 2);
    }

    // Through the overload of four numbers, which a derived class may have overridden.
    void rectangleIsTheBoxAroundTheLine()
    {
        const auto line = fetch<QLineF>("line");
        const auto box = fetch<QRectF>("box");
        for (const QLineF &way : {line, QLineF(line.p2(), line.p1())}) {
            RecordingLine item;
            setLine(&item, way);
            QCOMPARE(item.style()->boundRect, box);
            QCOMPARE(item.boundingRect(), box);
            QCOMPARE(item.rect(), QRectF(QPointF(), box.size()));
            setLine(&item, way);
            QCOMPARE(item.fourNumberCalls, QList<QRectF>({box, box}));
            QCOMPARE(item.rectCalls, 0);
        }
    }

    void rectangleOfAChildIsShifted()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 100);
        auto *item = new KELLineItem(&parent);
        item->setLine(QPointF(30, 5), QPointF(5, 7));
        QCOMPARE(item->boundingRect(), QRectF(15, 25, 25, 2));
    }

    void lineIsStoredBeforeTheRectangle()
    {
        Line item;
        QVERIFY(KelImage::inkOf(item.pictureInCall).contains(60, 45));
        QCOMPARE(KelImage::difference(item.pictureInCall, KelImage::paint(&item, canvas)),
                 QString());
    }

    void lineIsStoredAlthoughTheRectangleIsRefused()
    {
        RecordingLine item;
        item.passesOn = false;
        setLine(&item, slanted);
        QCOMPARE(item.boundingRect(), QRectF(100, 100, 100, 30));
        QCOMPARE(differenceToHand(&item, slanted, 0.5), QString());
    }

    void settingDoesNotRepaint()
    {
        Stage<RecordingLine> stage;
        setLine(stage.get(), slanted);
        stage.view.showOnce();
        QTRY_VERIFY(stage->paints > 0);
        QCoreApplication::processEvents();
        const QSignalSpy sceneChanges(&stage.view.ownScene, &QGraphicsScene::changed);
        setLine(stage.get(), QLineF(15, 25, 105, 60));
        stage->paints = 0;
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
        QCOMPARE(stage->paints, 0);
        QCOMPARE(sceneChanges.count(), 0);
        stage->update();
        QTRY_VERIFY(stage->paints > 0);
        QVERIFY(sceneChanges.count() > 0);
    }

    void lastLineCounts()
    {
        Line item;
        item.setLine(QPointF(100, 20), QPointF(30, 90));
        QCOMPARE(item.boundingRect(), QRectF(30, 20, 70, 70));
        QCOMPARE(differenceToHand(&item, QLineF(100, 20, 30, 90), 0.5), QString());
    }

    void isTheHandDrawnLine_data()
    {
        addRows({{"line", namesOf(lines)}, {"width", namesOf(widths)}});
    }

    void isTheHandDrawnLine()
    {
        Line item(lineOfRow(), widthOfRow());
        QCOMPARE(differenceToHandInAllScales(&item, lineOfRow()), QString());
    }

    void isTheHandDrawnLineInEveryBrush_data()
    {
        QTest::addColumn<QBrush>("brush");
        QTest::newRow("colour") << QBrush(QColor(10, 200, 30));
        QTest::newRow("translucent") << QBrush(QColor(255, 0, 0, 100));
        QTest::newRow("gradient") << HandDrawing::gradient();
        QTest::newRow("pattern") << QBrush(Qt::darkGreen, Qt::DiagCrossPattern);
    }

    // An edit of the record needs no call.
    void isTheHandDrawnLineInEveryBrush()
    {
        Line item;
        item.style()->borderBrush = fetch<QBrush>("brush");
        for (const float width : {0.5F, 9.0F}) {
            item.style()->borderWidth = width;
            QCOMPARE(differenceToHandInAllScales(&item, slanted), QString());
            QVERIFY(!inkOf(&item).isNull());
        }
    }

    void newLineIsBlackAndThin()
    {
        const QLineF line(10, 50, 200, 50);
        Line item(line);
        QCOMPARE(item.boundingRect(), QRectF(10, 50, 190, 0));
        QCOMPARE(differenceToHand(&item, line, 0.5), QString());
        // Half a pixel of black on paper is a whole pixel of the colour between them.
        const QImage image = KelImage::paint(&item, canvas);
        const QRect ink = KelImage::inkOf(image);
        QCOMPARE(ink.height(), 1);
        for (int x = 11; x < 199; ++x) {
            const QColor colour = image.pixelColor(x, ink.y());
            QVERIFY(qAbs(colour.red() - 100) <= 2);
            QVERIFY(qAbs(colour.blue() - 120) <= 2);
        }
        const QRect black = KelImage::areaOf(KelImage::paint(&item, canvas, 2), Qt::black);
        QCOMPARE(black.height(), 1);
        QVERIFY(black.left() <= 22 && black.right() >= 397);
    }

    void endsAreSquare_data()
    {
        QTest::addColumn<QLineF>("line");
        QTest::addColumn<QRect>("area");
        QTest::newRow("horizontal") << QLineF(20, 50, 180, 50) << QRect(17, 47, 166, 6);
        QTest::newRow("vertical") << QLineF(60, 10, 60, 110) << QRect(57, 7, 6, 106);
    }

    void endsAreSquare()
    {
        Line item(fetch<QLineF>("line"), 6);
        const auto byHand = [](QPainter *painter) {
            painter->fillRect(fetch<QRect>("area"), Qt::black);
        };
        QCOMPARE(KelImage::differenceFrom(byHand, &item, canvas), QString());
    }

    void rectangleIsNotUsedInDrawing()
    {
        for (const QRectF &rect :
             {QRectF(100, 100, 100, 30), QRectF(), QRectF(0, 0, -5, -5),
              QRectF(notANumber, infinite, 1, notANumber), QRectF(1e9, 1e9, 1, 1)}) {
            Line item;
            item.style()->boundRect = rect;
            QCOMPARE(differenceToHand(&item, slanted, 0.5), QString());
        }
    }

    void parentDoesNotMoveTheLine()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 100);
        auto *item = new KELLineItem(&parent);
        setLine(item, slanted);
        QCOMPARE(item->boundingRect().topLeft(), QPointF(30, 35));
        QCOMPARE(differenceToHand(item, slanted, 0.5), QString());
    }

    void otherFieldsAndStatesDoNotShow()
    {
        Line item;
        Record::fill(item.style());
        item.style()->borderBrush = QColor(Qt::black);
        item.style()->borderWidth = 0.5F;
        item.setEnabled(false);
        QCOMPARE(differenceToHand(&item, slanted, 0.5), QString());
    }

    void noBrushDrawsNothing_data() { addRows({{"line", namesOf(lines)}}); }

    void noBrushDrawsNothing()
    {
        Line item(lineOfRow());
        item.style()->borderBrush = QBrush(Qt::NoBrush);
        for (const float width : {0.0F, 0.5F, 1.0F, 12.0F, -3.0F}) {
            item.style()->borderWidth = width;
            QVERIFY(isBlankInAllScales(&item));
        }
        Line visible(slanted, 1);
        QVERIFY(!isBlankInAllScales(&visible));
    }

    void widthOfZeroIsOnePixelAtEveryScale()
    {
        const QLineF line(20, 50, 190, 50);
        Line item(line, 0);
        for (const qreal scale : {0.5, 1.0, 1.5, 2.0, 8.0}) {
            QCOMPARE(inkOf(&item, scale).height(), 1);
            QCOMPARE(differenceToHand(&item, line, 0, Qt::black, scale), QString());
        }
    }

    void unusableWidthDrawsNothing_data()
    {
        QTest::addColumn<float>("width");
        QTest::newRow("-0.5") << -0.5F;
        QTest::newRow("-1") << -1.0F;
        QTest::newRow("-6") << -6.0F;
        QTest::newRow("not a number") << float(notANumber);
        QTest::newRow("infinite") << float(infinite);
        QTest::newRow("infinite and negative") << float(-infinite);
    }

    void unusableWidthDrawsNothing()
    {
        for (const NamedLine &row : lines) {
            Line item(row.line, fetch<float>("width"));
            QVERIFY2(isBlankInAllScales(&item), row.name);
        }
    }

    void pointThatIsNotFiniteDrawsNothing_data()
    {
        QTest::addColumn<QLineF>("line");
        for (const qreal bad : {notANumber, infinite, -infinite}) {
            QTest::addRow("x of the first is %g", bad) << QLineF(bad, 50, 100, 60);
            QTest::addRow("y of the first is %g", bad) << QLineF(10, bad, 100, 60);
            QTest::addRow("x of the second is %g", bad) << QLineF(10, 50, bad, 60);
            QTest::addRow("y of the second is %g", bad) << QLineF(10, 50, 100, bad);
            QTest::addRow("all are %g", bad) << QLineF(bad, bad, bad, bad);
        }
        // Qt would draw these across the picture.
        QTest::newRow("from edge to edge of the world") << QLineF(-infinite, 50, infinite, 50);
        QTest::newRow("and back") << QLineF(infinite, 50, -infinite, 50);
    }

    void pointThatIsNotFiniteDrawsNothing()
    {
        for (const float width : {0.0F, 0.5F, 12.0F}) {
            Line item(fetch<QLineF>("line"), width);
            QVERIFY(isBlankInAllScales(&item));
            setLine(&item, slanted);
            QVERIFY(!isBlankInAllScales(&item));
        }
    }

    void antialiasingIsLeftAsItIs_data() { addRows({{"smooth", {{"off", false}, {"on", true}}}}); }

    void antialiasingIsLeftAsItIs()
    {
        const bool smooth = fetch<bool>("smooth");
        const QLineF line(20.3, 15.2, 190, 100);
        Line item(line, 5);
        QPainter::RenderHints hintsAfterwards;
        const QImage painted = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            painter->setRenderHint(QPainter::Antialiasing, smooth);
            item.paint(painter, nullptr, nullptr);
            hintsAfterwards = painter->renderHints();
        });
        const QImage byHand = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            painter->setRenderHint(QPainter::Antialiasing, smooth);
            painter->setPen(HandDrawing::squarePen(Qt::black, 5));
            painter->drawLine(line);
        });
        QCOMPARE(KelImage::difference(painted, byHand), QString());
        QCOMPARE(hintsAfterwards.testFlag(QPainter::Antialiasing), smooth);
        QCOMPARE(painted == KelImage::paint(&item, canvas), !smooth);
    }

    void paintSetsThePenOnly()
    {
        Line item(slanted, 3.5F, QBrush(Qt::darkGreen, Qt::DiagCrossPattern));
        QImage image(canvas, QImage::Format_ARGB32_Premultiplied);
        image.fill(KelImage::paper);
        QPainter painter(&image);
        painter.setBrush(QBrush(Qt::red));
        painter.setPen(QPen(Qt::green, 9, Qt::DotLine));
        painter.setFont(QFont(u"Some Family"_s, 33));
        painter.translate(3, 4);
        const QFont font = painter.font();
        const QPainter::RenderHints hints = painter.renderHints();
        item.paint(&painter, nullptr, nullptr);
        QCOMPARE(painter.pen(),
                 HandDrawing::squarePen(QBrush(Qt::darkGreen, Qt::DiagCrossPattern), 3.5));
        QCOMPARE(painter.brush(), QBrush(Qt::red));
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.renderHints(), hints);
        QCOMPARE(painter.worldTransform(), QTransform::fromTranslate(3, 4));
        QVERIFY(!painter.hasClipping());
    }

    void paintingLeavesTheRecordAlone()
    {
        Line item(slanted, 3, Qt::red);
        const KELRoundRectControlStyle before = *item.style();
        const QImage first = KelImage::paint(&item, canvas);
        QCOMPARE(Record::difference(*item.style(), before), QString());
        QCOMPARE(KelImage::difference(KelImage::paint(&item, canvas), first), QString());
    }

    void halfTheWidthLiesOutsideTheRectangle_data()
    {
        QTest::addColumn<QLineF>("line");
        QTest::newRow("horizontal") << QLineF(40, 50, 180, 50);
        QTest::newRow("vertical") << QLineF(60, 20, 60, 100);
    }

    void halfTheWidthLiesOutsideTheRectangle()
    {
        Line item(fetch<QLineF>("line"));
        for (const int width : {2, 4, 20}) {
            item.style()->borderWidth = float(width);
            const QRectF reached = item.boundingRect().adjusted(-width / 2, -width / 2, width / 2,
                                                                width / 2);
            for (const int scale : {1, 2})
                QCOMPARE(inkOf(&item, scale), scaled(reached, scale).toRect());
        }
    }

    void paintsNothingBeyondHalfItsWidth_data()
    {
        addRows({{"line", namesOf(lines)}, {"width", namesOf(widths)}});
    }

    void paintsNothingBeyondHalfItsWidth()
    {
        // Qt gives a line without length a length of its own.
        if (lineOfRow().isNull())
            return;
        Line item(lineOfRow(), widthOfRow());
        for (const qreal scale : scales) {
            // The corner of a slanted line's square end is the farthest, and Qt rounds to whole
            // pixels.
            const qreal reach = std::max(double(widthOfRow()), 1 / scale) / 2 * M_SQRT2 + 1 / scale;
            const QRectF box = item.boundingRect().adjusted(-reach, -reach, reach, reach);
            const QRect ink = inkOf(&item, scale);
            QVERIFY(ink.isEmpty() || scaled(box, scale).contains(QRectF(ink)));
        }
    }

    void isVisibleInACachedView_data()
    {
        const std::vector<Named> all = namesOf(lines);
        const std::vector<Named> thin = namesOf(widths);
        addRows({{"line", {all.begin(), all.begin() + 7}},
                 {"width", {thin.begin(), thin.begin() + 3}},
                 {"percent",
                  {{"scaled by 0.5", 50},
                   {"not scaled", 100},
                   {"scaled by 1.5", 150},
                   {"scaled by 2", 200}}}});
    }

    // The rectangle of a horizontal line is empty, and the view keeps a picture of what is in
    // there.
    void isVisibleInACachedView()
    {
        const qreal scale = fetch<int>("percent") / 100.0;
        KelTestView view;
        auto *item = new Line(lineOfRow(), widthOfRow());
        view.ownScene.addItem(item);
        QCOMPARE(item->cacheMode(), QGraphicsItem::DeviceCoordinateCache);
        view.scale(scale, scale);
        QVERIFY(view.showAndWait());
        const QImage onScreen = view.grab().toImage();
        // The view keeps a picture of the line without what is behind it.
        QImage kept(onScreen.size(), QImage::Format_ARGB32_Premultiplied);
        kept.fill(Qt::transparent);
        QPainter painter(&kept);
        painter.scale(scale, scale);
        painter.setPen(HandDrawing::squarePen(Qt::black, double(widthOfRow())));
        painter.drawLine(lineOfRow());
        painter.end();
        QImage byHand(onScreen.size(), onScreen.format());
        byHand.fill(Qt::white);
        QPainter(&byHand).drawImage(0, 0, kept);
        QVERIFY(KelImage::inkOf(byHand, Qt::white).isValid());
        QCOMPARE(KelImage::difference(onScreen, byHand), QString());
    }

    void wideLineIsVisibleInACachedView_data()
    {
        QTest::addColumn<QLineF>("line");
        QTest::newRow("horizontal") << QLineF(20, 50, 150, 50);
        QTest::newRow("vertical") << QLineF(60, 10, 60, 120);
    }

    // The view may cut off what lies outside of the rectangle, but not all of it.
    void wideLineIsVisibleInACachedView()
    {
        const auto line = fetch<QLineF>("line");
        for (const float width : {2.0F, 4.0F, 15.0F}) {
            KelTestView view;
            view.ownScene.addItem(new Line(line, width));
            QVERIFY(view.showAndWait());
            const QImage onScreen = view.grab().toImage();
            for (const qreal along : {0.01, 0.5, 0.99})
                QCOMPARE(onScreen.pixelColor(line.pointAt(along).toPoint()), QColor(Qt::black));
        }
    }
};

KEL_TEST_MAIN(tst_KELLineItem)
#include "tst_kellineitem.moc"
