// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"

#include <kelradiobox.h>

#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>

#include <limits>

namespace {

const QSize canvas(150, 110);
constexpr qreal scales[] = {0.5, 1, 1.5, 2};
const QColor dotColour(50, 173, 235);

// A radio box drawn by hand, step by step. It shares no code with the
// library, so that a mistake there shows up as a difference.
struct HandDrawing
{
    QRectF rect;
    QBrush fill = QBrush(Qt::NoBrush);
    QBrush outline = QColor(255, 255, 255);
    double outlineWidth = 2;
    QBrush dot = QColor(50, 173, 235);
    bool checked = false;

    void draw(QPainter *painter) const
    {
        const double left = rect.x() + rect.width() / 2 - 12.5;
        const double top = rect.y() + rect.height() / 2 - 12.5;
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(outline, outlineWidth, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        painter->setBrush(fill);
        painter->drawEllipse(QRectF(left, top, 25, 25));
        if (!checked)
            return;
        painter->setPen(Qt::NoPen);
        painter->setBrush(dot);
        painter->drawEllipse(QRectF(left + 3, top + 3, 19, 19));
    }
};

QString differenceFrom(const HandDrawing &expected, KELRadioBox *box, qreal scale = 1)
{
    const QImage wanted = KelImage::draw(
        canvas, scale, [&expected](QPainter *painter) { expected.draw(painter); });
    return KelImage::difference(KelImage::paint(box, canvas, scale), wanted);
}

KELRoundRectControlStyle *recordOf(const KELRadioBox &box)
{
    return box.KELRoundRectControl::style();
}

void compareWithRadioDefaults(const KELRoundRectControlStyle &record)
{
    QCOMPARE(record.backgroundBrush, QBrush(Qt::NoBrush));
    QCOMPARE(record.borderBrush, QBrush(QColor(255, 255, 255)));
    QCOMPARE(record.borderWidth, 2.0F);
    QCOMPARE(record.foregroundBrush, QBrush(QColor(50, 173, 235, 255)));
}

} // namespace

class tst_KELRadioBox : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasTheDefaultsOfARadioBox()
    {
        const KELRadioBox box;
        const KELRoundRectControlStyle &record = *recordOf(box);
        compareWithRadioDefaults(record);
        QCOMPARE(record.boundRect, QRectF(100, 100, 100, 30));
        QCOMPARE(record.xRadius, 0.0);
        QCOMPARE(record.yRadius, 0.0);
        QVERIFY(record.text.isNull());
        QCOMPARE(record.textFlags, 0x1084);
        QVERIFY(record.trimText);
        QCOMPARE(record.font, QFont());
        QCOMPARE(record.contextMenu, nullptr);
        QCOMPARE(record.margins, QMarginsF());
        QVERIFY(record.pixmap.isNull());
        QVERIFY(record.icon.isNull());
        QCOMPARE(record.iconSize, 30);
        QVERIFY(!record.isMouseDown);
        QVERIFY(!record.isCheck);
    }

    void takesPointerInput() { ControlTest::takesPointerInput<KELRadioBox>(); }

    void hasAParentItem() { ControlTest::hasAParentItem<KELRadioBox>(); }

    void declaresItsInterface()
    {
        const QMetaObject &meta = KELRadioBox::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELRadioBox"));
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
        QCOMPARE(property.notifySignal().methodSignature(), QByteArray("checkChanged()"));
    }

    void initStyleIsThatOfTheBase()
    {
        KELRadioBox box;
        const QScopedPointer<KELRoundRectControlStyle> made(box.initStyle());
        QVERIFY(made.data() != recordOf(box));
        QCOMPARE(made->backgroundBrush, QBrush(QColor(0, 0, 0, 20)));
        QCOMPARE(made->borderWidth, 0.5F);
        compareWithRadioDefaults(*recordOf(box));
    }

    void styleResetsFourFields()
    {
        KELRadioBox box;
        KELRoundRectControlStyle *record = box.style();
        record->borderWidth = 7;
        QCOMPARE(box.style()->borderWidth, 2.0F);
        record->backgroundBrush = QBrush(Qt::red);
        QCOMPARE(box.style()->backgroundBrush, QBrush(Qt::NoBrush));
        record->borderBrush = QBrush(Qt::red);
        QCOMPARE(box.style()->borderBrush, QBrush(Qt::white));
        record->foregroundBrush = QBrush(Qt::red);
        QCOMPARE(box.style()->foregroundBrush, QBrush(dotColour));
    }

    void styleLeavesTheOtherFieldsAlone()
    {
        KELRadioBox box;
        QFont font;
        font.setPixelSize(33);
        KELRoundRectControlStyle *record = box.style();
        record->boundRect = QRectF(1, 2, 3, 4);
        record->xRadius = 5;
        record->yRadius = 6;
        record->text = u"Slow"_s;
        record->textFlags = Qt::AlignRight;
        record->trimText = false;
        record->font = font;
        record->margins = QMarginsF(1, 2, 3, 4);
        record->pixmap = QPixmap(3, 3);
        record->icon = KELIconFont('x');
        record->iconSize = 12;
        record->isMouseDown = true;
        record->isCheck = true;
        record = box.style();
        QCOMPARE(record->boundRect, QRectF(1, 2, 3, 4));
        QCOMPARE(record->xRadius, 5.0);
        QCOMPARE(record->yRadius, 6.0);
        QCOMPARE(record->text, u"Slow"_s);
        QCOMPARE(record->textFlags, int(Qt::AlignRight));
        QVERIFY(!record->trimText);
        QCOMPARE(record->font, font);
        QCOMPARE(record->margins, QMarginsF(1, 2, 3, 4));
        QCOMPARE(record->pixmap.size(), QSize(3, 3));
        QCOMPARE(record->icon.getIcon(), QChar('x'));
        QCOMPARE(record->iconSize, 12);
        QVERIFY(record->isMouseDown);
        QVERIFY(record->isCheck);
    }

    void styleReturnsTheRecord()
    {
        KELRadioBox box;
        QCOMPARE(box.style(), recordOf(box));
        QCOMPARE(box.style(), box.style());
    }

    void keptPointerEditsTheRecord()
    {
        KELRadioBox box;
        box.setboundRect(20, 20, 100, 50);
        box.style()->borderBrush = QBrush(Qt::red);
        HandDrawing expected;
        expected.rect = QRectF(20, 20, 100, 50);
        expected.outline = QBrush(Qt::red);
        QCOMPARE(differenceFrom(expected, &box), QString());
    }

    void baseStyleDoesNotReset()
    {
        KELRadioBox box;
        KELRoundRectControl &base = box;
        base.style()->backgroundBrush = QBrush(Qt::red);
        base.style()->borderBrush = QBrush(Qt::green);
        base.style()->borderWidth = 7;
        base.style()->foregroundBrush = QBrush(Qt::blue);
        QCOMPARE(base.style()->backgroundBrush, QBrush(Qt::red));
        QCOMPARE(base.style()->borderBrush, QBrush(Qt::green));
        QCOMPARE(base.style()->borderWidth, 7.0F);
        QCOMPARE(base.style()->foregroundBrush, QBrush(Qt::blue));
    }

    void paintingAndCheckingDoNotReset()
    {
        KELRadioBox box;
        recordOf(box)->borderWidth = 7;
        KelImage::paint(&box, canvas);
        box.setCheck(true);
        KelImage::paint(&box, canvas);
        box.setboundRect(1, 2, 3, 4);
        box.setText(u"Slow"_s);
        box.setEnabled(false);
        QCOMPARE(recordOf(box)->borderWidth, 7.0F);
    }

    void isTheHandDrawnPicture_data()
    {
        QTest::addColumn<QRectF>("rect");

        QTest::newRow("wide") << QRectF(20, 20, 100, 50);
        QTest::newRow("high") << QRectF(20, 10, 40, 90);
        QTest::newRow("as large as the circle") << QRectF(50, 40, 25, 25);
        QTest::newRow("odd sizes") << QRectF(20, 20, 61, 43);
        QTest::newRow("fractions") << QRectF(20.3, 20.7, 60.45, 40.9);
        QTest::newRow("without size") << QRectF(60, 50, 0, 0);
        QTest::newRow("negative size") << QRectF(90, 80, -40, -30);
    }

    void isTheHandDrawnPicture()
    {
        QFETCH(QRectF, rect);
        KELRadioBox box;
        box.setboundRect(rect);
        HandDrawing expected;
        expected.rect = rect;
        for (const bool checked : {false, true}) {
            box.setCheck(checked);
            expected.checked = checked;
            for (const qreal scale : scales)
                QCOMPARE(differenceFrom(expected, &box, scale), QString());
        }
    }

    void isTheHandDrawnPictureWithEveryField()
    {
        QLinearGradient colours(30, 0, 110, 0);
        colours.setColorAt(0, Qt::red);
        colours.setColorAt(1, Qt::green);
        KELRadioBox box;
        KELRoundRectControlStyle *record = recordOf(box);
        HandDrawing expected;
        record->boundRect = expected.rect = QRectF(20, 20, 100, 50);
        record->backgroundBrush = expected.fill = QBrush(QColor(20, 90, 40, 120),
                                                         Qt::DiagCrossPattern);
        record->borderBrush = expected.outline = colours;
        record->foregroundBrush = expected.dot = QColor(200, 10, 90, 180);
        record->xRadius = 9;
        record->yRadius = 4;
        record->margins = QMarginsF(5, 6, 7, 8);
        for (const float width : {0.5F, 1.0F, 3.5F, 9.0F}) {
            record->borderWidth = width;
            expected.outlineWidth = double(width);
            for (const bool checked : {false, true}) {
                box.setCheck(checked);
                expected.checked = checked;
                for (const qreal scale : scales)
                    QCOMPARE(differenceFrom(expected, &box, scale), QString());
            }
        }
    }

    void circleIsPlacedByTheStoredRectangle()
    {
        KELRoundRectControl parent;
        parent.setboundRect(30, 40, 100, 60);
        auto *box = new KELRadioBox(&parent);
        box->setboundRect(5, 6, 60, 40);
        box->setCheck(true);
        QCOMPARE(box->boundingRect(), QRectF(35, 46, 60, 40));
        HandDrawing expected;
        expected.rect = QRectF(5, 6, 60, 40);
        expected.checked = true;
        for (const qreal scale : scales)
            QCOMPARE(differenceFrom(expected, box, scale), QString());
    }

    void circleIsInTheMiddleWithAParentAtTheOrigin()
    {
        // A parent whose rectangle begins at (0, 0) has the circle where the box is.
        KELRoundRectControl parent;
        parent.setboundRect(0, 0, 140, 100);
        auto *box = new KELRadioBox(&parent);
        box->setboundRect(40, 30, 60, 40);
        QCOMPARE(box->boundingRect(), QRectF(40, 30, 60, 40));
        HandDrawing expected;
        expected.rect = QRectF(40, 30, 60, 40);
        QCOMPARE(differenceFrom(expected, box), QString());
        QCOMPARE(KelImage::pixelsOutside(box), QString());
    }

    void dotIsDrawnOnlyWhenChecked()
    {
        KELRadioBox box;
        box.setboundRect(20, 20, 100, 50);
        const auto colourInTheMiddle = [&box] {
            return KelImage::paint(&box, canvas).pixelColor(70, 45);
        };
        const QColor background = KelImage::draw(canvas, 1, [](QPainter *) {}).pixelColor(70, 45);
        QCOMPARE(colourInTheMiddle(), background);
        box.setCheck(true);
        QCOMPARE(colourInTheMiddle(), dotColour);
        box.setCheck(false);
        QCOMPARE(colourInTheMiddle(), background);
    }

    void disabledLooksTheSame()
    {
        KELRadioBox box;
        HandDrawing expected;
        box.setboundRect(20, 20, 100, 50);
        expected.rect = QRectF(20, 20, 100, 50);
        box.setEnabled(false);
        QCOMPARE(differenceFrom(expected, &box), QString());
        box.setCheck(true);
        expected.checked = true;
        QCOMPARE(differenceFrom(expected, &box), QString());
    }

    void pressedLooksTheSame()
    {
        KELRadioBox box;
        HandDrawing expected;
        box.setboundRect(20, 20, 100, 50);
        expected.rect = QRectF(20, 20, 100, 50);
        recordOf(box)->isMouseDown = true;
        QCOMPARE(differenceFrom(expected, &box), QString());
    }

    void captionAndPicturesAreNotDrawn()
    {
        KELRadioBox box;
        HandDrawing expected;
        box.setboundRect(20, 20, 100, 50);
        expected.rect = QRectF(20, 20, 100, 50);
        recordOf(box)->text = u"Slow"_s;
        recordOf(box)->icon = KELIconFont('M');
        recordOf(box)->pixmap = QPixmap(40, 30);
        recordOf(box)->pixmap.fill(Qt::magenta);
        QCOMPARE(differenceFrom(expected, &box), QString());
    }

    void widthZeroIsAThinLine()
    {
        KELRadioBox box;
        HandDrawing expected;
        box.setboundRect(20, 20, 100, 50);
        expected.rect = QRectF(20, 20, 100, 50);
        recordOf(box)->borderWidth = 0;
        expected.outlineWidth = 0;
        for (const qreal scale : scales)
            QCOMPARE(differenceFrom(expected, &box, scale), QString());
        // Not nothing: a pen of width 0 is one pixel wide.
        QVERIFY(KelImage::paint(&box, canvas) != KelImage::draw(canvas, 1, [](QPainter *) {}));
    }

    void withoutOutlineTheCircleIsFilled()
    {
        KELRadioBox box;
        HandDrawing expected;
        box.setboundRect(20, 20, 100, 50);
        expected.rect = QRectF(20, 20, 100, 50);
        recordOf(box)->borderBrush = QBrush(Qt::NoBrush);
        recordOf(box)->backgroundBrush = QBrush(Qt::darkGreen);
        expected.outline = QBrush(Qt::NoBrush);
        expected.fill = QBrush(Qt::darkGreen);
        QCOMPARE(differenceFrom(expected, &box), QString());
    }

    void withoutForegroundThereIsNoDot()
    {
        KELRadioBox box;
        box.setboundRect(20, 20, 100, 50);
        recordOf(box)->foregroundBrush = QBrush(Qt::NoBrush);
        const QImage unchecked = KelImage::paint(&box, canvas);
        box.setCheck(true);
        QCOMPARE(KelImage::difference(KelImage::paint(&box, canvas), unchecked), QString());
    }

    void painterOfTheCallerDoesNotMatter()
    {
        KELRadioBox box;
        box.setboundRect(20, 20, 100, 50);
        box.setCheck(true);
        HandDrawing expected;
        expected.rect = QRectF(20, 20, 100, 50);
        expected.checked = true;
        const QImage actual = KelImage::draw(canvas, 1, [&box](QPainter *painter) {
            painter->setPen(QPen(Qt::red, 9));
            painter->setBrush(QBrush(Qt::red));
            box.paint(painter, nullptr);
        });
        const QImage wanted = KelImage::draw(
            canvas, 1, [&expected](QPainter *painter) { expected.draw(painter); });
        QCOMPARE(KelImage::difference(actual, wanted), QString());
    }

    void outlineReachesOutByHalfItsWidth_data()
    {
        QTest::addColumn<float>("width");
        QTest::addColumn<qreal>("size");
        QTest::addColumn<bool>("inside");

        QTest::newRow("default width, 27 px") << 2.0F << 27.0 << true;
        QTest::newRow("default width, 26 px") << 2.0F << 26.0 << false;
        QTest::newRow("default width, 25 px") << 2.0F << 25.0 << false;
        QTest::newRow("width 6, 31 px") << 6.0F << 31.0 << true;
        QTest::newRow("width 6, 29 px") << 6.0F << 29.0 << false;
    }

    void outlineReachesOutByHalfItsWidth()
    {
        QFETCH(float, width);
        QFETCH(qreal, size);
        QFETCH(bool, inside);
        KELRadioBox box;
        box.setboundRect(10, 10, size, size);
        recordOf(box)->borderBrush = QBrush(Qt::black);
        recordOf(box)->borderWidth = width;
        QCOMPARE(KelImage::pixelsOutside(&box).isEmpty(), inside);
    }

    void tinyBoxPaintsOutside_data()
    {
        QTest::addColumn<QSizeF>("size");

        QTest::newRow("1 x 1") << QSizeF(1, 1);
        QTest::newRow("20 x 20") << QSizeF(20, 20);
        QTest::newRow("3 x 60") << QSizeF(3, 60);
        QTest::newRow("60 x 3") << QSizeF(60, 3);
    }

    void tinyBoxPaintsOutside()
    {
        QFETCH(QSizeF, size);
        KELRadioBox box;
        box.setboundRect(QRectF(QPointF(60, 40), size));
        box.setCheck(true);
        HandDrawing expected;
        expected.rect = QRectF(QPointF(60, 40), size);
        expected.checked = true;
        for (const qreal scale : scales) {
            QVERIFY(!KelImage::pixelsOutside(&box, scale).isEmpty());
            QCOMPARE(differenceFrom(expected, &box, scale), QString());
        }
    }

    void oddGeometryDrawsNothing_data()
    {
        QTest::addColumn<QRectF>("rect");

        const qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
        const qreal infinite = std::numeric_limits<qreal>::infinity();
        QTest::newRow("x not a number") << QRectF(notANumber, 20, 80, 30);
        QTest::newRow("y not a number") << QRectF(40, notANumber, 80, 30);
        QTest::newRow("width not a number") << QRectF(40, 20, notANumber, 30);
        QTest::newRow("height not a number") << QRectF(40, 20, 80, notANumber);
        QTest::newRow("x infinite") << QRectF(infinite, 20, 80, 30);
        QTest::newRow("width infinite") << QRectF(40, 20, infinite, 30);
        QTest::newRow("height infinite") << QRectF(40, 20, 80, infinite);
    }

    void oddGeometryDrawsNothing()
    {
        QFETCH(QRectF, rect);
        KELRadioBox box;
        box.setboundRect(rect);
        const QImage blank = KelImage::draw(canvas, 1, [](QPainter *) {});
        for (const bool checked : {false, true}) {
            box.setCheck(checked);
            QCOMPARE(KelImage::difference(KelImage::paint(&box, canvas), blank), QString());
        }
    }

    void paintingLeavesTheRecordAlone()
    {
        KELRadioBox box;
        box.setboundRect(20, 20, 100, 50);
        box.setCheck(true);
        const QImage first = KelImage::paint(&box, canvas);
        QCOMPARE(KelImage::difference(KelImage::paint(&box, canvas), first), QString());
        compareWithRadioDefaults(*recordOf(box));
        QVERIFY(box.isCheck());
    }

    void checkedEventTellsItsArgument_data()
    {
        QTest::addColumn<bool>("stored");
        QTest::addColumn<bool>("argument");
        QTest::addColumn<QString>("names");

        QTest::newRow("off, told off") << false << false << u"unchecked changed"_s;
        QTest::newRow("off, told on") << false << true << u"checked changed"_s;
        QTest::newRow("on, told off") << true << false << u"unchecked changed"_s;
        QTest::newRow("on, told on") << true << true << u"checked changed"_s;
    }

    void checkedEventTellsItsArgument()
    {
        QFETCH(bool, stored);
        QFETCH(bool, argument);
        QFETCH(QString, names);
        KELRadioBox box;
        QStringList told;
        connect(&box, &KELRadioBox::checked, this, [&] { told.append(u"checked"_s); });
        connect(&box, &KELRadioBox::unchecked, this, [&] { told.append(u"unchecked"_s); });
        connect(&box, &KELRadioBox::checkChanged, this, [&] { told.append(u"changed"_s); });
        recordOf(box)->isCheck = stored;
        box.onCheckedEvent(argument);
        QCOMPARE(told.join(QLatin1Char(' ')), names);
        QCOMPARE(box.isCheck(), stored);
    }
};

KEL_TEST_MAIN(tst_KELRadioBox)
#include "tst_kelradiobox.moc"
