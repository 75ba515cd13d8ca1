// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"

#include <QtCore/QScopeGuard>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <algorithm>
#include <cmath>

namespace {

// A window with the view of a combo box, other widgets beside it, and room below it. The list is
// opened with a tap on (100, 40); its entries are at (100, 74 + 30 * place).
class WindowStage : public ComboStage
{
public:
    explicit WindowStage(Input input = Input::Mouse, const QSize &viewSize = QSize(400, 300)) :
        ComboStage(input), m_input(input)
    {
        window.resize(600, 500);
        view.resize(viewSize);
        pushButton.setGeometry(420, 10, 100, 40);
        label.setGeometry(420, 100, 100, 40);
        foreign.setGeometry(420, 200, 100, 80);
    }

    // As the window system sends it to the window.
    void press(const QPoint &pos, Qt::MouseButton button = Qt::LeftButton)
    {
        view.showOnce();
        if (m_input == Input::Touch)
            m_fingers.press(0, pos);
        else
            QTest::mousePress(window.windowHandle(), button, Qt::NoModifier, pos);
    }
    void release(const QPoint &pos, Qt::MouseButton button = Qt::LeftButton)
    {
        if (m_input == Input::Touch)
            m_fingers.release(0);
        else
            QTest::mouseRelease(window.windowHandle(), button, Qt::NoModifier, pos);
    }
    void tap(const QPoint &pos)
    {
        press(pos);
        release(pos);
    }

    QPushButton pushButton{u"Push"_s, &window};
    QLabel label{u"Label"_s, &window};
    QGraphicsScene foreignScene;
    QGraphicsView foreign{&foreignScene, &window};

private:
    const Input m_input;
    Fingers m_fingers{&window};
};

struct Edge
{
    const char *name;
    QPoint outwards;
    bool isOfTheList;
};
const Edge edges[] = {
    {"left of the button", {-1, 0}, false}, {"right of the button", {1, 0}, false},
    {"above the button", {0, -1}, false},   {"left of the list", {-1, 0}, true},
    {"right of the list", {1, 0}, true},    {"below the list", {0, 1}, true}};

struct Placing
{
    const char *name;
    qreal scale;
    QRectF rect;
};
const Placing placings[] = {{"whole pixels", 1, {20, 20, 160, 40}},
                            {"half pixels", 1, {20.5, 20.5, 160, 40}},
                            {"one and a half", 1.5, {20, 20, 160, 40}},
                            {"one and a half, half pixels", 1.5, {21, 21, 160, 40}},
                            {"half, half pixels", 0.5, {21, 21, 160, 40}},
                            {"half", 0.5, {20, 20, 160, 41}}};

struct Place
{
    const char *name;
    QPoint pos;
};
const Place besideTheView[] = {{"push button", {470, 30}},
                               {"label", {470, 120}},
                               {"another scene", {470, 240}},
                               {"parent widget", {300, 450}},
                               {"bare scene", {300, 250}}};
const Place inside[] = {{"text", {60, 40}},
                        {"between the labels", {152, 40}},
                        {"arrow", {167, 40}},
                        {"entry", {100, 104}},
                        {"edge of the list", {20, 100}}};

// The last pixel on that side that shows anything of the rectangle of the view.
QPoint lastPixel(const QRectF &rect, const QPoint &side)
{
    const QRect pixels = rect.toAlignedRect();
    QPoint pixel = rect.center().toPoint();
    if (side.x() != 0)
        pixel.setX(side.x() < 0 ? pixels.left() : pixels.right());
    else
        pixel.setY(side.y() < 0 ? pixels.top() : pixels.bottom());
    return pixel;
}

// Until the end of the test a second tap in the same place is a press like the first.
auto withoutDoubleClicks()
{
    const int interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0);
    return qScopeGuard([interval] { QApplication::setDoubleClickInterval(interval); });
}

} // namespace

// Presses while the list is open: which of them close it.
class tst_KELComboBoxOutside : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pressInTheSceneCloses_data()
    {
        addRows({{"input", inputs},
                 {"target",
                  {{"bare scene", 0},
                   {"plain item", 1},
                   {"disabled control", 2},
                   {"enabled control", 3},
                   {"ignoring label", 4},
                   {"selectable item", 5},
                   {"widget in the scene", 6}}}});
    }

    void pressInTheSceneCloses()
    {
        const int target = fetch<int>("target");
        ComboStage stage(fetch<Input>("input"));
        const QRectF rect = stage.other->boundingRect();
        if (target == 2)
            stage.other->setEnabled(false);
        else if (target != 3)
            delete stage.other;
        if (target == 1 || target == 5) {
            stage.view.ownScene.addRect(rect)->setFlag(QGraphicsItem::ItemIsSelectable,
                                                       target == 5);
        } else if (target == 4) {
            auto *label = new KELLabel;
            label->setboundRect(rect);
            stage.view.ownScene.addItem(label);
        } else if (target == 6) {
            stage.view.ownScene.addWidget(new QPushButton)->setGeometry(rect);
        }
        stage.open();
        QCOMPARE(stage.state(), u"open"_s);
        stage.hand.press(rect.center().toPoint());
        QCOMPARE(stage.state(), u"closed"_s);
        QCOMPARE(stage->zValue(), 0.0);
        stage.hand.release();
        // The press is not consumed.
        QCOMPARE(stage.log.take(),
                 target == 3 ? u"other.press other.release other.clicked"_s : QString());
        QCOMPARE(stage->selectIndex(), -1);
    }

    void pressBesideTheViewCloses_data()
    {
        addRows({{"input", inputs}, {"place", namesOf(besideTheView)}});
    }

    void pressBesideTheViewCloses()
    {
        const Place &place = besideTheView[fetch<int>("place")];
        WindowStage stage(fetch<Input>("input"));
        const QSignalSpy clicked(&stage.pushButton, &QPushButton::clicked);
        stage.tap(QPoint(100, 40));
        QCOMPARE(stage.state(), u"open"_s);
        stage.press(place.pos);
        QCOMPARE(stage.state(), u"closed"_s);
        stage.release(place.pos);
        QCOMPARE(clicked.count(), place.pos == besideTheView[0].pos ? 1 : 0);
        stage.tap(QPoint(100, 40));
        QCOMPARE(stage.state(), u"open"_s);
        stage.tap(QPoint(100, 104));
        QCOMPARE(stage->selectIndex(), 1);
    }

    // A widget that takes touches gets no mouse press in their place.
    // As an application may send it.
    void touchWithoutPointsCloses()
    {
        WindowStage stage(Input::Touch);
        stage.label.setAttribute(Qt::WA_AcceptTouchEvents);
        stage.tap(QPoint(100, 40));
        QCOMPARE(listState(*stage), u"open"_s);
        QTouchEvent touch(QEvent::TouchBegin);
        QCoreApplication::sendEvent(&stage.label, &touch);
        QCOMPARE(listState(*stage), u"closed"_s);
    }

    void touchThatIsNoMousePressCloses()
    {
        class TouchPad : public QWidget
        {
        public:
            explicit TouchPad(QWidget *parent) : QWidget(parent)
            {
                setAttribute(Qt::WA_AcceptTouchEvents);
            }
            QStringList seen;

        protected:
            bool event(QEvent *event) override
            {
                if (event->type() == QEvent::TouchBegin)
                    seen.append(u"touch"_s);
                else if (event->type() == QEvent::MouseButtonPress)
                    seen.append(u"mouse"_s);
                return event->type() == QEvent::TouchBegin || QWidget::event(event);
            }
        };
        WindowStage stage(Input::Touch);
        TouchPad pad(&stage.window);
        pad.setGeometry(100, 350, 100, 100);
        stage.tap(QPoint(100, 40));
        stage.press(QPoint(150, 400));
        const QString state = stage.state();
        stage.release(QPoint(150, 400));
        QCOMPARE(pad.seen, QStringList(u"touch"_s));
        QCOMPARE(state, u"closed"_s);
    }

    void pressOnAnotherWindowCloses_data()
    {
        addRows({{"input", inputs}, {"isOver", {{"beside", false}, {"over the list", true}}}});
    }

    void pressOnAnotherWindowCloses()
    {
        const QPoint pos(30, 30);
        ComboStage stage;
        stage.open();
        KelTestView other;
        const QPoint place = stage.view.mapToGlobal(fetch<bool>("isOver") ? QPoint(40, 65)
                                                                          : QPoint(500, 0));
        other.setGeometry(QRect(place, QSize(100, 80)));
        QVERIFY(other.showAndWait());
        QCOMPARE(stage.state(), u"open"_s);
        const QPoint below = stage.view.viewport()->mapFromGlobal(other.mapToGlobal(pos));
        QCOMPARE(stage.view.items(below).contains(stage.entry(1)), fetch<bool>("isOver"));
        Hand hand(&other, fetch<Input>("input"));
        hand.press(pos);
        QCOMPARE(stage.state(), u"closed"_s);
        hand.release();
        QCOMPARE(stage->selectIndex(), -1);
    }

    void pressedWidgetDiesInASlot_data() { addRows({{"input", inputs}}); }

    void pressedWidgetDiesInASlot()
    {
        WindowStage stage(fetch<Input>("input"));
        QPointer<QWidget> pad(new QWidget(&stage.window));
        pad->setGeometry(100, 350, 100, 100);
        pad->setAttribute(Qt::WA_AcceptTouchEvents);
        stage.tap(QPoint(100, 40));
        connect(stage.parts.panel, &QGraphicsObject::visibleChanged, this, [&pad] { delete pad; });
        stage.press(QPoint(150, 400));
        QVERIFY(!pad);
        QCOMPARE(stage.state(), u"closed"_s);
        stage.release(QPoint(150, 400));
    }

    void pressIgnoredByAnotherFilterDoesNotClose()
    {
        class Ignore : public QObject
        {
        public:
            bool eventFilter(QObject * /*watched*/, QEvent *event) override
            {
                event->ignore();
                return false;
            }
        };
        ComboStage stage;
        stage.open();
        Ignore ignore;
        QCoreApplication::instance()->installEventFilter(&ignore);
        QWidget other;
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&other, &press);
        QCOMPARE(stage.state(), u"shown 1, up 1, filters 0, z 1"_s);
        QCoreApplication::instance()->removeEventFilter(&ignore);
        QCOMPARE(stage.state(), u"open"_s);
    }

    void pressOnAWindowWithoutWidgetsCloses_data() { addRows({{"input", inputs}}); }

    void pressOnAWindowWithoutWidgetsCloses()
    {
        ComboStage stage(fetch<Input>("input"));
        QWindow other;
        other.setGeometry(500, 0, 100, 100);
        other.show();
        QVERIFY(QTest::qWaitForWindowExposed(&other));
        stage.open();
        QCOMPARE(stage.state(), u"open"_s);
        const QPoint pos(50, 50);
        if (fetch<Input>("input") == Input::Touch) {
            static QTouchDevice *const panel = QTest::createTouchDevice();
            QTest::touchEvent(&other, panel).press(0, pos, &other);
            QCOMPARE(stage.state(), u"closed"_s);
            QTest::touchEvent(&other, panel).release(0, pos, &other);
        } else {
            QTest::mousePress(&other, Qt::LeftButton, Qt::NoModifier, pos);
            QCOMPARE(stage.state(), u"closed"_s);
            QTest::mouseRelease(&other, Qt::LeftButton, Qt::NoModifier, pos);
        }
    }

    void secondViewOfTheScene_data() { addRows({{"input", inputs}}); }

    void secondViewOfTheScene()
    {
        ComboStage stage(fetch<Input>("input"));
        KelTestView second;
        second.setScene(&stage.view.ownScene);
        second.setGeometry(500, 0, 400, 300);
        second.scale(0.5, 0.5);
        QVERIFY(second.showAndWait());
        Hand hand(&second, fetch<Input>("input"));
        stage.open();
        hand.tap(second.centreOf(stage.entry(1)));
        QCOMPARE(stage->selectIndex(), 1);
        hand.tap(second.centreOf(stage.parts.button));
        QCOMPARE(stage.state(), u"open"_s);
        hand.tap(QPoint(120, 130));
        QCOMPARE(stage.state(), u"closed"_s);
    }

    void pressOnAWidgetOverTheListCloses_data() { addRows({{"input", inputs}}); }

    void pressOnAWidgetOverTheListCloses()
    {
        WindowStage stage(fetch<Input>("input"));
        stage.pushButton.setGeometry(30, 65, 100, 60);
        stage.pushButton.raise();
        const QSignalSpy clicked(&stage.pushButton, &QPushButton::clicked);
        stage.tap(QPoint(100, 30));
        QCOMPARE(stage.state(), u"open"_s);
        stage.press(QPoint(60, 104));
        QCOMPARE(stage.state(), u"closed"_s);
        stage.release(QPoint(60, 104));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(stage->selectIndex(), -1);
    }

    void lastPixelIsInside_data()
    {
        addRows({{"edge", namesOf(edges)}, {"placing", namesOf(placings)}, {"input", inputs}});
    }

    // A press belongs to a control as soon as the control has a part of the pixel, as in a scene.
    // Kept as it is: what a scene tells is the left top corner of the pixel, which is beside a
    // control that begins within the pixel.
    void lastPixelIsInside()
    {
        const Edge &edge = edges[fetch<int>("edge")];
        const qreal scale = placings[fetch<int>("placing")].scale;
        const QRectF rect = placings[fetch<int>("placing")].rect;
        ComboStage stage(fetch<Input>("input"));
        stage->setboundRect(rect);
        stage.view.setSceneRect(0, 0, 400 / scale, 300 / scale); // does not scroll
        stage.view.scale(scale, scale);
        const QRectF list(rect.left(), rect.bottom() - 1, rect.width(), 90);
        const QRectF shown = QTransform::fromScale(scale, scale)
                                 .mapRect(edge.isOfTheList ? list : rect);
        const QPoint inside = lastPixel(shown, edge.outwards);
        const QPoint outside = inside + edge.outwards;
        const bool startsInAPixel = shown.x() != std::floor(shown.x());
        const bool isCut = startsInAPixel && (edge.outwards.x() < 0 || edge.outwards.y() < 0);

        stage.view.showOnce();
        clickButton(*stage);
        const KELRoundRectControl *part = stage.parts.button;
        if (edge.isOfTheList)
            part = stage.parts.panel;
        const QList<QGraphicsItem *> hit = stage.view.items(inside);
        QVERIFY(std::find(hit.begin(), hit.end(), part) != hit.end());
        stage.hand.press(inside);
        QCOMPARE(stage.state(), isCut ? u"closed"_s : u"open"_s);
        stage.hand.release();

        if (!stage.parts.panel->isVisible()) // by a click on button or entry
            clickButton(*stage);
        QVERIFY(stage.view.items(outside).isEmpty());
        stage.hand.press(outside);
        QCOMPARE(stage.state(), u"closed"_s);
        stage.hand.release();
        QCOMPARE(stage.state(), u"closed"_s);
    }

    void pressInsideDoesNotClose_data()
    {
        addRows({{"place", namesOf(inside)},
                 {"button", {{"right", Qt::RightButton}, {"middle", Qt::MiddleButton}}}});
    }

    void pressInsideDoesNotClose()
    {
        const QPoint pos = inside[fetch<int>("place")].pos;
        const auto button = fetch<Qt::MouseButton>("button");
        WindowStage stage;
        stage.tap(QPoint(100, 40));
        stage.press(pos, button);
        QCOMPARE(stage.state(), u"open"_s);
        stage.release(pos, button);
        QCOMPARE(stage.state(), u"open"_s);
        QCOMPARE(stage->selectIndex(), -1);
        // the same button elsewhere
        stage.press(farAway, button);
        QCOMPARE(stage.state(), u"closed"_s);
        stage.release(farAway, button);
    }

    void pressOnAGapOfTheList_data() { addRows({{"input", inputs}}); }

    void pressOnAGapOfTheList()
    {
        ComboStage stage(fetch<Input>("input"));
        stage.addNeighbour(QRectF(20, 65, 160, 80));
        stage.open();
        delete stage.entry(0);
        stage.hand.tap(stage.rowCentre(0));
        QCOMPARE(stage.state(), u"open"_s);
        stage.hand.use(Input::Mouse);
        stage.hand.press(stage.rowCentre(0), Qt::RightButton);
        QCOMPARE(stage.state(), u"open"_s);
        stage.hand.release(stage.rowCentre(0), Qt::RightButton);
        QCOMPARE(stage.log.take(), QString());
        stage.hand.use(fetch<Input>("input"));
        stage.hand.tap(stage.rowCentre(1));
        QCOMPARE(stage->selectIndex(), 0);
    }

    void entryBelowTheListCloses_data() { addRows({{"input", inputs}}); }

    void entryBelowTheListCloses()
    {
        ComboStage stage(fetch<Input>("input"));
        stage.open();
        delete stage.entry(0);
        stage.hand.press(stage.entryCentre(1));
        QCOMPARE(stage.state(), u"closed"_s);
        stage.hand.release();
        QCOMPARE(stage->selectIndex(), -1);
        QCOMPARE(stage.log.take(), QString());
    }

    void pressWhileHiddenDoesNotClose_data() { addRows({{"input", inputs}}); }

    void pressWhileHiddenDoesNotClose()
    {
        ComboStage stage(fetch<Input>("input"));
        stage.open();
        stage->hide();
        stage.hand.tap(farAway);
        stage->show();
        QCOMPARE(stage.state(), u"open"_s);
    }

    // A press near the one before it, and soon after it, is a double click, also when it is beside
    // the control.
    void doubleClickOutsideCloses()
    {
        ComboStage stage;
        stage.hand.tap(QPoint(21, 40));
        QCOMPARE(stage.state(), u"open"_s);
        stage.hand.pressAgain(QPoint(18, 40));
        QCOMPARE(stage.state(), u"closed"_s);
        stage.hand.release();
    }

    void listOutsideTheView_data() { addRows({{"input", inputs}}); }

    void listOutsideTheView()
    {
        WindowStage stage(fetch<Input>("input"), QSize(400, 100));
        stage.tap(QPoint(100, 40));
        QCOMPARE(stage.state(), u"open"_s);
        stage.tap(QPoint(100, 74)); // the entry that is in the view
        QCOMPARE(stage->selectIndex(), 0);
        // What the view does not show of the list is no part of it.
        for (const QPoint &pos : {QPoint(300, 50), QPoint(100, 130)}) {
            stage.tap(QPoint(100, 40));
            QCOMPARE(stage.state(), u"open"_s);
            stage.press(pos);
            const QString state = stage.state();
            stage.release(pos);
            QCOMPARE(state, u"closed"_s);
        }
    }

    // A widget on the view that ignores presses gives them to the view.
    void pressThroughAWidgetOnTheView()
    {
        WindowStage stage;
        QLabel onView(u"on the view"_s, stage.view.viewport());
        onView.setGeometry(20, 20, 160, 130);
        stage.tap(QPoint(100, 40));
        QCOMPARE(stage.state(), u"open"_s);
        stage.tap(stage.entryCentre(1));
        QCOMPARE(stage->selectIndex(), 1);
        stage.tap(QPoint(100, 40));
        stage.tap(QPoint(100, 40));
        QCOMPARE(stage.state(), u"closed"_s);
    }

    void viewInsideAnotherScene_data()
    {
        addRows(
            {{"input", inputs},
             {"views", {{"one view", 1}, {"first of two views", 2}, {"second of two views", 3}}}});
    }

    // Qt itself knows the first view of a proxy's scene only.
    void viewInsideAnotherScene()
    {
        const int views = fetch<int>("views");
        const auto interval = withoutDoubleClicks();
        ComboStage stage;
        KelTestView outer(QSize(500, 400));
        KelTestView second;
        stage.view.setParent(nullptr);
        QGraphicsProxyWidget *const proxy = outer.ownScene.addWidget(&stage.view);
        const auto takeOut = qScopeGuard([proxy] { proxy->setWidget(nullptr); });
        proxy->setPos(30, 20);
        QVERIFY(outer.showAndWait());
        if (views > 1) {
            second.setScene(&outer.ownScene);
            second.setGeometry(500, 0, 420, 320);
            second.scale(0.8, 0.8);
            QVERIFY(second.showAndWait());
        }
        KelTestView *const pressed = views == 3 ? &second : &outer;
        Hand hand(pressed, fetch<Input>("input"));
        const auto tap = [&](const QPoint &innerPos) { hand.tap(pressed->at(proxy, innerPos)); };
        for (const int place : {1, 0, 2}) {
            tap(QPoint(100, 40));
            QCOMPARE(stage.state(), u"open"_s);
            tap(QPoint(100, 74 + 30 * place));
            QCOMPARE(stage->selectIndex(), place);
            QCOMPARE(stage.state(), u"closed"_s);
        }
        for (const QPoint &pos : {QPoint(100, 40), QPoint(250, 74)}) {
            tap(QPoint(100, 40));
            QCOMPARE(stage.state(), u"open"_s);
            tap(pos);
            QCOMPARE(stage.state(), u"closed"_s);
        }
    }

    void viewInsideTheSceneItShows_data()
    {
        addRows({{"views", {{"one view", 1}, {"two views", 2}}}});
    }

    // It is never painted, which Qt would do for ever.
    void viewInsideTheSceneItShows()
    {
        ComboStage stage;
        for (int i = 0; i < fetch<int>("views"); ++i) {
            auto *inner = new QGraphicsView(&stage.view.ownScene);
            inner->setUpdatesEnabled(false);
            inner->resize(50, 50);
            QGraphicsProxyWidget *const proxy = stage.view.ownScene.addWidget(inner);
            proxy->setFlag(QGraphicsItem::ItemHasNoContents);
            proxy->setPos(250 + 60 * i, 200);
        }
        clickButton(*stage);
        QCOMPARE(stage.state(), u"open"_s);
        QWidget other;
        other.resize(50, 50);
        QTest::mousePress(&other, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
        QCOMPARE(stage.state(), u"closed"_s);
        QTest::mouseRelease(&other, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    }

    void buttonOfAMovedBoxOpensAgain_data() { addRows({{"input", inputs}}); }

    // Compat: the press on the button of a box that was moved by setPos() counts as one beside
    // it.
    void buttonOfAMovedBoxOpensAgain()
    {
        const auto interval = withoutDoubleClicks();
        ComboStage stage(fetch<Input>("input"));
        stage->setPos(100, 60);
        stage.open();
        QCOMPARE(stage.state(), u"open"_s);
        stage.hand.press(stage.buttonCentre());
        QCOMPARE(stage.state(), u"closed"_s);
        stage.hand.release();
        QCOMPARE(stage.state(), u"open"_s);
    }

    void entryOfAMovedBoxCannotBePicked_data() { addRows({{"input", inputs}}); }

    void entryOfAMovedBoxCannotBePicked()
    {
        ComboStage stage(fetch<Input>("input"));
        stage->setPos(100, 60);
        stage.open();
        stage.hand.tap(stage.entryCentre(1));
        QCOMPARE(stage.state(), u"closed"_s);
        QCOMPARE(stage->selectIndex(), -1);
    }

    void movedNeighbourOnTheSameItemPositionCloses_data() { addRows({{"input", inputs}}); }

    void movedNeighbourOnTheSameItemPositionCloses()
    {
        ComboStage stage(fetch<Input>("input"));
        stage.addNeighbour(QRectF(0, 0, 100, 80))->setPos(180, 130);
        stage.open();
        // (50, 40) in the neighbour, where the scene has the button of the box
        stage.hand.press(QPoint(230, 170));
        QCOMPARE(stage.state(), u"closed"_s);
        stage.hand.release();
    }
};

KEL_TEST_MAIN(tst_KELComboBoxOutside)
#include "tst_kelcomboboxoutside.moc"
