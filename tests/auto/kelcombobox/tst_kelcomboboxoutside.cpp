// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"

#include <QtCore/QScopeGuard>
#include <QtCore/QtMath>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <algorithm>

namespace {

// A window with the view of a combo box, other widgets beside it, and room below it.
class WindowStage
{
public:
    explicit WindowStage(const QSize &viewSize = QSize(400, 300))
    {
        window.resize(600, 500);
        stage.view.setParent(&window);
        stage.view.setGeometry(QRect(QPoint(0, 0), viewSize));
        pushButton.setGeometry(420, 10, 100, 40);
        label.setGeometry(420, 100, 100, 40);
        foreign.setGeometry(420, 200, 100, 80);
    }
    ~WindowStage()
    {
        for (QWidget *widget : QList<QWidget *>({&stage.view, &pushButton, &label, &foreign}))
            widget->setParent(nullptr);
    }

    bool show()
    {
        window.show();
        return QTest::qWaitForWindowExposed(&window);
    }

    // As the window system sends it.
    void press(Input input, const QPoint &pos, Qt::MouseButton button = Qt::LeftButton)
    {
        if (input == Input::Touch)
            QTest::touchEvent(&window, stageTouchScreen()).press(0, pos, &window);
        else
            QTest::mousePress(window.windowHandle(), button, Qt::NoModifier, pos);
    }
    void release(Input input, const QPoint &pos, Qt::MouseButton button = Qt::LeftButton)
    {
        if (input == Input::Touch)
            QTest::touchEvent(&window, stageTouchScreen()).release(0, pos, &window);
        else
            QTest::mouseRelease(window.windowHandle(), button, Qt::NoModifier, pos);
    }
    void tap(Input input, const QPoint &pos)
    {
        press(input, pos);
        release(input, pos);
    }

    QWidget window;
    ComboStage stage;
    QPushButton pushButton{u"Push"_s, &window};
    QLabel label{u"Label"_s, &window};
    QGraphicsScene foreignScene;
    QGraphicsView foreign{&foreignScene, &window};
};

} // namespace

// Presses while the list is open: which of them close it.
namespace {

enum Edge { LeftOfButton, RightOfButton, AboveButton, LeftOfList, RightOfList, BelowList };
const Named edges[] = {{"left of the button", LeftOfButton}, {"right of the button", RightOfButton},
                       {"above the button", AboveButton},    {"left of the list", LeftOfList},
                       {"right of the list", RightOfList},   {"below the list", BelowList}};

// The last pixel at that edge that shows anything of the rectangle of the view.
QPoint lastPixel(Edge edge, const QRectF &button, const QRectF &list)
{
    const QRectF &rect = edge == LeftOfList || edge == RightOfList || edge == BelowList ? list
                                                                                        : button;
    QPoint pixel = rect.center().toPoint();
    if (edge == LeftOfButton || edge == LeftOfList)
        pixel.setX(qFloor(rect.left()));
    else if (edge == RightOfButton || edge == RightOfList)
        pixel.setX(qCeil(rect.right()) - 1);
    else if (edge == AboveButton)
        pixel.setY(qFloor(rect.top()));
    else
        pixel.setY(qCeil(rect.bottom()) - 1);
    return pixel;
}

QPoint outwards(Edge edge)
{
    if (edge == LeftOfButton || edge == LeftOfList)
        return QPoint(-1, 0);
    if (edge == RightOfButton || edge == RightOfList)
        return QPoint(1, 0);
    return QPoint(0, edge == AboveButton ? -1 : 1);
}

} // namespace

class tst_KELComboBoxOutside : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pressInTheSceneCloses_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<int>("target");
        const Named targets[] = {{"bare scene", 0},         {"plain item", 1},
                                 {"disabled control", 2},   {"enabled control", 3},
                                 {"ignoring label", 4},     {"selectable item", 5},
                                 {"widget in the scene", 6}};
        for (const Named &input : inputs) {
            for (const Named &target : targets)
                QTest::addRow("%s, %s", input.name, target.name) << input.value << target.value;
        }
    }

    void pressInTheSceneCloses()
    {
        QFETCH(int, input);
        QFETCH(int, target);
        ComboStage stage;
        const QRectF rect(300, 200, 90, 90);
        KELPushButton *control = nullptr;
        if (target == 2 || target == 3) {
            control = addNeighbour(&stage, rect);
            control->setEnabled(target == 3);
        } else if (target == 4) {
            auto *label = new KELLabel;
            label->setboundRect(rect);
            stage.view.ownScene.addItem(label);
        } else if (target == 6) {
            stage.view.ownScene.addWidget(new QPushButton)->setGeometry(rect);
        } else if (target != 0) {
            QGraphicsItem *const item = stage.view.ownScene.addRect(rect);
            item->setFlag(QGraphicsItem::ItemIsSelectable, target == 5);
        }
        QVERIFY(stage.show());
        int clicks = 0;
        if (control)
            connect(control, &KELPushButton::mouseClicked, this, [&clicks] { ++clicks; });
        stage.open(Input(input));
        QCOMPARE(listState(*stage.box), u"open"_s);
        stage.press(Input(input), farAway);
        QCOMPARE(listState(*stage.box), u"closed"_s);
        QCOMPARE(stage.box->zValue(), 0.0);
        stage.release(Input(input), farAway);
        QCOMPARE(clicks, target == 3 ? 1 : 0); // the press is not consumed
        QCOMPARE(stage.box->selectIndex(), -1);
    }

    void pressBesideTheViewCloses_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<QPoint>("pos");
        QTest::addColumn<bool>("isButton");
        for (const Named &input : inputs) {
            QTest::addRow("%s, push button", input.name) << input.value << QPoint(470, 30) << true;
            QTest::addRow("%s, label", input.name) << input.value << QPoint(470, 120) << false;
            QTest::addRow("%s, another scene", input.name)
                << input.value << QPoint(470, 240) << false;
            QTest::addRow("%s, parent widget", input.name)
                << input.value << QPoint(300, 450) << false;
            QTest::addRow("%s, bare scene", input.name) << input.value << QPoint(300, 250) << false;
        }
    }

    void pressBesideTheViewCloses()
    {
        QFETCH(int, input);
        QFETCH(QPoint, pos);
        QFETCH(bool, isButton);
        WindowStage window;
        const KELComboBox &box = *window.stage.box;
        QVERIFY(window.show());
        const QSignalSpy clicked(&window.pushButton, &QPushButton::clicked);
        window.tap(Input(input), QPoint(100, 40));
        QCOMPARE(listState(box), u"open"_s);
        window.press(Input(input), pos);
        QCOMPARE(listState(box), u"closed"_s);
        window.release(Input(input), pos);
        QCOMPARE(clicked.count(), isButton ? 1 : 0);
        window.tap(Input(input), QPoint(100, 40));
        QCOMPARE(listState(box), u"open"_s);
        window.tap(Input(input), QPoint(100, 104));
        QCOMPARE(box.selectIndex(), 1);
    }

    // A widget that takes touches gets no mouse press in their place.
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
        WindowStage window;
        auto *pad = new TouchPad(&window.window);
        pad->setGeometry(100, 350, 100, 100);
        QVERIFY(window.show());
        window.tap(Input::Touch, QPoint(100, 40));
        window.press(Input::Touch, QPoint(150, 400));
        const QString state = listState(*window.stage.box);
        window.release(Input::Touch, QPoint(150, 400));
        QCOMPARE(pad->seen, QStringList(u"touch"_s));
        QCOMPARE(state, u"closed"_s);
    }

    void pressOnAnotherWindowCloses_data() { addInputs(); }

    void pressOnAnotherWindowCloses()
    {
        QFETCH(int, input);
        ComboStage stage;
        QVERIFY(stage.show());
        KelTestView other(QSize(100, 100));
        other.setGeometry(500, 0, 100, 100);
        QVERIFY(other.showAndWait());
        stage.open(Input(input));
        if (Input(input) == Input::Touch)
            other.touchPress(QPoint(50, 50));
        else
            other.press(QPoint(50, 50));
        QCOMPARE(listState(*stage.box), u"closed"_s);
        if (Input(input) == Input::Touch)
            other.touchRelease(QPoint(50, 50));
        else
            other.release(QPoint(50, 50));
    }

    void pressedWidgetDiesInASlot_data() { addInputs(); }

    void pressedWidgetDiesInASlot()
    {
        QFETCH(int, input);
        WindowStage window;
        QPointer<QWidget> pad(new QWidget(&window.window));
        pad->setGeometry(100, 350, 100, 100);
        pad->setAttribute(Qt::WA_AcceptTouchEvents);
        QVERIFY(window.show());
        window.tap(Input(input), QPoint(100, 40));
        connect(ComboParts(*window.stage.box).panel, &QGraphicsObject::visibleChanged, this,
                [&pad] { delete pad; });
        window.press(Input(input), QPoint(150, 400));
        QVERIFY(!pad);
        QCOMPARE(listState(*window.stage.box), u"closed"_s);
        window.release(Input(input), QPoint(150, 400));
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
        QVERIFY(stage.show());
        stage.open();
        Ignore ignore;
        QCoreApplication::instance()->installEventFilter(&ignore);
        QWidget other;
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&other, &press);
        QCOMPARE(listState(*stage.box), u"shown 1, up 1, filters 0, z 1"_s);
        QCoreApplication::instance()->removeEventFilter(&ignore);
        QCOMPARE(listState(*stage.box), u"open"_s);
    }

    void pressOnAWindowWithoutWidgetsCloses_data() { addInputs(); }

    void pressOnAWindowWithoutWidgetsCloses()
    {
        QFETCH(int, input);
        ComboStage stage;
        QVERIFY(stage.show());
        QWindow other;
        other.setGeometry(500, 0, 100, 100);
        other.show();
        QVERIFY(QTest::qWaitForWindowExposed(&other));
        stage.open(Input(input));
        QCOMPARE(listState(*stage.box), u"open"_s);
        if (Input(input) == Input::Touch) {
            QTest::touchEvent(&other, stageTouchScreen()).press(0, QPoint(50, 50), &other);
            QCOMPARE(listState(*stage.box), u"closed"_s);
            QTest::touchEvent(&other, stageTouchScreen()).release(0, QPoint(50, 50), &other);
        } else {
            QTest::mousePress(&other, Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
            QCOMPARE(listState(*stage.box), u"closed"_s);
            QTest::mouseRelease(&other, Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
        }
    }

    void secondViewOfTheScene_data() { addInputs(); }

    void secondViewOfTheScene()
    {
        QFETCH(int, input);
        ComboStage stage;
        QVERIFY(stage.show());
        KelTestView second;
        second.setScene(&stage.view.ownScene);
        second.setGeometry(500, 0, 400, 300);
        second.scale(0.5, 0.5);
        QVERIFY(second.showAndWait());
        const auto tap = [&](const QPoint &pos) {
            if (Input(input) == Input::Touch) {
                second.touchPress(pos);
                second.touchRelease(pos);
            } else {
                second.click(pos);
            }
        };
        stage.open(Input(input));
        tap(second.centreOf(stage.box->items().at(1)));
        QCOMPARE(stage.box->selectIndex(), 1);
        tap(second.centreOf(ComboParts(*stage.box).button));
        QCOMPARE(listState(*stage.box), u"open"_s);
        tap(QPoint(180, 130));
        QCOMPARE(listState(*stage.box), u"closed"_s);
    }

    void pressOnAWidgetOverTheListCloses_data() { addInputs(); }

    void pressOnAWidgetOverTheListCloses()
    {
        QFETCH(int, input);
        WindowStage window;
        const KELComboBox &box = *window.stage.box;
        window.pushButton.setGeometry(30, 65, 100, 60);
        window.pushButton.raise();
        QVERIFY(window.show());
        const QSignalSpy clicked(&window.pushButton, &QPushButton::clicked);
        clickButton(box);
        window.press(Input(input), QPoint(60, 104));
        QCOMPARE(listState(box), u"closed"_s);
        window.release(Input(input), QPoint(60, 104));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(box.selectIndex(), -1);
    }

    void pressOnAWindowOverTheListCloses_data() { addInputs(); }

    void pressOnAWindowOverTheListCloses()
    {
        QFETCH(int, input);
        ComboStage stage;
        QVERIFY(stage.show());
        KelTestView over;
        over.setGeometry(QRect(stage.view.mapToGlobal(QPoint(40, 65)), QSize(100, 80)));
        QVERIFY(over.showAndWait());
        clickButton(*stage.box);
        QCOMPARE(listState(*stage.box), u"open"_s);
        const QPoint pos(30, 30);
        const QPoint below = stage.view.viewport()->mapFromGlobal(over.mapToGlobal(pos));
        QVERIFY(stage.view.items(below).contains(stage.box->items().at(1)));
        if (Input(input) == Input::Touch)
            over.touchPress(pos);
        else
            over.press(pos);
        QCOMPARE(listState(*stage.box), u"closed"_s);
        if (Input(input) == Input::Touch)
            over.touchRelease(pos);
        else
            over.release(pos);
        QCOMPARE(stage.box->selectIndex(), -1);
    }

    void lastPixelIsInside_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<int>("edge");
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<bool>("isCut");
        struct Row
        {
            const char *name;
            qreal scale;
            QRectF rect;
        };
        for (const Row &row : {Row{"whole pixels", 1, {20, 20, 160, 40}},
                               Row{"half pixels", 1, {20.5, 20.5, 160, 40}},
                               Row{"one and a half", 1.5, {20, 20, 160, 40}},
                               Row{"one and a half, half pixels", 1.5, {21, 21, 160, 40}},
                               Row{"half, half pixels", 0.5, {21, 21, 160, 40}},
                               Row{"half", 0.5, {20, 20, 160, 41}}}) {
            const bool startsInAPixel = row.rect.x() * row.scale
                != qFloor(row.rect.x() * row.scale);
            for (const Named &edge : edges) {
                const QPoint out = outwards(Edge(edge.value));
                const bool isCut = startsInAPixel && (out.x() < 0 || out.y() < 0);
                for (const Named &input : inputs)
                    QTest::addRow("%s, %s, %s", edge.name, row.name, input.name)
                        << input.value << edge.value << row.scale << row.rect << isCut;
            }
        }
    }

    // A press belongs to a control as soon as the control has a part of the pixel, as in a scene.
    // Kept as it is: what a scene tells is the left top corner of the pixel, which is beside a
    // control that begins within the pixel.
    void lastPixelIsInside()
    {
        QFETCH(int, input);
        QFETCH(int, edge);
        QFETCH(qreal, scale);
        QFETCH(QRectF, rect);
        QFETCH(bool, isCut);
        ComboStage stage;
        stage.box->setboundRect(rect);
        stage.view.setSceneRect(0, 0, 400 / scale, 300 / scale); // does not scroll
        stage.view.scale(scale, scale);
        QVERIFY(stage.show());
        const ComboParts parts(*stage.box);
        const QRectF button(rect.topLeft() * scale, rect.size() * scale);
        const QRectF list(rect.left() * scale, (rect.bottom() - 1) * scale, rect.width() * scale,
                          90 * scale);
        const QPoint inside = lastPixel(Edge(edge), button, list);
        const QPoint outside = inside + outwards(Edge(edge));

        clickButton(*stage.box);
        const KELRoundRectControl *part = parts.panel;
        if (Edge(edge) < LeftOfList)
            part = parts.button;
        const QList<QGraphicsItem *> hit = stage.view.items(inside);
        QVERIFY(std::find(hit.begin(), hit.end(), part) != hit.end());
        stage.press(Input(input), inside);
        QCOMPARE(listState(*stage.box), isCut ? u"closed"_s : u"open"_s);
        stage.release(Input(input), inside);

        if (!stage.isOpen()) // by a click on button or entry
            clickButton(*stage.box);
        QVERIFY(stage.view.items(outside).isEmpty());
        stage.press(Input(input), outside);
        QCOMPARE(listState(*stage.box), u"closed"_s);
        stage.release(Input(input), outside);
        QCOMPARE(listState(*stage.box), u"closed"_s);
    }

    void pressInsideDoesNotClose_data()
    {
        QTest::addColumn<QPoint>("pos");
        QTest::addColumn<int>("mouseButton");
        struct Row
        {
            const char *name;
            QPoint pos;
        };
        for (const Row &row :
             {Row{"text", {60, 40}}, Row{"between the labels", {152, 40}}, Row{"arrow", {167, 40}},
              Row{"entry", {100, 104}}, Row{"edge of the list", {20, 100}}}) {
            QTest::addRow("%s, right", row.name) << row.pos << int(Qt::RightButton);
            QTest::addRow("%s, middle", row.name) << row.pos << int(Qt::MiddleButton);
        }
    }

    void pressInsideDoesNotClose()
    {
        QFETCH(QPoint, pos);
        QFETCH(int, mouseButton);
        WindowStage window;
        const KELComboBox &box = *window.stage.box;
        QVERIFY(window.show());
        window.tap(Input::Mouse, QPoint(100, 40));
        window.press(Input::Mouse, pos, Qt::MouseButton(mouseButton));
        QCOMPARE(listState(box), u"open"_s);
        window.release(Input::Mouse, pos, Qt::MouseButton(mouseButton));
        QCOMPARE(listState(box), u"open"_s);
        QCOMPARE(box.selectIndex(), -1);
        // the same button elsewhere
        window.press(Input::Mouse, farAway, Qt::MouseButton(mouseButton));
        QCOMPARE(listState(box), u"closed"_s);
        window.release(Input::Mouse, farAway, Qt::MouseButton(mouseButton));
    }

    void pressOnAGapOfTheList_data() { addInputs(); }

    void pressOnAGapOfTheList()
    {
        QFETCH(int, input);
        ComboStage stage;
        KELPushButton *const below = addNeighbour(&stage, QRectF(20, 65, 160, 80));
        QVERIFY(stage.show());
        const QSignalSpy clicked(below, &KELPushButton::mouseClicked);
        stage.open(Input(input));
        delete stage.box->items().at(0);
        stage.tap(Input(input), stage.rowCentre(0));
        QCOMPARE(listState(*stage.box), u"open"_s);
        QCOMPARE(stage.box->selectIndex(), -1);
        QCOMPARE(clicked.count(), 0);
        if (Input(input) == Input::Mouse) {
            stage.press(Input::Mouse, stage.rowCentre(0), Qt::RightButton);
            QCOMPARE(listState(*stage.box), u"open"_s);
            stage.release(Input::Mouse, stage.rowCentre(0), Qt::RightButton);
        }
        stage.tap(Input(input), stage.rowCentre(1));
        QCOMPARE(stage.box->selectIndex(), 0);
    }

    void entryBelowTheListCloses_data() { addInputs(); }

    void entryBelowTheListCloses()
    {
        QFETCH(int, input);
        ComboStage stage;
        QVERIFY(stage.show());
        const QSignalSpy changed(stage.box, &KELComboBox::selectItemChanged);
        stage.open(Input(input));
        delete stage.box->items().at(0);
        const QPoint last = stage.entryCentre(1);
        stage.press(Input(input), last);
        QCOMPARE(listState(*stage.box), u"closed"_s);
        stage.release(Input(input), last);
        QCOMPARE(stage.box->selectIndex(), -1);
        QCOMPARE(changed.count(), 0);
    }

    // A press near the one before it, and soon after it, is a double click, also when it is beside
    // the control.
    void doubleClickOutsideCloses()
    {
        ComboStage stage;
        QVERIFY(stage.show());
        stage.view.click(QPoint(21, 40));
        QCOMPARE(listState(*stage.box), u"open"_s);
        stage.view.doubleClickPress(QPoint(18, 40));
        QCOMPARE(listState(*stage.box), u"closed"_s);
        stage.view.release(QPoint(18, 40));
    }

    void listOutsideTheView_data() { addInputs(); }

    void listOutsideTheView()
    {
        QFETCH(int, input);
        WindowStage window(QSize(400, 100));
        const KELComboBox &box = *window.stage.box;
        QVERIFY(window.show());
        window.tap(Input(input), QPoint(100, 40));
        QCOMPARE(listState(box), u"open"_s);
        window.tap(Input(input), QPoint(100, 74)); // the entry that is in the view
        QCOMPARE(box.selectIndex(), 0);
        window.tap(Input(input), QPoint(100, 40));
        window.press(Input(input), QPoint(300, 50));
        QCOMPARE(listState(box), u"closed"_s);
        window.release(Input(input), QPoint(300, 50));
    }

    void pressWhereTheCutOffListWouldBe_data() { addInputs(); }

    // What the view does not show of the list is no part of it.
    void pressWhereTheCutOffListWouldBe()
    {
        QFETCH(int, input);
        WindowStage window(QSize(400, 100));
        const KELComboBox &box = *window.stage.box;
        QVERIFY(window.show());
        window.tap(Input(input), QPoint(100, 40));
        QCOMPARE(listState(box), u"open"_s);
        window.press(Input(input), QPoint(100, 130));
        const QString state = listState(box);
        window.release(Input(input), QPoint(100, 130));
        QCOMPARE(state, u"closed"_s);
    }

    // A widget on the view that ignores presses gives them to the view.
    void pressThroughAWidgetOnTheView()
    {
        ComboStage stage;
        QLabel onView(u"on the view"_s, stage.view.viewport());
        onView.setGeometry(20, 20, 160, 130);
        QVERIFY(stage.show());
        const auto tap = [&onView](const QPoint &pos) {
            QTest::mousePress(onView.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier, pos);
            QTest::mouseRelease(onView.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                                pos);
        };
        tap(QPoint(100, 40));
        QCOMPARE(listState(*stage.box), u"open"_s);
        tap(stage.entryCentre(1));
        QCOMPARE(stage.box->selectIndex(), 1);
        tap(QPoint(100, 40));
        tap(QPoint(100, 40));
        QCOMPARE(listState(*stage.box), u"closed"_s);
    }

    void viewInsideAnotherScene()
    {
        KelTestView outer;
        ComboStage stage;
        QGraphicsProxyWidget *const proxy = outer.ownScene.addWidget(&stage.view);
        const auto takeOut = qScopeGuard([proxy] { proxy->setWidget(nullptr); });
        QVERIFY(outer.showAndWait());
        outer.click(QPoint(100, 40));
        QCOMPARE(listState(*stage.box), u"open"_s);
        outer.click(QPoint(100, 104));
        QCOMPARE(stage.box->selectIndex(), 1);
        outer.click(QPoint(100, 40));
        outer.click(QPoint(100, 40));
        QCOMPARE(listState(*stage.box), u"closed"_s);
        outer.click(QPoint(100, 40));
        outer.click(farAway);
        QCOMPARE(listState(*stage.box), u"closed"_s);
    }

    void viewInsideASceneWithTwoViews_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<bool>("inSecond");
        for (const Named &input : inputs) {
            QTest::addRow("%s, first view", input.name) << input.value << false;
            QTest::addRow("%s, second view", input.name) << input.value << true;
        }
    }

    // Qt itself knows the first view of a proxy's scene only.
    void viewInsideASceneWithTwoViews()
    {
        QFETCH(int, input);
        QFETCH(bool, inSecond);
        const auto interval = qScopeGuard([before = QApplication::doubleClickInterval()] {
            QApplication::setDoubleClickInterval(before);
        });
        QApplication::setDoubleClickInterval(0);
        KelTestView outer(QSize(500, 400));
        KelTestView second;
        second.setScene(&outer.ownScene);
        second.setGeometry(500, 0, 420, 320);
        second.scale(0.8, 0.8);
        ComboStage stage;
        QGraphicsProxyWidget *const proxy = outer.ownScene.addWidget(&stage.view);
        const auto takeOut = qScopeGuard([proxy] { proxy->setWidget(nullptr); });
        proxy->setPos(30, 20);
        QVERIFY(outer.showAndWait());
        QVERIFY(second.showAndWait());
        KelTestView *const pressed = inSecond ? &second : &outer;
        const auto tap = [&](const QPoint &posInTheInnerView) {
            const QPoint pos = pressed->at(proxy, posInTheInnerView);
            if (Input(input) == Input::Touch) {
                pressed->touchPress(pos);
                pressed->touchRelease(pos);
            } else {
                pressed->click(pos);
            }
        };
        for (const int place : {1, 0, 2}) {
            tap(QPoint(100, 40));
            QCOMPARE(listState(*stage.box), u"open"_s);
            tap(QPoint(100, 74 + 30 * place));
            QCOMPARE(stage.box->selectIndex(), place);
            QCOMPARE(listState(*stage.box), u"closed"_s);
        }
        tap(QPoint(100, 40));
        tap(QPoint(100, 40));
        QCOMPARE(listState(*stage.box), u"closed"_s);
        tap(QPoint(100, 40));
        tap(QPoint(250, 74));
        QCOMPARE(listState(*stage.box), u"closed"_s);
    }

    void viewInsideTheSceneItShows_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("one view") << 1;
        QTest::newRow("two views") << 2;
    }

    // It is never painted, which Qt would do for ever.
    void viewInsideTheSceneItShows()
    {
        QFETCH(int, count);
        ComboStage stage;
        for (int i = 0; i < count; ++i) {
            auto *inner = new QGraphicsView(&stage.view.ownScene);
            inner->setUpdatesEnabled(false);
            inner->resize(50, 50);
            QGraphicsProxyWidget *const proxy = stage.view.ownScene.addWidget(inner);
            proxy->setFlag(QGraphicsItem::ItemHasNoContents);
            proxy->setPos(250 + 60 * i, 200);
        }
        clickButton(*stage.box);
        QCOMPARE(listState(*stage.box), u"open"_s);
        QWidget other;
        other.resize(50, 50);
        QTest::mousePress(&other, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
        QCOMPARE(listState(*stage.box), u"closed"_s);
        QTest::mouseRelease(&other, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    }

    void scenePressComparesItemPositions_data() { addInputs(); }

    // Compat: the press on the button of a box that was moved by setPos() counts as one beside
    // it.
    void scenePressComparesItemPositions()
    {
        QFETCH(int, input);
        const auto interval = qScopeGuard([before = QApplication::doubleClickInterval()] {
            QApplication::setDoubleClickInterval(before);
        });
        QApplication::setDoubleClickInterval(0); // a second tap would be no press
        ComboStage stage;
        stage.box->setPos(150, 100);
        QVERIFY(stage.show());
        stage.open(Input(input));
        QCOMPARE(listState(*stage.box), u"open"_s);
        stage.press(Input(input), stage.buttonCentre());
        QCOMPARE(listState(*stage.box), u"closed"_s);
        stage.release(Input(input), stage.buttonCentre());
        QCOMPARE(listState(*stage.box), u"open"_s);
    }

    void entryOfAMovedBoxCannotBePicked_data() { addInputs(); }

    void entryOfAMovedBoxCannotBePicked()
    {
        QFETCH(int, input);
        ComboStage stage;
        stage.box->setPos(150, 100);
        QVERIFY(stage.show());
        stage.open(Input(input));
        stage.tap(Input(input), stage.entryCentre(1));
        QCOMPARE(listState(*stage.box), u"closed"_s);
        QCOMPARE(stage.box->selectIndex(), -1);
    }

    void movedNeighbourOnTheSameItemPositionCloses_data() { addInputs(); }

    void movedNeighbourOnTheSameItemPositionCloses()
    {
        QFETCH(int, input);
        ComboStage stage;
        KELPushButton *const neighbour = addNeighbour(&stage, QRectF(0, 0, 100, 80));
        neighbour->setPos(250, 200);
        QVERIFY(stage.show());
        stage.open(Input(input));
        // (50, 40) in the neighbour, where the scene has the button of the box
        stage.press(Input(input), QPoint(300, 240));
        QCOMPARE(listState(*stage.box), u"closed"_s);
        stage.release(Input(input), QPoint(300, 240));
    }
};

KEL_TEST_MAIN(tst_KELComboBoxOutside)
#include "tst_kelcomboboxoutside.moc"
