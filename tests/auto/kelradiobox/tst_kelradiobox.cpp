// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"
#include "handdrawing.h"
#include "record.h"
#include "rows.h"

#include <kelradiobox.h>

namespace {

const QSize canvas(150, 110);
const QRectF usualRect(20, 20, 100, 50);
const QColor dotColour(50, 173, 235);

KELRoundRectControlStyle *recordOf(const KELRadioBox &box)
{
    return box.KELRoundRectControl::style();
}

class PaintedBox : public KELRadioBox
{
public:
    explicit PaintedBox(const QRectF &rect = usualRect) { setboundRect(rect); }
    KELRoundRectControlStyle *operator->() const { return recordOf(*this); }
};

// What a radio box with this record looks like, step by step.
void drawByHand(QPainter *painter, const KELRoundRectControlStyle &record)
{
    const QRectF rect = record.boundRect;
    const double left = rect.x() + rect.width() / 2 - 12.5;
    const double top = rect.y() + rect.height() / 2 - 12.5;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(HandDrawing::squarePen(record.borderBrush, double(record.borderWidth)));
    painter->setBrush(record.backgroundBrush);
    painter->drawEllipse(QRectF(left, top, 25, 25));
    if (!record.isCheck)
        return;
    painter->setPen(Qt::NoPen);
    painter->setBrush(record.foregroundBrush);
    painter->drawEllipse(QRectF(left + 3, top + 3, 19, 19));
}

// The circle is that of record, whatever the box has.
QString differenceFrom(const KELRoundRectControlStyle &record, KELRadioBox *box)
{
    QString difference;
    for (const qreal scale : {0.5, 1.0, 1.5, 2.0}) {
        difference += KelImage::differenceFrom(
            [&](QPainter *painter) { drawByHand(painter, record); }, box, canvas, scale);
    }
    return difference;
}

QString differenceToHand(KELRadioBox *box)
{
    return differenceFrom(*recordOf(*box), box);
}

void setLook(KELRoundRectControlStyle *record)
{
    record->backgroundBrush = QBrush(Qt::NoBrush);
    record->borderBrush = QColor(Qt::white);
    record->borderWidth = 2;
    record->foregroundBrush = dotColour;
}

const std::vector<Named> checkedOrNot = {{"unchecked", false}, {"checked", true}};

} // namespace

class tst_KELRadioBox : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasTheDefaultsOfARadioBox()
    {
        const KELRadioBox box;
        KELRoundRectControlStyle expected = Record::defaults();
        setLook(&expected);
        QCOMPARE(Record::difference(*recordOf(box), expected), QString());
    }

    void takesPointerInput() { ControlTest::takesPointerInput<KELRadioBox>(); }

    void declaresItsInterface() { ControlTest::declaresACheck<KELRadioBox>("KELRadioBox"); }

    void initStyleIsThatOfTheBase()
    {
        KELRadioBox box;
        const KELRoundRectControlStyle before = *recordOf(box);
        const QScopedPointer<KELRoundRectControlStyle> made(box.initStyle());
        QVERIFY(made.data() != recordOf(box));
        QCOMPARE(Record::difference(*made, Record::defaults()), QString());
        QCOMPARE(Record::difference(*recordOf(box), before), QString());
    }

    void styleResetsFourFieldsEachTime()
    {
        KELRadioBox box;
        for (int i = 0; i < 2; ++i) {
            Record::fill(recordOf(box));
            KELRoundRectControlStyle expected = *recordOf(box);
            setLook(&expected);
            QCOMPARE(box.style(), recordOf(box));
            QCOMPARE(Record::difference(*recordOf(box), expected), QString());
        }
    }

    void keptPointerEditsTheRecord()
    {
        PaintedBox box;
        KELRoundRectControlStyle expected = *recordOf(box);
        expected.borderBrush = QBrush(Qt::red);
        box.style()->borderBrush = QBrush(Qt::red);
        QCOMPARE(differenceFrom(expected, &box), QString());
    }

    void baseStyleDoesNotReset()
    {
        KELRadioBox box;
        KELRoundRectControl &base = box;
        Record::fill(base.style());
        const KELRoundRectControlStyle expected = *recordOf(box);
        QCOMPARE(Record::difference(*base.style(), expected), QString());
        QCOMPARE(base.style()->borderWidth, 7.25F);
    }

    void paintingAndCheckingDoNotReset()
    {
        KELRadioBox box;
        Record::fill(recordOf(box));
        recordOf(box)->isCheck = false;
        KELRoundRectControlStyle expected = *recordOf(box);
        KelImage::paint(&box, canvas);
        box.setCheck(true);
        KelImage::paint(&box, canvas);
        box.setboundRect(1, 2, 3, 4);
        box.setText(u"Slow"_s);
        box.setEnabled(false);
        expected.isCheck = true;
        expected.text = u"Slow"_s;
        QCOMPARE(Record::difference(*recordOf(box), expected), QString());
    }

    void isTheHandDrawnPicture_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::newRow("wide") << usualRect;
        QTest::newRow("high") << QRectF(20, 10, 40, 90);
        QTest::newRow("as large as the circle") << QRectF(50, 40, 25, 25);
        QTest::newRow("odd sizes") << QRectF(20, 20, 61, 43);
        QTest::newRow("fractions") << QRectF(20.3, 20.7, 60.45, 40.9);
        QTest::newRow("narrower than the circle") << QRectF(60, 40, 3, 60);
        QTest::newRow("without size") << QRectF(60, 50, 0, 0);
        QTest::newRow("negative size") << QRectF(90, 80, -40, -30);
    }

    void isTheHandDrawnPicture()
    {
        PaintedBox box(fetch<QRectF>("rect"));
        for (const bool checked : {false, true}) {
            box.setCheck(checked);
            QCOMPARE(differenceToHand(&box), QString());
        }
    }

    void isTheHandDrawnPictureWithEveryField_data() { addRows({{"checked", checkedOrNot}}); }

    void isTheHandDrawnPictureWithEveryField()
    {
        PaintedBox box;
        box.setCheck(fetch<bool>("checked"));
        box->backgroundBrush = QBrush(QColor(20, 90, 40, 120), Qt::DiagCrossPattern);
        box->borderBrush = HandDrawing::gradient();
        box->foregroundBrush = QColor(200, 10, 90, 180);
        box->xRadius = 9;
        box->yRadius = 4;
        box->margins = QMarginsF(5, 6, 7, 8);
        for (const float width : {0.5F, 1.0F, 3.5F, 9.0F}) {
            box->borderWidth = width;
            QCOMPARE(differenceToHand(&box), QString());
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
        QCOMPARE(differenceToHand(box), QString());
    }

    void dotIsDrawnOnlyWhenChecked()
    {
        PaintedBox box;
        const auto middle = [&box] { return KelImage::paint(&box, canvas).pixelColor(70, 45); };
        QCOMPARE(middle(), KelImage::paper);
        box.setCheck(true);
        QCOMPARE(middle(), dotColour);
        box.setCheck(false);
        QCOMPARE(middle(), KelImage::paper);
    }

    void otherFieldsAndStatesDoNotShow_data() { addRows({{"checked", checkedOrNot}}); }

    void otherFieldsAndStatesDoNotShow()
    {
        PaintedBox box;
        box.setCheck(fetch<bool>("checked"));
        const KELRoundRectControlStyle expected = *recordOf(box);
        Record::fill(recordOf(box));
        setLook(recordOf(box));
        box->boundRect = usualRect;
        box->isCheck = expected.isCheck;
        box.setEnabled(false);
        QVERIFY(box->isMouseDown);
        QCOMPARE(differenceFrom(expected, &box), QString());
    }

    void widthZeroIsAThinLine()
    {
        PaintedBox box;
        box->borderWidth = 0;
        QCOMPARE(differenceToHand(&box), QString());
        // Not nothing: a pen of width 0 is one pixel wide.
        QVERIFY(KelImage::paint(&box, canvas) != KelImage::blank(canvas));
    }

    void withoutOutlineTheCircleIsFilled()
    {
        PaintedBox box;
        box->borderBrush = QBrush(Qt::NoBrush);
        box->backgroundBrush = QBrush(Qt::darkGreen);
        QCOMPARE(differenceToHand(&box), QString());
    }

    void withoutForegroundThereIsNoDot()
    {
        PaintedBox box;
        box->foregroundBrush = QBrush(Qt::NoBrush);
        const QImage unchecked = KelImage::paint(&box, canvas);
        box.setCheck(true);
        QCOMPARE(KelImage::difference(KelImage::paint(&box, canvas), unchecked), QString());
    }

    void painterOfTheCallerDoesNotMatter()
    {
        PaintedBox box;
        box.setCheck(true);
        const QImage actual = KelImage::draw(canvas, 1, [&box](QPainter *painter) {
            painter->setPen(QPen(Qt::red, 9));
            painter->setBrush(QBrush(Qt::red));
            box.paint(painter, nullptr);
        });
        QCOMPARE(KelImage::difference(actual, KelImage::paint(&box, canvas)), QString());
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
        QFETCH(bool, inside);
        const auto size = fetch<qreal>("size");
        PaintedBox box(QRectF(10, 10, size, size));
        box->borderBrush = QBrush(Qt::black);
        box->borderWidth = fetch<float>("width");
        QCOMPARE(KelImage::paintsOutside(&box), !inside);
    }
};

KEL_TEST_MAIN(tst_KELRadioBox)
#include "tst_kelradiobox.moc"
