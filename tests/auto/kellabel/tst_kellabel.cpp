// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"
#include "handdrawing.h"
#include "looks.h"
#include "record.h"
#include "stage.h"

#include <kellabel.h>

namespace {

const QSize canvas(200, 120);

// Those of a label that differ from the base.
KELRoundRectControlStyle labelDefaults()
{
    KELRoundRectControlStyle record = Record::defaults();
    record.foregroundBrush = QColor(Qt::white);
    record.backgroundBrush = QBrush(Qt::NoBrush);
    record.borderWidth = 0;
    return record;
}

QString differenceToHand(KELLabel *label, const QRectF &rect)
{
    const auto byHand = [&](QPainter *painter) {
        HandDrawing::drawControl(painter, *label->style(), rect);
    };
    return KelImage::differenceFrom(byHand, label, canvas);
}

// A label or a plain control above a button, which is the other one.
struct AboveAButton : Stage<KELRoundRectControl>
{
    explicit AboveAButton(KELRoundRectControl *made = new KELLabel) :
        Stage(QRectF(100, 100, 100, 50), made)
    {
        other->setboundRect(90, 90, 120, 70);
        other->setZValue(-1);
    }
};

} // namespace

class tst_KELLabel : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasTheDefaultsOfALabel()
    {
        QCOMPARE(Record::difference(*KELLabel().style(), labelDefaults()), QString());
    }

    void inputSettingsAreThoseOfTheBase() { ControlTest::hasInputSettingsOfTheBase<KELLabel>(); }

    void hasAParentItem() { ControlTest::hasAParentItem<KELLabel>(); }

    void declaresNoInterfaceOfItsOwn()
    {
        ControlTest::declaresNoInterfaceOfItsOwn<KELLabel>("KELLabel");
    }

    void initStyleChangesThePresentRecord()
    {
        Restyled<KELLabel> label;
        QMenu menu;
        KELRoundRectControlStyle *const style = label.style();
        Record::fill(style);
        style->contextMenu = &menu;
        KELRoundRectControlStyle expected = *style;
        expected.foregroundBrush = QColor(Qt::white);
        expected.backgroundBrush = QBrush(Qt::NoBrush);
        expected.borderWidth = 0;
        label.makeStyleAgain();
        QCOMPARE(label.style(), style);
        QCOMPARE(Record::difference(*style, expected), QString());
        style->contextMenu = nullptr;
    }

    void captionIsThatOfTheBase()
    {
        KELLabel label;
        QVERIFY(label.text().isNull());
        label.setText(u"Pressure"_s);
        QCOMPARE(label.text(), u"Pressure"_s);
        QCOMPARE(label.style()->text, u"Pressure"_s);
    }

    void newLabelShowsAWhiteCaption()
    {
        KELLabel label;
        label.setboundRect(10, 10, 150, 40);
        label.style()->font.setPixelSize(30);
        label.setText(u"MIM"_s);
        const QImage image = KelImage::paint(&label, canvas);
        QVERIFY(!KelImage::areaOf(image, Qt::white).isEmpty());
        // Paper, or paper with white over it: nothing else is drawn.
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                QVERIFY(colour.red() >= 198 && colour.green() >= 218 && colour.blue() >= 238);
            }
        }
        QCOMPARE(differenceToHand(&label, QRectF(10, 10, 150, 40)), QString());
    }

    void isPaintedAsTheBase_data() { addRows({{"look", namesOf(looks())}}); }

    // Which is compared with hand drawings, in all of these looks.
    void isPaintedAsTheBase()
    {
        for (const QRectF &rect :
             {QRectF(12, 9, 110, 50), QRectF(5.3, 7.7, 140.4, 60.6), QRectF(20, 30, 45, 16),
              QRectF(15, 15, 2, 2), QRectF(-20, -10, 90, 60)}) {
            KELLabel label;
            label.setboundRect(rect);
            lookOfRow()(*label.style());
            KELRoundRectControl base;
            label.style()->copy(base.style());
            for (const qreal scale : {0.5, 1.0, 1.5, 2.0}) {
                QCOMPARE(KelImage::difference(KelImage::paint(&label, canvas, scale),
                                              KelImage::paint(&base, canvas, scale)),
                         QString());
            }
        }
    }

    void isTheHandDrawnPicture_data() { addRows({{"look", namesOf(looks())}}); }

    void isTheHandDrawnPicture()
    {
        KELLabel label;
        label.setboundRect(12.5, 9, 110, 50);
        lookOfRow()(*label.style());
        QCOMPARE(differenceToHand(&label, QRectF(12.5, 9, 110, 50)), QString());
    }

    void paintingLeavesTheRecordAlone_data() { addRows({{"look", namesOf(looks())}}); }

    void paintingLeavesTheRecordAlone()
    {
        KELLabel label;
        lookOfRow()(*label.style());
        const KELRoundRectControlStyle before = *label.style();
        KelImage::paint(&label, canvas);
        QCOMPARE(Record::difference(*label.style(), before), QString());
    }

    void childIsDrawnAtItsBoundingRect()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 150, 90);
        auto *label = new KELLabel(&parent);
        label->setboundRect(5, 5, 90, 30);
        label->setText(u"Pressure"_s);
        QCOMPARE(label->boundingRect(), QRectF(15, 25, 90, 30));
        QCOMPARE(differenceToHand(label, QRectF(15, 25, 90, 30)), QString());
    }

    void statesDoNotShow_data()
    {
        addRows({{"look", namesOf(looks())},
                 {"pressed", {{"released", false}, {"pressed", true}}},
                 {"checked", {{"unchecked", false}, {"checked", true}}},
                 {"enabled", {{"enabled", true}, {"disabled", false}}}});
    }

    void statesDoNotShow()
    {
        KELLabel label;
        label.setboundRect(12, 9, 110, 50);
        lookOfRow()(*label.style());
        const QImage atRest = KelImage::paint(&label, canvas);
        label.style()->isMouseDown = fetch<bool>("pressed");
        label.setCheck(fetch<bool>("checked"));
        label.setEnabled(fetch<bool>("enabled"));
        QCOMPARE(KelImage::difference(KelImage::paint(&label, canvas), atRest), QString());
    }

    void emptyTextDrawsNothing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("null") << QString();
        QTest::newRow("empty") << u""_s;
        QTest::newRow("line feeds") << u"\n\n"_s;
        QTest::newRow("blank") << u" "_s;
    }

    void emptyTextDrawsNothing()
    {
        for (const QRectF &rect :
             {QRectF(10, 10, 150, 90), QRectF(5.3, 7.7, 20.4, 30.6), QRectF(15, 15, 2, 2)}) {
            KELLabel label;
            label.setboundRect(rect);
            label.setText(fetch<QString>("text"));
            for (const qreal scale : {0.5, 1.0, 1.5, 2.0}) {
                QCOMPARE(KelImage::differenceFrom([](QPainter *) {}, &label, canvas, scale),
                         QString());
            }
        }
    }

    void outlineNeedsAWidth()
    {
        KELLabel label;
        label.setboundRect(10, 10, 150, 90);
        label.style()->borderBrush = QBrush(Qt::red);
        QCOMPARE(KelImage::inkOf(KelImage::paint(&label, canvas)), QRect());
        label.style()->borderWidth = 2;
        QCOMPARE(KelImage::areaOf(KelImage::paint(&label, canvas), Qt::red),
                 QRect(10, 10, 150, 90));
    }

    void newTextIsOnTheScreen()
    {
        const QColor background(20, 40, 60);
        KelTestView view(canvas);
        view.setBackgroundBrush(background);
        auto *label = new KELLabel;
        label->setboundRect(10, 10, 150, 40);
        view.ownScene.addItem(label);
        QVERIFY(view.showAndWait());
        const QImage before = view.grab().toImage();
        QCOMPARE(KelImage::inkOf(before, background), QRect());
        label->setText(u"Pressure"_s);
        // The view keeps a picture of the label without what is behind it.
        QImage kept(canvas, QImage::Format_ARGB32_Premultiplied);
        kept.fill(Qt::transparent);
        QPainter painter(&kept);
        HandDrawing::drawControl(&painter, *label->style(), QRectF(10, 10, 150, 40));
        painter.end();
        QImage byHand = before;
        QPainter(&byHand).drawImage(0, 0, kept);
        QVERIFY(byHand != before);
        QTRY_COMPARE(KelImage::difference(view.grab().toImage(), byHand), QString());
    }

    void pressIsReportedAndIgnored_data()
    {
        addRows({{"isLabel", {{"label", true}, {"plain control", false}}}, {"input", inputs}});
    }

    // As by a plain control: it is a panel, below which the scene does not look for another taker.
    void pressIsReportedAndIgnored()
    {
        AboveAButton stage(fetch<bool>("isLabel") ? new KELLabel : new KELRoundRectControl);
        stage.hand.use(fetch<Input>("input"));
        stage.hand.tap(stage.centre());
        endLongPressTime(stage.control);
        QCOMPARE(stage.log.take(), u"press longPress"_s);
        QVERIFY(stage->isMouseDown());
        QCOMPARE(stage.view.ownScene.mouseGrabberItem(), nullptr);
    }

    void pressPositionIsInTheLabel()
    {
        AboveAButton stage;
        stage->setPos(-7, 4);
        stage.hand.press(stage.centre());
        QCOMPARE(stage.log.takePoints(), QList<QPointF>({QPointF(150, 125)}));
    }

    void tapGoesToTheItemBelowWithoutButtons_data() { addRows({{"input", inputs}}); }

    void tapGoesToTheItemBelowWithoutButtons()
    {
        AboveAButton stage;
        stage.hand.use(fetch<Input>("input"));
        stage->setAcceptedMouseButtons(Qt::NoButton);
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.log.take(), u"other.press other.release other.clicked"_s);
    }

    void tapInAButtonGoesToTheButton_data() { addRows({{"input", inputs}}); }

    void tapInAButtonGoesToTheButton()
    {
        AboveAButton stage;
        stage.hand.use(fetch<Input>("input"));
        stage.other->setboundRect(50, 50, 220, 200);
        stage->setParentItem(stage.other);
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.log.take(), u"other.press other.release other.clicked"_s);
    }

    void hoverIsNotReported()
    {
        AboveAButton stage;
        stage.other->setAcceptHoverEvents(false);
        stage.hand.hover(QPoint(20, 20));
        stage.hand.hover(stage.centre());
        stage.hand.hover(QPoint(20, 20));
        QCOMPARE(stage.log.takeWithHover(), QString());
        stage->setAcceptHoverEvents(true);
        stage.hand.hover(stage.centre());
        stage.hand.hover(QPoint(20, 20));
        QCOMPARE(stage.log.takeWithHover(), u"enter leave"_s);
    }

    void selectableLabelIsTapped()
    {
        AboveAButton stage;
        stage->setFlag(QGraphicsItem::ItemIsSelectable);
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.log.take(), u"press release clicked"_s);
    }
};

KEL_TEST_MAIN(tst_KELLabel)
#include "tst_kellabel.moc"
