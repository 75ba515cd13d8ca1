// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"

#include <kellineitem.h>

#include <QtCore/QLineF>
#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>

#include <limits>

Q_DECLARE_METATYPE(QLineF)

namespace {

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();
constexpr qreal scales[] = {0.5, 1, 1.5, 2};
const QSize canvas(220, 120);
const QColor paper(200, 220, 240); // of the pictures

void setLine(KELLineItem *item, const QLineF &line)
{
    item->setLine(line.p1(), line.p2());
}

QPen penOf(const QBrush &brush, qreal width)
{
    return QPen(brush, width, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
}

// Empty when the item is painted as this line with this pen.
QString differenceToHand(KELLineItem *item, const QLineF &line, const QPen &pen, qreal scale = 1)
{
    const QImage byHand = KelImage::draw(canvas, scale, [&](QPainter *painter) {
        painter->setPen(pen);
        painter->drawLine(line);
    });
    return KelImage::difference(KelImage::paint(item, canvas, scale), byHand);
}

QString differenceToBlank(KELLineItem *item, qreal scale = 1)
{
    return KelImage::difference(KelImage::paint(item, canvas, scale),
                                KelImage::draw(canvas, scale, [](QPainter *) {}));
}

// The rectangle around all pixels that are not of this colour.
QRect changedArea(const QImage &image, const QColor &unchanged)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != unchanged)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

struct NamedLine
{
    const char *name;
    QLineF line;
};

const NamedLine lines[] = {
    {"horizontal", QLineF(10, 50, 200, 50)},
    {"horizontal, to the left", QLineF(200, 50, 10, 50)},
    {"vertical", QLineF(60, 10, 60, 110)},
    {"vertical, upwards", QLineF(60, 110, 60, 10)},
    {"falling", QLineF(20, 15, 190, 100)},
    {"rising", QLineF(20, 100, 190, 15)},
    {"steep", QLineF(100, 10, 117, 110)},
    {"at fractions", QLineF(10.3, 20.7, 180.55, 90.2)},
    {"horizontal between two rows", QLineF(10.5, 50.5, 200.5, 50.5)},
    {"one point", QLineF(40, 40, 40, 40)},
    {"shorter than a pixel", QLineF(40.2, 40.2, 40.6, 40.4)},
    {"out of the picture", QLineF(-90, -30, 400, 160)},
    {"far out of the picture", QLineF(-1e6, 50, 1e6, 50)},
    {"at negative coordinates", QLineF(-30, -20, -5, -60)},
};

void addLines()
{
    QTest::addColumn<QLineF>("line");
    for (const NamedLine &row : lines)
        QTest::newRow(row.name) << row.line;
}

// Writes down what setLine() does to it, and counts its paints.
class RecordingLine : public KELLineItem
{
public:
    using KELLineItem::KELLineItem;

    void setboundRect(const QRectF & /*rect*/) override { ++rectCalls; }
    void setboundRect(qreal x, qreal y, qreal w, qreal h) override
    {
        fourNumberCalls.append({x, y, w, h});
        pictureInCall = KelImage::paint(this, canvas);
        if (passesOn)
            KELLineItem::setboundRect(x, y, w, h);
    }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        ++paints;
        KELLineItem::paint(painter, option, widget);
    }

    bool passesOn = true;
    int rectCalls = 0;
    QList<QList<qreal>> fourNumberCalls;
    QImage pictureInCall;
    int paints = 0;
};

class OpenLine : public KELLineItem
{
public:
    void makeStyleAgain() { m_style = initStyle(); }
};

} // namespace

class tst_KELLineItem : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasTheDefaultsOfTheBase()
    {
        const KELLineItem item;
        const KELRoundRectControlStyle &style = *item.style();
        QCOMPARE(style.boundRect, QRectF(100, 100, 100, 30));
        QCOMPARE(style.backgroundBrush, QBrush(QColor(0, 0, 0, 20)));
        QCOMPARE(style.foregroundBrush, QBrush(Qt::black));
        QCOMPARE(style.borderBrush, QBrush(Qt::black));
        QCOMPARE(style.borderWidth, 0.5F);
        QCOMPARE(style.xRadius, 0.0);
        QCOMPARE(style.yRadius, 0.0);
        ControlTest::hasTheOtherDefaultsOfTheBase(style);
    }

    void inputSettingsAreThoseOfTheBase() { ControlTest::hasInputSettingsOfTheBase<KELLineItem>(); }

    void hasAParentItem() { ControlTest::hasAParentItem<KELLineItem>(); }

    void declaresNoInterfaceOfItsOwn()
    {
        const QMetaObject &meta = KELLineItem::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELLineItem"));
        QCOMPARE(meta.superClass(), &KELRoundRectControl::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
        QCOMPARE(KELLineItem().metaObject(), &meta);
    }

    void initStyleReturnsThePresentRecord()
    {
        OpenLine item;
        KELRoundRectControlStyle *const style = item.style();
        style->boundRect = QRectF(1, 2, 3, 4);
        style->backgroundBrush = QBrush(Qt::red);
        style->foregroundBrush = QBrush(Qt::green);
        style->borderBrush = QBrush(Qt::blue);
        style->borderWidth = 7;
        style->text = u"Start"_s;
        style->isCheck = true;
        item.makeStyleAgain();
        QCOMPARE(item.style(), style);
        QCOMPARE(style->boundRect, QRectF(1, 2, 3, 4));
        QCOMPARE(style->backgroundBrush, QBrush(Qt::red));
        QCOMPARE(style->foregroundBrush, QBrush(Qt::green));
        QCOMPARE(style->borderBrush, QBrush(Qt::blue));
        QCOMPARE(style->borderWidth, 7.0F);
        QCOMPARE(style->text, u"Start"_s);
        QVERIFY(style->isCheck);
    }

    void startsAsAPointAtTheOrigin()
    {
        KELLineItem item;
        QCOMPARE(item.boundingRect(), QRectF(100, 100, 100, 30));
        item.style()->borderWidth = 8;
        QCOMPARE(changedArea(KelImage::paint(&item, canvas), paper), QRect(0, 0, 4, 4));
        QCOMPARE(differenceToHand(&item, QLineF(0, 0, 0, 0), penOf(Qt::black, 8)), QString());
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

    void rectangleIsTheBoxAroundTheLine()
    {
        QFETCH(QLineF, line);
        QFETCH(QRectF, box);
        for (const QLineF &way : {line, QLineF(line.p2(), line.p1())}) {
            KELLineItem item;
            setLine(&item, way);
            QCOMPARE(item.style()->boundRect, box);
            QCOMPARE(item.boundingRect(), box);
            QCOMPARE(item.rect(), QRectF(QPointF(), box.size()));
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

    void setLineCallsTheVirtualSetboundRect_data() { addLines(); }

    void setLineCallsTheVirtualSetboundRect()
    {
        QFETCH(QLineF, line);
        RecordingLine item;
        setLine(&item, line);
        const QList<qreal> box = {std::min(line.x1(), line.x2()), std::min(line.y1(), line.y2()),
                                  std::abs(line.x1() - line.x2()), std::abs(line.y1() - line.y2())};
        QCOMPARE(item.fourNumberCalls, QList<QList<qreal>>({box}));
        QCOMPARE(item.rectCalls, 0);
        setLine(&item, line);
        QCOMPARE(item.fourNumberCalls, QList<QList<qreal>>({box, box}));
        QCOMPARE(item.rectCalls, 0);
    }

    void lineIsStoredBeforeTheRectangle()
    {
        RecordingLine item;
        item.setLine(QPointF(10, 20), QPointF(110, 70));
        QVERIFY(changedArea(item.pictureInCall, paper).contains(60, 45));
        QCOMPARE(KelImage::difference(item.pictureInCall, KelImage::paint(&item, canvas)),
                 QString());
    }

    void lineIsStoredAlthoughTheRectangleIsRefused()
    {
        RecordingLine item;
        item.passesOn = false;
        item.setLine(QPointF(10, 20), QPointF(110, 70));
        QCOMPARE(item.boundingRect(), QRectF(100, 100, 100, 30));
        QCOMPARE(differenceToHand(&item, QLineF(10, 20, 110, 70), penOf(Qt::black, 0.5)),
                 QString());
    }

    void settingDoesNotRepaint()
    {
        KelTestView view;
        RecordingLine item;
        item.setLine(QPointF(10, 20), QPointF(110, 70));
        view.ownScene.addItem(&item);
        QVERIFY(view.showAndWait());
        QTRY_VERIFY(item.paints > 0);
        QCoreApplication::processEvents();
        const QSignalSpy sceneChanges(&view.ownScene, &QGraphicsScene::changed);
        QVERIFY(sceneChanges.isValid());
        item.setLine(QPointF(15, 25), QPointF(105, 60));
        item.paints = 0;
        QTest::qWait(50);
        QCOMPARE(item.paints, 0);
        QCOMPARE(sceneChanges.count(), 0);
        item.update();
        QTRY_VERIFY(item.paints > 0);
        QVERIFY(sceneChanges.count() > 0);
    }

    void lastLineCounts()
    {
        KELLineItem item;
        item.setLine(QPointF(10, 20), QPointF(110, 70));
        item.setLine(QPointF(100, 20), QPointF(30, 90));
        QCOMPARE(item.boundingRect(), QRectF(30, 20, 70, 70));
        QCOMPARE(differenceToHand(&item, QLineF(100, 20, 30, 90), penOf(Qt::black, 0.5)),
                 QString());
    }

    void isTheHandDrawnLine_data()
    {
        QTest::addColumn<QLineF>("line");
        QTest::addColumn<float>("width");
        for (const NamedLine &row : lines) {
            for (const float width : {0.5F, 1.0F, 2.0F, 3.7F, 11.0F})
                QTest::addRow("%s, width %g", row.name, double(width)) << row.line << width;
        }
    }

    void isTheHandDrawnLine()
    {
        QFETCH(QLineF, line);
        QFETCH(float, width);
        KELLineItem item;
        setLine(&item, line);
        item.style()->borderWidth = width;
        for (const qreal scale : scales) {
            QCOMPARE(differenceToHand(&item, line, penOf(Qt::black, double(width)), scale),
                     QString());
        }
    }

    void isTheHandDrawnLineInEveryBrush_data()
    {
        QTest::addColumn<QBrush>("brush");
        QLinearGradient gradient(0, 0, 150, 80);
        gradient.setColorAt(0, Qt::yellow);
        gradient.setColorAt(1, Qt::darkBlue);
        QTest::newRow("colour") << QBrush(QColor(10, 200, 30));
        QTest::newRow("translucent") << QBrush(QColor(255, 0, 0, 100));
        QTest::newRow("gradient") << QBrush(gradient);
        QTest::newRow("pattern") << QBrush(Qt::darkGreen, Qt::DiagCrossPattern);
    }

    void isTheHandDrawnLineInEveryBrush()
    {
        QFETCH(QBrush, brush);
        const QLineF line(20, 15, 190, 100);
        KELLineItem item;
        setLine(&item, line);
        item.style()->borderBrush = brush;
        for (const float width : {0.5F, 9.0F}) {
            item.style()->borderWidth = width;
            for (const qreal scale : scales)
                QCOMPARE(differenceToHand(&item, line, penOf(brush, double(width)), scale),
                         QString());
            QVERIFY(!differenceToBlank(&item).isEmpty());
        }
    }

    void newLineIsBlackAndThin()
    {
        KELLineItem item;
        item.setLine(QPointF(10, 50), QPointF(200, 50));
        QCOMPARE(item.boundingRect(), QRectF(10, 50, 190, 0));
        QCOMPARE(differenceToHand(&item, QLineF(10, 50, 200, 50), penOf(Qt::black, 0.5)),
                 QString());
        // Half a pixel of black on paper is a whole pixel of the colour between them.
        const QImage image = KelImage::paint(&item, canvas);
        const QRect area = changedArea(image, paper);
        QCOMPARE(area.height(), 1);
        for (int x = 11; x < 199; ++x) {
            const QColor colour = image.pixelColor(x, area.y());
            QVERIFY(qAbs(colour.red() - 100) <= 2);
            QVERIFY(qAbs(colour.blue() - 120) <= 2);
        }
        const QImage twice = KelImage::paint(&item, canvas, 2);
        const QRect areaTwice = changedArea(twice, paper);
        QCOMPARE(areaTwice.height(), 1);
        for (int x = 22; x < 398; ++x)
            QCOMPARE(twice.pixelColor(x, areaTwice.y()), QColor(Qt::black));
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
        QFETCH(QLineF, line);
        QFETCH(QRect, area);
        KELLineItem item;
        setLine(&item, line);
        item.style()->borderWidth = 6;
        const QImage expected = KelImage::draw(
            canvas, 1, [&area](QPainter *painter) { painter->fillRect(area, Qt::black); });
        QCOMPARE(KelImage::difference(KelImage::paint(&item, canvas), expected), QString());
    }

    void rectangleIsNotUsedInDrawing()
    {
        for (const QRectF &rect :
             {QRectF(100, 100, 100, 30), QRectF(), QRectF(0, 0, -5, -5),
              QRectF(notANumber, infinite, 1, notANumber), QRectF(1e9, 1e9, 1, 1)}) {
            KELLineItem item;
            item.setLine(QPointF(20, 15), QPointF(190, 100));
            item.setboundRect(rect);
            QCOMPARE(differenceToHand(&item, QLineF(20, 15, 190, 100), penOf(Qt::black, 0.5)),
                     QString());
        }
    }

    void parentDoesNotMoveTheLine()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 100);
        auto *item = new KELLineItem(&parent);
        item->setLine(QPointF(20, 15), QPointF(190, 100));
        QCOMPARE(item->boundingRect().topLeft(), QPointF(30, 35));
        QCOMPARE(differenceToHand(item, QLineF(20, 15, 190, 100), penOf(Qt::black, 0.5)),
                 QString());
    }

    void otherFieldsAndStatesDoNotShow()
    {
        KELLineItem item;
        item.setLine(QPointF(20, 15), QPointF(190, 100));
        const QImage before = KelImage::paint(&item, canvas);
        KELRoundRectControlStyle *style = item.style();
        style->backgroundBrush = QBrush(Qt::red);
        style->foregroundBrush = QBrush(Qt::green);
        style->xRadius = style->yRadius = 9;
        style->text = u"Caption"_s;
        style->textFlags = Qt::AlignLeft;
        style->trimText = false;
        style->font.setPixelSize(30);
        style->margins = QMarginsF(3, 3, 3, 3);
        style->pixmap = QPixmap(20, 20);
        style->pixmap.fill(Qt::magenta);
        style->icon = KELIconFont('W');
        style->iconSize = 50;
        style->isMouseDown = true;
        item.setCheck(true);
        item.setEnabled(false);
        QCOMPARE(KelImage::difference(KelImage::paint(&item, canvas), before), QString());
    }

    void editOfTheRecordShows()
    {
        KELLineItem item;
        const QLineF line(20, 15, 190, 100);
        setLine(&item, line);
        item.style()->borderBrush = QBrush(Qt::red);
        item.style()->borderWidth = 5;
        QCOMPARE(differenceToHand(&item, line, penOf(Qt::red, 5)), QString());
        item.style()->borderBrush = QBrush(Qt::blue);
        item.style()->borderWidth = 2;
        QCOMPARE(differenceToHand(&item, line, penOf(Qt::blue, 2)), QString());
    }

    void noBrushDrawsNothing_data()
    {
        QTest::addColumn<float>("width");
        for (const float width : {0.0F, 0.5F, 1.0F, 12.0F, -3.0F})
            QTest::addRow("width %g", double(width)) << width;
    }

    void noBrushDrawsNothing()
    {
        QFETCH(float, width);
        KELLineItem item;
        item.style()->borderWidth = width;
        for (const NamedLine &row : lines) {
            setLine(&item, row.line);
            item.style()->borderBrush = QBrush(Qt::NoBrush);
            for (const qreal scale : scales)
                QCOMPARE(differenceToBlank(&item, scale), QString());
        }
        item.setLine(QPointF(20, 15), QPointF(190, 100));
        item.style()->borderWidth = 1;
        item.style()->borderBrush = QBrush(Qt::black);
        QVERIFY(KelImage::paint(&item, canvas) != KelImage::draw(canvas, 1, [](QPainter *) {}));
    }

    void widthOfZeroIsOnePixelAtEveryScale()
    {
        KELLineItem item;
        item.setLine(QPointF(20, 50), QPointF(190, 50));
        item.style()->borderWidth = 0;
        for (const qreal scale : {0.5, 1.0, 1.5, 2.0, 8.0}) {
            QCOMPARE(changedArea(KelImage::paint(&item, canvas, scale), paper).height(), 1);
            QCOMPARE(differenceToHand(&item, QLineF(20, 50, 190, 50), penOf(Qt::black, 0), scale),
                     QString());
        }
    }

    void negativeWidthDrawsNothing()
    {
        for (const float width : {-0.5F, -1.0F, -6.0F}) {
            for (const NamedLine &row : lines) {
                KELLineItem item;
                setLine(&item, row.line);
                item.style()->borderWidth = width;
                const QPen pen = penOf(Qt::black, double(width));
                for (const qreal scale : scales) {
                    QCOMPARE(differenceToBlank(&item, scale), QString());
                    QCOMPARE(differenceToHand(&item, row.line, pen, scale), QString());
                }
            }
        }
    }

    void widthThatIsNotFiniteDrawsNothing_data()
    {
        QTest::addColumn<float>("width");
        QTest::newRow("not a number") << float(notANumber);
        QTest::newRow("infinite") << float(infinite);
        QTest::newRow("infinite and negative") << float(-infinite);
    }

    void widthThatIsNotFiniteDrawsNothing()
    {
        QFETCH(float, width);
        for (const NamedLine &row : lines) {
            KELLineItem item;
            setLine(&item, row.line);
            item.style()->borderWidth = width;
            for (const qreal scale : scales)
                QCOMPARE(differenceToBlank(&item, scale), QString());
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
        QFETCH(QLineF, line);
        for (const float width : {0.0F, 0.5F, 12.0F}) {
            KELLineItem item;
            setLine(&item, line);
            item.style()->borderWidth = width;
            for (const qreal scale : scales)
                QCOMPARE(differenceToBlank(&item, scale), QString());
            item.setLine(QPointF(20, 15), QPointF(190, 100));
            QVERIFY(KelImage::paint(&item, canvas) != KelImage::draw(canvas, 1, [](QPainter *) {}));
        }
    }

    void antialiasingIsLeftAsItIs_data()
    {
        QTest::addColumn<bool>("smooth");
        QTest::newRow("off") << false;
        QTest::newRow("on") << true;
    }

    void antialiasingIsLeftAsItIs()
    {
        QFETCH(bool, smooth);
        KELLineItem item;
        item.setLine(QPointF(20.3, 15.2), QPointF(190, 100));
        item.style()->borderWidth = 5;
        QPainter::RenderHints hintsAfterwards;
        const QImage painted = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            painter->setRenderHint(QPainter::Antialiasing, smooth);
            item.paint(painter, nullptr);
            hintsAfterwards = painter->renderHints();
        });
        const QImage byHand = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            painter->setRenderHint(QPainter::Antialiasing, smooth);
            painter->setPen(penOf(Qt::black, 5));
            painter->drawLine(QLineF(20.3, 15.2, 190, 100));
        });
        QCOMPARE(KelImage::difference(painted, byHand), QString());
        QCOMPARE(hintsAfterwards.testFlag(QPainter::Antialiasing), smooth);
        QSet<QRgb> colours;
        for (int y = 0; y < painted.height(); ++y) {
            for (int x = 0; x < painted.width(); ++x)
                colours.insert(painted.pixel(x, y));
        }
        QCOMPARE(colours.size() > 2, smooth);
    }

    void paintSetsThePenOnly()
    {
        KELLineItem item;
        item.setLine(QPointF(20, 15), QPointF(190, 100));
        item.style()->borderBrush = QBrush(Qt::darkGreen, Qt::DiagCrossPattern);
        item.style()->borderWidth = 3.5F;
        QImage image(canvas, QImage::Format_ARGB32_Premultiplied);
        image.fill(paper);
        QPainter painter(&image);
        painter.setBrush(QBrush(Qt::red));
        painter.setPen(QPen(Qt::green, 9, Qt::DotLine));
        painter.setFont(QFont(u"Some Family"_s, 33));
        painter.translate(3, 4);
        const QFont font = painter.font();
        const QPainter::RenderHints hints = painter.renderHints();
        item.paint(&painter, nullptr);
        QCOMPARE(painter.pen(), penOf(QBrush(Qt::darkGreen, Qt::DiagCrossPattern), 3.5));
        QCOMPARE(painter.brush(), QBrush(Qt::red));
        QCOMPARE(painter.font(), font);
        QCOMPARE(painter.renderHints(), hints);
        QCOMPARE(painter.worldTransform(), QTransform::fromTranslate(3, 4));
        QVERIFY(!painter.hasClipping());
    }

    void argumentsAreNotRead()
    {
        KELLineItem item;
        item.setLine(QPointF(20, 15), QPointF(190, 100));
        const QImage painted = KelImage::draw(
            canvas, 1, [&item](QPainter *painter) { item.paint(painter, nullptr, nullptr); });
        QCOMPARE(KelImage::difference(painted, KelImage::paint(&item, canvas)), QString());
    }

    void paintingLeavesTheRecordAlone()
    {
        KELLineItem item;
        item.setLine(QPointF(20, 15), QPointF(190, 100));
        item.style()->borderBrush = QBrush(Qt::red);
        item.style()->borderWidth = 3;
        const QImage first = KelImage::paint(&item, canvas);
        QCOMPARE(item.style()->borderBrush, QBrush(Qt::red));
        QCOMPARE(item.style()->borderWidth, 3.0F);
        QCOMPARE(item.style()->boundRect, QRectF(20, 15, 170, 85));
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
        QFETCH(QLineF, line);
        KELLineItem item;
        setLine(&item, line);
        for (const int width : {2, 4, 20}) {
            item.style()->borderWidth = float(width);
            const QRectF reached = item.boundingRect().adjusted(-width / 2, -width / 2, width / 2,
                                                                width / 2);
            for (const int scale : {1, 2}) {
                const QRectF scaled(reached.topLeft() * scale, reached.size() * scale);
                QCOMPARE(changedArea(KelImage::paint(&item, canvas, scale), paper),
                         scaled.toRect());
            }
        }
    }

    void paintsNothingBeyondHalfItsWidth_data()
    {
        QTest::addColumn<QLineF>("line");
        for (const NamedLine &row : lines) {
            // Qt gives a line without length a length of its own.
            if (!row.line.isNull())
                QTest::newRow(row.name) << row.line;
        }
    }

    void paintsNothingBeyondHalfItsWidth()
    {
        QFETCH(QLineF, line);
        KELLineItem item;
        setLine(&item, line);
        for (const float width : {0.5F, 1.0F, 5.0F, 12.0F}) {
            item.style()->borderWidth = width;
            for (const qreal scale : scales) {
                // The corner of a slanted line's square end is the farthest, and Qt rounds to whole
                // pixels.
                const qreal reach = std::max(double(width), 1 / scale) / 2 * M_SQRT2 + 1 / scale;
                const QRectF box = item.boundingRect().adjusted(-reach, -reach, reach, reach);
                const QRectF scaled(box.topLeft() * scale, box.size() * scale);
                const QRect area = changedArea(KelImage::paint(&item, canvas, scale), paper);
                QVERIFY(area.isEmpty() || scaled.contains(QRectF(area)));
            }
        }
    }

    void isVisibleInACachedView_data()
    {
        QTest::addColumn<QLineF>("line");
        QTest::addColumn<float>("width");
        QTest::addColumn<qreal>("scale");
        const NamedLine visible[] = {
            {"horizontal", QLineF(10, 50, 150, 50)},
            {"horizontal, to the left", QLineF(150, 50, 10, 50)},
            {"horizontal between two rows", QLineF(10.5, 50.5, 150.5, 50.5)},
            {"vertical", QLineF(60, 10, 60, 120)},
            {"falling", QLineF(20, 15, 150, 100)},
            {"rising", QLineF(20, 100, 150, 15)},
        };
        for (const NamedLine &row : visible) {
            for (const float width : {0.0F, 0.5F, 1.0F}) {
                for (const qreal scale : scales) {
                    QTest::addRow("%s, width %g, scaled by %g", row.name, double(width), scale)
                        << row.line << width << scale;
                }
            }
        }
    }

    // The rectangle of a horizontal line is empty, and the view keeps a picture of what is in
    // there.
    void isVisibleInACachedView()
    {
        QFETCH(QLineF, line);
        QFETCH(float, width);
        QFETCH(qreal, scale);
        KelTestView view;
        auto *item = new KELLineItem;
        setLine(item, line);
        item->style()->borderWidth = width;
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
        painter.setPen(penOf(Qt::black, double(width)));
        painter.drawLine(line);
        painter.end();
        QImage byHand(onScreen.size(), onScreen.format());
        byHand.fill(Qt::white);
        QPainter(&byHand).drawImage(0, 0, kept);
        QVERIFY(changedArea(byHand, Qt::white).isValid());
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
        QFETCH(QLineF, line);
        for (const float width : {2.0F, 4.0F, 15.0F}) {
            KelTestView view;
            auto *item = new KELLineItem;
            setLine(item, line);
            item->style()->borderWidth = width;
            view.ownScene.addItem(item);
            QVERIFY(view.showAndWait());
            const QImage onScreen = view.grab().toImage();
            for (const qreal along : {0.01, 0.5, 0.99})
                QCOMPARE(onScreen.pixelColor(line.pointAt(along).toPoint()), QColor(Qt::black));
        }
    }
};

KEL_TEST_MAIN(tst_KELLineItem)
#include "tst_kellineitem.moc"
