// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"
#include "record.h"
#include "stage.h"

#include <QtWidgets/QGraphicsRectItem>
#include <QtWidgets/QGraphicsSceneMouseEvent>

namespace {

const QColor pressedColour(50, 70, 100, 200);
const QColor disabledColour(150, 150, 150, 100);
const QColor restColour(0, 0, 0, 20);

KELPushButtonStyle *styleOf(const KELPushButton &button)
{
    return static_cast<KELPushButtonStyle *>(button.style());
}

// What the button shows now, from a fresh record as paint() makes it.
KELPushButtonStyle optionOf(const KELPushButton &button)
{
    KELPushButtonStyle option = KELPushButtonStyle();
    button.initStyleOption(&option, nullptr);
    return option;
}

class FilteringButton : public KELPushButton
{
public:
    using KELPushButton::sceneEventFilter;
};

// Accepts every button and counts what it gets.
class ChildItem : public QGraphicsRectItem
{
public:
    explicit ChildItem(QGraphicsItem *parent) : QGraphicsRectItem(0, 0, 20, 10, parent)
    {
        setFlag(ItemIsSelectable);
    }

    int events = 0;

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override
    {
        ++events;
        event->accept();
    }
    void mouseReleaseEvent(QGraphicsSceneMouseEvent * /*event*/) override { ++events; }
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent * /*event*/) override { ++events; }
};

} // namespace

class tst_KELPushButton : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void recordHasTheDefaultsOfAButton()
    {
        const KELPushButton button;
        const KELPushButtonStyle &style = *styleOf(button);
        KELRoundRectControlStyle expected = Record::defaults();
        expected.borderWidth = 2;
        QCOMPARE(Record::difference(style, expected), QString());
        QCOMPARE(style.iconMargins, QMarginsF(5, 1, 5, 1));
    }

    void recordStandsForTheBaseRecord()
    {
        QVERIFY((std::is_base_of_v<KELRoundRectControlStyle, KELPushButtonStyle>));
        QCOMPARE(KELPushButtonStyle().iconMargins, QMarginsF());
        QCOMPARE(sizeof(KELPushButtonStyle), sizeof(KELRoundRectControlStyle) + sizeof(QMarginsF));
    }

    void takesPointerInput()
    {
        const KELPushButton button;
        QVERIFY(button.filtersChildEvents());
        QVERIFY(button.handlesChildEvents());
        ControlTest::takesPointerInput<KELPushButton>(QGraphicsItem::ItemClipsToShape);
    }

    void declaresNoInterfaceOfItsOwn()
    {
        ControlTest::declaresNoInterfaceOfItsOwn<KELPushButton>("KELPushButton");
    }

    void initStyleCarriesTheLookOver()
    {
        Restyled<KELPushButton> button;
        QMenu menu;
        Record::fill(button.style());
        button.style()->contextMenu = &menu;
        styleOf(button)->iconMargins = QMarginsF(9, 9, 9, 9);
        KELRoundRectControlStyle expected = *button.style();
        expected.backgroundBrush = restColour;
        expected.borderWidth = 2;
        expected.isMouseDown = expected.isCheck = false;

        button.makeStyleAgain();
        QCOMPARE(Record::difference(*button.style(), expected), QString());
        QCOMPARE(styleOf(button)->iconMargins, QMarginsF(5, 1, 5, 1));
        button.style()->contextMenu = nullptr;
    }

    void optionHasTheIconMargins()
    {
        KELPushButton button;
        styleOf(button)->iconMargins = QMarginsF(9, 8, 7, 6);
        QCOMPARE(optionOf(button).iconMargins, QMarginsF(9, 8, 7, 6));
    }

    void optionTakesOverTheStates()
    {
        KELPushButton button;
        QVERIFY(!optionOf(button).isMouseDown);
        QVERIFY(!optionOf(button).isCheck);
        styleOf(button)->isMouseDown = true;
        QVERIFY(optionOf(button).isMouseDown);
        QVERIFY(!optionOf(button).isCheck);
        button.setCheck(true);
        QVERIFY(optionOf(button).isCheck);
        button.setEnabled(false);
        QVERIFY(optionOf(button).isCheck);
    }

    void optionFillsFieldsWithoutInitialiser()
    {
        KELPushButton button;
        KELPushButtonStyle *style = styleOf(button);
        style->borderBrush = QBrush(Qt::NoBrush);
        style->textFlags = Qt::AlignBottom;
        KELPushButtonStyle option = KELPushButtonStyle();
        option.borderWidth = 99;
        option.textFlags = 99;
        option.trimText = false;
        button.initStyleOption(&option, nullptr);
        QCOMPARE(option.borderWidth, 0.0F);
        // A glyph without caption is placed by these flags.
        QCOMPARE(option.textFlags, int(Qt::AlignBottom));
        QVERIFY(option.trimText);
    }

    void pressedLook()
    {
        KELPushButton button;
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(restColour));
        styleOf(button)->isMouseDown = true;
        const KELPushButtonStyle option = optionOf(button);
        QCOMPARE(option.backgroundBrush, QBrush(pressedColour));
        QCOMPARE(option.foregroundBrush, QBrush(Qt::black));
        QCOMPARE(option.borderBrush, QBrush(Qt::black));
        styleOf(button)->isMouseDown = false;
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(restColour));
    }

    void disabledLook()
    {
        KELPushButton button;
        styleOf(button)->isMouseDown = true;
        button.setCheck(true);
        button.setIsCheckedTemplate([](KELPushButtonStyle &look) { look.xRadius = 9; });
        button.setEnabled(false);
        const KELPushButtonStyle option = optionOf(button);
        QCOMPARE(option.foregroundBrush, QBrush(disabledColour));
        QCOMPARE(option.borderBrush, QBrush(disabledColour));
        QCOMPARE(option.backgroundBrush, QBrush(restColour));
        QCOMPARE(option.xRadius, 0.0);
        button.setEnabled(true);
        QCOMPARE(optionOf(button).foregroundBrush, QBrush(Qt::black));
        QCOMPARE(optionOf(button).borderBrush, QBrush(Qt::black));
    }

    void checkedHasNoLookByDefault()
    {
        KELPushButton button;
        button.setCheck(true);
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(restColour));
        QCOMPARE(optionOf(button).foregroundBrush, QBrush(Qt::black));
        QCOMPARE(optionOf(button).borderBrush, QBrush(Qt::black));
    }

    void stateLooks_data()
    {
        addRows({{"enabled", {{"enabled", true}, {"disabled", false}}},
                 {"checked", {{"unchecked", false}, {"checked", true}}},
                 {"pressed", {{"released", false}, {"pressed", true}}}});
    }

    void stateLooks()
    {
        QStringList looks;
        if (!fetch<bool>("enabled"))
            looks.append(u"disabled"_s);
        if (fetch<bool>("enabled") && fetch<bool>("checked"))
            looks.append(u"checked"_s);
        if (fetch<bool>("enabled") && fetch<bool>("pressed"))
            looks.append(u"pressed"_s);

        KELPushButton button;
        QStringList calls;
        button.setIsMouseDownTemplate([&](KELPushButtonStyle &) { calls.append(u"pressed"_s); });
        button.setIsCheckedTemplate([&](KELPushButtonStyle &) { calls.append(u"checked"_s); });
        button.setIsDisableTemplate([&](KELPushButtonStyle &) { calls.append(u"disabled"_s); });
        button.setEnabled(fetch<bool>("enabled"));
        button.style()->isCheck = fetch<bool>("checked");
        button.style()->isMouseDown = fetch<bool>("pressed");
        optionOf(button);
        QCOMPARE(calls, looks);
        calls.clear();
        KelImage::paint(&button, QSize(220, 150));
        QCOMPARE(calls, looks);
    }

    void pressedLookWinsOverCheckedLook()
    {
        KELPushButton button;
        button.setIsCheckedTemplate([](KELPushButtonStyle &look) {
            look.backgroundBrush = QBrush(Qt::green);
            look.foregroundBrush = QBrush(Qt::yellow);
        });
        button.setCheck(true);
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(Qt::green));
        styleOf(button)->isMouseDown = true;
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(pressedColour));
        QCOMPARE(optionOf(button).foregroundBrush, QBrush(Qt::yellow));
    }

    void emptyLookChangesNothing()
    {
        KELPushButton button;
        button.setIsMouseDownTemplate(nullptr);
        button.setIsCheckedTemplate({});
        button.setIsDisableTemplate(std::function<void(KELPushButtonStyle &)>());
        styleOf(button)->isMouseDown = true;
        button.setCheck(true);
        QCOMPARE(optionOf(button).backgroundBrush, QBrush(restColour));
        button.setEnabled(false);
        QCOMPARE(optionOf(button).foregroundBrush, QBrush(Qt::black));
        QCOMPARE(optionOf(button).borderBrush, QBrush(Qt::black));
    }

    void lookIsACopyOfTheFunction()
    {
        KELPushButton button;
        std::function<void(KELPushButtonStyle &)> look = [](KELPushButtonStyle &option) {
            option.text = u"held"_s;
        };
        button.setIsMouseDownTemplate(look);
        look = nullptr;
        styleOf(button)->isMouseDown = true;
        QCOMPARE(optionOf(button).text, u"held"_s);
    }

    void lookDoesNotChangeTheRecord()
    {
        KELPushButton button;
        button.setIsMouseDownTemplate([](KELPushButtonStyle &look) {
            look.text = u"held"_s;
            look.borderWidth = 9;
            look.isCheck = true;
            look.iconMargins = QMarginsF();
        });
        styleOf(button)->isMouseDown = true;
        KelImage::paint(&button, QSize(220, 150));
        KELRoundRectControlStyle expected = Record::defaults();
        expected.borderWidth = 2;
        expected.isMouseDown = true;
        QCOMPARE(Record::difference(*button.style(), expected), QString());
        QCOMPARE(styleOf(button)->iconMargins, QMarginsF(5, 1, 5, 1));
    }

    void lookOfADisabledParent()
    {
        KELRoundRectControl parent;
        auto *button = new KELPushButton(&parent);
        parent.setEnabled(false);
        QCOMPARE(optionOf(*button).foregroundBrush, QBrush(disabledColour));
    }

    void lookNeedsARepaint()
    {
        int paints = 0;
        const auto count = [&paints](KELPushButtonStyle & /*look*/) { ++paints; };
        Stage<KELPushButton> stage;
        stage->setCacheMode(QGraphicsItem::NoCache);
        stage->setIsCheckedTemplate(count);
        stage->setCheck(true);
        stage.view.showOnce();
        QTRY_VERIFY(paints > 0);
        QCoreApplication::processEvents();

        paints = 0;
        stage->setIsCheckedTemplate(count);
        stage->setIsMouseDownTemplate(nullptr);
        stage->setIsDisableTemplate(nullptr);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        QCOMPARE(paints, 0);
        stage->update();
        QTRY_COMPARE(paints, 1);
    }

    void filterSwallowsOtherButtons_data() { ControlTest::addEventsOfChildren(); }

    void filterSwallowsOtherButtons()
    {
        ControlTest::swallowsOtherButtonsOfChildren<KELPushButton>();
    }

    void touchOfAChildIsIgnored_data()
    {
        addRows({{"handlesChildEvents",
                  {{"the button handles its events", true}, {"the child does", false}}}});
    }

    void touchOfAChildIsIgnored()
    {
        FilteringButton button;
        button.setHandlesChildEvents(fetch<bool>("handlesChildEvents"));
        QEvent event(QEvent::TouchBegin);
        button.sceneEventFilter(nullptr, &event);
        QCOMPARE(event.isAccepted(), !fetch<bool>("handlesChildEvents"));
    }

    void tapOnAChild_data()
    {
        addRows({{"button",
                  {{"left", Qt::LeftButton},
                   {"right", Qt::RightButton},
                   {"middle", Qt::MiddleButton}}}});
    }

    void tapOnAChild()
    {
        const auto mouseButton = fetch<Qt::MouseButton>("button");
        const bool isLeft = mouseButton == Qt::LeftButton;
        Stage<KELPushButton> stage;
        auto *below = new ChildItem(nullptr);
        below->setRect(50, 50, 300, 200);
        below->setZValue(-1);
        stage.view.ownScene.addItem(below);
        auto *child = new ChildItem(stage.get());
        child->setPos(140, 110);

        const QPoint pos = stage.view.centreOf(child);
        stage.hand.press(pos, mouseButton);
        QCOMPARE(stage->isMouseDown(), isLeft);
        stage.hand.release(pos, mouseButton);
        QCOMPARE(stage.log.take(), isLeft ? u"press release clicked"_s : QString());
        if (isLeft)
            QCOMPARE(stage.log.takePoints().first(), QPointF(150, 115));
        QTest::mouseDClick(stage.view.viewport(), mouseButton, Qt::NoModifier, pos);
        QCOMPARE(stage.log.count(u"doubleClicked"_s), isLeft ? 1 : 0);
        stage.hand.release(pos, mouseButton);
        QVERIFY(!stage->isMouseDown());
        QCOMPARE(child->events, 0);
        QCOMPARE(below->events, 0);
    }
};

KEL_TEST_MAIN(tst_KELPushButton)
#include "tst_kelpushbutton.moc"
