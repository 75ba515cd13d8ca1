// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "helperstage.h"
#include "xserver.h"

#include <kelapplicationnotify.h>

#include <QtCore/QDeadlineTimer>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSplashScreen>
#include <QtWidgets/QToolTip>

#include <memory>
#include <vector>

using HelperStage::letScheduledHidesRun;
using HelperStage::longPeriodMs;
using HelperStage::PanelInWindow;
using HelperStage::periodOf;
using HelperStage::sendMouse;
using HelperStage::Window;

namespace {

enum class Outcome { Nothing, Restarts, Hides };
enum class State { Visible, Hidden, ParentHidden, Pending };

constexpr Outcome nothing = Outcome::Nothing;
constexpr Outcome restarts = Outcome::Restarts;
constexpr Outcome hides = Outcome::Hides;

constexpr QPoint inside = PanelInWindow::inside;
constexpr QPoint outside = PanelInWindow::outside;
constexpr QRect otherRect(450, 200, 200, 150);

// The panel in a page in a window, and whatever a row of a table adds.
struct Stage
{
    explicit Stage(bool panelIsWindow = false) : window(QRect(20, 30, 400, 300))
    {
        // A failed row may have left one.
        if (HelperStage::scheduledHides() > 0)
            letScheduledHidesRun();
        page = new QWidget(&window);
        page->setGeometry(0, 0, 400, 300);
        if (panelIsWindow) {
            panel = keep(new Window(QRect(450, 40, 120, 80)));
        } else {
            panel = new QWidget(page);
            panel->setGeometry(PanelInWindow::panelRect);
        }
        window.show();
        panel->show();
    }

    template <typename Object>
    Object *keep(Object *object)
    {
        kept.emplace_back(object);
        return object;
    }

    QWidget *newWindow(Qt::WindowFlags flags)
    {
        auto *const made = keep(new Window(otherRect, nullptr, flags));
        made->show();
        return made;
    }

    QWindow *newQWindow(Qt::WindowFlags flags)
    {
        auto *const made = keep(new QWindow);
        made->setFlags(flags);
        made->setGeometry(otherRect);
        return made;
    }

    Window window;
    QWidget *page = nullptr;
    QWidget *panel = nullptr;
    std::vector<std::unique_ptr<QObject>> kept;
};

QWidget *childOf(QWidget *parentWidget, Qt::WindowFlags flags = Qt::WindowFlags())
{
    auto *const child = new QWidget(parentWidget);
    child->setWindowFlags(flags);
    child->setGeometry(10, 10, 60, 40);
    child->show();
    return child;
}

QWidget *nativeChildOf(QWidget *parentWidget, Qt::WindowFlags flags = Qt::WindowFlags())
{
    QWidget *const child = childOf(parentWidget, flags);
    child->setAttribute(Qt::WA_NativeWindow);
    child->winId();
    return child;
}

QWidget *dialogOf(QWidget *parentWidget)
{
    auto *const dialog = new Window(QRect(500, 400, 100, 80), parentWidget, Qt::Dialog);
    dialog->show();
    return dialog;
}

QComboBox *openComboBoxIn(Stage *stage)
{
    auto *const box = new QComboBox(stage->page);
    box->addItems({u"one"_s, u"two"_s});
    box->setGeometry(260, 20, 100, 30);
    box->show();
    box->showPopup();
    return box;
}

QMenu *openMenuOf(Stage *stage)
{
    auto *const menu = stage->keep(new QMenu);
    menu->addAction(u"one"_s);
    menu->popup(otherRect.topLeft());
    return menu;
}

const Qt::WindowFlags noFocus = Qt::WindowDoesNotAcceptFocus;
const Qt::WindowFlags noFocusWindow = Qt::Window | Qt::WindowDoesNotAcceptFocus;

// What a press does, by trigger source and position: in the geometry of the panel or not.
struct Outcomes
{
    Outcome none;
    Outcome parentIn;
    Outcome parentOut;
    Outcome screenIn;
    Outcome screenOut;
    Outcome other;
};

constexpr Outcomes ofAnyObject = {nothing, restarts, restarts, restarts, hides, restarts};
constexpr Outcomes ofTheParent = {nothing, restarts, hides, restarts, hides, restarts};
constexpr Outcomes ofNothing = {nothing, nothing, nothing, nothing, nothing, nothing};

struct Receiver
{
    const char *name;
    QObject *(*make)(Stage *);
    Outcomes outcomes;
};

const Receiver receiverRows[] = {
    {"the widget", [](Stage *s) -> QObject * { return s->panel; }, ofAnyObject},
    {"its child", [](Stage *s) -> QObject * { return childOf(s->panel); }, ofAnyObject},
    {"its parent", [](Stage *s) -> QObject * { return s->page; }, ofTheParent},
    {"the parent of the parent", [](Stage *s) -> QObject * { return &s->window; }, ofAnyObject},
    {"a sibling", [](Stage *s) -> QObject * { return childOf(s->page); }, ofAnyObject},
    {"a child of a sibling", [](Stage *s) -> QObject * { return childOf(childOf(s->page)); },
     ofAnyObject},
    {"a native sibling", [](Stage *s) -> QObject * { return nativeChildOf(s->page); }, ofAnyObject},
    {"a child of a native sibling",
     [](Stage *s) -> QObject * { return childOf(nativeChildOf(s->page)); }, ofAnyObject},
    {"another window", [](Stage *s) -> QObject * { return s->newWindow(Qt::Window); }, ofAnyObject},
    {"a child of another window",
     [](Stage *s) -> QObject * { return childOf(s->newWindow(Qt::Window)); }, ofAnyObject},
    {"a dialog", [](Stage *s) -> QObject * { return dialogOf(s->page); }, ofAnyObject},
    {"a sheet", [](Stage *s) -> QObject * { return s->newWindow(Qt::Sheet); }, ofAnyObject},
    {"a drawer", [](Stage *s) -> QObject * { return s->newWindow(Qt::Drawer); }, ofAnyObject},

    {"a popup", [](Stage *s) -> QObject * { return s->newWindow(Qt::Popup); }, ofNothing},
    {"a tool window", [](Stage *s) -> QObject * { return s->newWindow(Qt::Tool); }, ofNothing},
    {"a tool tip", [](Stage *s) -> QObject * { return s->newWindow(Qt::ToolTip); }, ofNothing},
    {"a splash screen", [](Stage *s) -> QObject * { return s->newWindow(Qt::SplashScreen); },
     ofNothing},
    {"a child of a popup", [](Stage *s) -> QObject * { return childOf(s->newWindow(Qt::Popup)); },
     ofNothing},
    {"a child of a tool window",
     [](Stage *s) -> QObject * { return childOf(s->newWindow(Qt::Tool)); }, ofNothing},
    {"a child of a child of a tool tip",
     [](Stage *s) -> QObject * { return childOf(childOf(s->newWindow(Qt::ToolTip))); }, ofNothing},
    {"a native child of a tool window",
     [](Stage *s) -> QObject * { return nativeChildOf(s->newWindow(Qt::Tool)); }, ofNothing},
    {"a dialog of a tool window",
     [](Stage *s) -> QObject * { return dialogOf(s->newWindow(Qt::Tool)); }, ofNothing},
    {"a child of a dialog of a tool window",
     [](Stage *s) -> QObject * { return childOf(dialogOf(s->newWindow(Qt::Tool))); }, ofNothing},
    {"a menu", [](Stage *s) -> QObject * { return openMenuOf(s); }, ofNothing},
    {"the list of a combo box",
     [](Stage *s) -> QObject * { return openComboBoxIn(s)->view()->viewport(); }, ofNothing},
    {"the window of that list",
     [](Stage *s) -> QObject * { return openComboBoxIn(s)->view()->window(); }, ofNothing},

    {"a window without focus", [](Stage *s) -> QObject * { return s->newWindow(noFocusWindow); },
     ofNothing},
    {"a child of a window without focus",
     [](Stage *s) -> QObject * { return childOf(s->newWindow(noFocusWindow)); }, ofNothing},
    {"a child of a child of a window without focus",
     [](Stage *s) -> QObject * { return childOf(childOf(s->newWindow(noFocusWindow))); },
     ofNothing},
    {"a native child of a window without focus",
     [](Stage *s) -> QObject * { return nativeChildOf(s->newWindow(noFocusWindow)); }, ofNothing},
    {"a child of a native child of a window without focus",
     [](Stage *s) -> QObject * { return childOf(nativeChildOf(s->newWindow(noFocusWindow))); },
     ofAnyObject},
    {"a dialog of a window without focus",
     [](Stage *s) -> QObject * { return dialogOf(s->newWindow(noFocusWindow)); }, ofNothing},
    {"a sibling without focus", [](Stage *s) -> QObject * { return childOf(s->page, noFocus); },
     ofNothing},
    {"a child of a sibling without focus",
     [](Stage *s) -> QObject * { return childOf(childOf(s->page, noFocus)); }, ofAnyObject},
    {"a child of a native sibling without focus",
     [](Stage *s) -> QObject * { return childOf(nativeChildOf(s->page, noFocus)); }, ofNothing},

    {"a QWindow", [](Stage *s) -> QObject * { return s->newQWindow(Qt::Window); }, ofAnyObject},
    {"a QWindow, dialog", [](Stage *s) -> QObject * { return s->newQWindow(Qt::Dialog); },
     ofAnyObject},
    {"a QWindow with one of the two bits of a popup",
     [](Stage *s) -> QObject * { return s->newQWindow(Qt::WindowFlags(8)); }, ofAnyObject},
    {"a QWindow, popup", [](Stage *s) -> QObject * { return s->newQWindow(Qt::Popup); }, ofNothing},
    {"a QWindow, tool window", [](Stage *s) -> QObject * { return s->newQWindow(Qt::Tool); },
     ofNothing},
    {"a QWindow, tool tip", [](Stage *s) -> QObject * { return s->newQWindow(Qt::ToolTip); },
     ofNothing},
    {"a QWindow, splash screen",
     [](Stage *s) -> QObject * { return s->newQWindow(Qt::SplashScreen); }, ofNothing},
    {"a QWindow without focus", [](Stage *s) -> QObject * { return s->newQWindow(noFocusWindow); },
     ofNothing},
    {"a QWindow in a QWindow without focus",
     [](Stage *s) -> QObject * { return new QWindow(s->newQWindow(noFocusWindow)); }, ofAnyObject},

    {"an object", [](Stage *s) -> QObject * { return s->keep(new QObject); }, ofNothing},
    {"an object in the panel", [](Stage *s) -> QObject * { return new QObject(s->panel); },
     ofNothing},
    {"the application", [](Stage *) -> QObject * { return QCoreApplication::instance(); },
     ofNothing},
};

// What a press does while the widget is not visible or a hide is scheduled, whatever receives it.
struct ElsewhenRow
{
    const char *name;
    State state;
    int source;
    Outcome outcome;
};

const ElsewhenRow elsewhenRows[] = {
    {"hidden, TriggerNone", State::Hidden, 0, nothing},
    {"hidden, TriggerParent", State::Hidden, 1, restarts},
    {"hidden, TriggerScreen", State::Hidden, 2, restarts},
    {"hidden, another source", State::Hidden, 3, restarts},
    {"in a hidden parent, TriggerNone", State::ParentHidden, 0, nothing},
    {"in a hidden parent, TriggerParent", State::ParentHidden, 1, restarts},
    {"in a hidden parent, TriggerScreen", State::ParentHidden, 2, restarts},
    {"in a hidden parent, another source", State::ParentHidden, 3, restarts},
    {"pending, TriggerNone", State::Pending, 0, nothing},
    {"pending, TriggerParent", State::Pending, 1, nothing},
    {"pending, TriggerScreen", State::Pending, 2, nothing},
    {"pending, another source", State::Pending, 3, nothing},
};

enum class Device { Mouse, Touch };

// A place for a real press.
struct Spot
{
    QPointer<QWindow> window;
    QPoint pos;
};

Spot spotIn(QWidget *widget, const QPoint &pos)
{
    QWidget *const native = widget->windowHandle() ? widget : widget->nativeParentWidget();
    return {native->windowHandle(), widget->mapTo(native, pos)};
}

// As qWaitForWindowExposed() for each, which sleeps.
bool areExposed(const QList<QWindow *> &windows)
{
    const QDeadlineTimer deadline(HelperStage::patienceMs);
    const auto isExposed = [](const QWindow *window) { return window && window->isExposed(); };
    while (!std::all_of(windows.cbegin(), windows.cend(), isExposed)) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents();
    }
    return true;
}

QTouchDevice *touchScreen()
{
    static QTouchDevice *const device = QTest::createTouchDevice();
    return device;
}

void press(const Spot &spot, Device device)
{
    if (device == Device::Mouse)
        QTest::mousePress(spot.window, Qt::LeftButton, Qt::NoModifier, spot.pos);
    else
        QTest::touchEvent(spot.window, touchScreen()).press(0, spot.pos, spot.window);
}

void release(const Spot &spot, Device device)
{
    if (!spot.window)
        return;
    if (device == Device::Mouse)
        QTest::mouseRelease(spot.window, Qt::LeftButton, Qt::NoModifier, spot.pos);
    else
        QTest::touchEvent(spot.window, touchScreen()).release(0, spot.pos, spot.window);
}

QWidget *acceptingChildOf(QWidget *parentWidget)
{
    auto *const button = new QPushButton(parentWidget);
    button->setGeometry(10, 10, 60, 40);
    // A window that becomes active late takes no focus from it then.
    button->setFocusPolicy(Qt::NoFocus);
    button->show();
    return button;
}

Spot spotInSplashScreen(Stage *stage)
{
    auto *const splash = stage->keep(new QSplashScreen(QPixmap(otherRect.size())));
    splash->move(otherRect.topLeft());
    splash->show();
    return spotIn(splash, QPoint(20, 20));
}

Spot spotInToolTip(Stage * /*stage*/)
{
    QToolTip::showText(otherRect.topLeft(), u"a long tip to press on"_s);
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (widget->windowType() == Qt::ToolTip && widget->isVisible())
            return spotIn(widget, QPoint(5, 5));
    }
    return {};
}

Spot spotInQWindow(Stage *stage)
{
    QWindow *const window = stage->newQWindow(Qt::Window | Qt::FramelessWindowHint);
    window->show();
    return {window, QPoint(20, 20)};
}

struct RealRow
{
    const char *name;
    Spot (*make)(Stage *);
    Outcome none;
    Outcome parent;
    Outcome screen;
    Outcome other;
};

// With TriggerScreen the panel is a window of its own. A widget that ignores the press hands it to
// its parent.
const RealRow realRows[] = {
    {"on the widget", [](Stage *s) { return spotIn(s->panel, QPoint(60, 40)); }, nothing, restarts,
     restarts, restarts},
    {"on its first pixel", [](Stage *s) { return spotIn(s->panel, QPoint(0, 0)); }, nothing,
     restarts, restarts, restarts},
    {"on its last pixel", [](Stage *s) { return spotIn(s->panel, QPoint(119, 79)); }, nothing,
     restarts, restarts, restarts},
    {"on a button in it", [](Stage *s) { return spotIn(acceptingChildOf(s->panel), QPoint(5, 5)); },
     nothing, restarts, restarts, restarts},
    {"on the parent", [](Stage *s) { return spotIn(s->page, QPoint(300, 200)); }, nothing, hides,
     hides, restarts},
    {"on the parent, one pixel beside the widget",
     [](Stage *s) { return spotIn(s->page, QPoint(220, 140)); }, nothing, hides, hides, restarts},
    {"on a button beside it",
     [](Stage *s) { return spotIn(acceptingChildOf(s->page), QPoint(5, 5)); }, nothing, restarts,
     hides, restarts},
    {"on a sibling that ignores it",
     [](Stage *s) { return spotIn(childOf(s->page), QPoint(5, 5)); }, nothing, hides, hides,
     restarts},
    {"on a native sibling that ignores it",
     [](Stage *s) { return spotIn(nativeChildOf(s->page), QPoint(5, 5)); }, nothing, hides, hides,
     restarts},
    {"on a button in a native sibling",
     [](Stage *s) { return spotIn(acceptingChildOf(nativeChildOf(s->page)), QPoint(15, 15)); },
     nothing, restarts, hides, restarts},
    {"on another window", [](Stage *s) { return spotIn(s->newWindow(Qt::Window), QPoint(20, 20)); },
     nothing, restarts, hides, restarts},
    {"on a QWindow", spotInQWindow, nothing, restarts, hides, restarts},
    {"in a popup", [](Stage *s) { return spotIn(s->newWindow(Qt::Popup), QPoint(20, 20)); },
     nothing, nothing, nothing, nothing},
    {"on a button in a popup",
     [](Stage *s) { return spotIn(acceptingChildOf(s->newWindow(Qt::Popup)), QPoint(5, 5)); },
     nothing, nothing, nothing, nothing},
    {"in a tool window", [](Stage *s) { return spotIn(s->newWindow(Qt::Tool), QPoint(20, 20)); },
     nothing, nothing, nothing, nothing},
    {"in a splash screen", spotInSplashScreen, nothing, nothing, nothing, nothing},
    {"in a tool tip", spotInToolTip, nothing, nothing, nothing, nothing},
    {"in a menu", [](Stage *s) { return spotIn(openMenuOf(s), QPoint(8, 8)); }, nothing, nothing,
     nothing, nothing},
    {"in the list of a combo box",
     [](Stage *s) { return spotIn(openComboBoxIn(s)->view()->viewport(), QPoint(5, 5)); }, nothing,
     nothing, nothing, nothing},
    {"on a key of a keyboard without focus",
     [](Stage *s) { return spotIn(acceptingChildOf(s->newWindow(noFocusWindow)), QPoint(5, 5)); },
     nothing, nothing, nothing, nothing},
};

} // namespace

// What each press does, delivered to one receiver and for real. Runs offscreen and on an X server.
class tst_KELNonModalhelperPress : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(0); }

    void delivered_data()
    {
        QTest::addColumn<int>("receiver");
        QTest::addColumn<int>("source");
        QTest::addColumn<QPoint>("local");
        QTest::addColumn<QPoint>("onScreen");
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("outcome");

        for (int i = 0; i < int(std::size(receiverRows)); ++i) {
            const char *const name = receiverRows[i].name;
            const Outcomes &outcomes = receiverRows[i].outcomes;
            const auto add = [&](const char *when, int source, const QPoint &local,
                                 const QPoint &onScreen, State state, Outcome outcome) {
                QTest::addRow("%s; %s", name, when)
                    << i << source << local << onScreen << int(state) << int(outcome);
            };
            const State visible = State::Visible;
            add("TriggerNone", 0, outside, outside, visible, outcomes.none);
            add("TriggerParent, inside", 1, inside, outside, visible, outcomes.parentIn);
            add("TriggerParent, outside", 1, outside, inside, visible, outcomes.parentOut);
            add("TriggerScreen, inside", 2, outside, inside, visible, outcomes.screenIn);
            add("TriggerScreen, outside", 2, inside, outside, visible, outcomes.screenOut);
            add("another source", 3, outside, outside, visible, outcomes.other);
            for (const ElsewhenRow &row : elsewhenRows)
                add(row.name, row.source, outside, outside, row.state, row.outcome);
        }
    }

    void delivered()
    {
        QFETCH(int, receiver);
        QFETCH(int, source);
        QFETCH(QPoint, local);
        QFETCH(QPoint, onScreen);
        QFETCH(int, state);
        QFETCH(int, outcome);
        Stage stage;
        QObject *const target = receiverRows[receiver].make(&stage);
        // This receiver and no other.
        if (target->isWidgetType())
            static_cast<QWidget *>(target)->setAttribute(Qt::WA_NoMousePropagation);
        stage.panel->setHidden(State(state) == State::Hidden);
        stage.window.setHidden(State(state) == State::ParentHidden);
        KELNonModalhelper helper(stage.panel);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        helper.enableTime(longPeriodMs);
        const bool pending = State(state) == State::Pending;
        if (pending)
            sendMouse(stage.page, outside, outside);
        helper.setTriggerSource(HelperStage::Source(source));
        helper.stopTime();

        sendMouse(target, local, onScreen);
        const bool willHide = pending || Outcome(outcome) == hides;
        QCOMPARE(periodOf(&helper), Outcome(outcome) == restarts ? longPeriodMs : -1);
        QCOMPARE(stage.panel->isHidden(), State(state) == State::Hidden);
        QCOMPARE(triggered.count(), 0);
        QCOMPARE(HelperStage::scheduledHides(), int(willHide));
        if (!willHide)
            return;
        letScheduledHidesRun();
        QCOMPARE(triggered.count(), 1);
        QVERIFY(stage.panel->isHidden());
    }

    void real_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("device");
        QTest::addColumn<int>("source");
        QTest::addColumn<int>("outcome");

        for (int i = 0; i < int(std::size(realRows)); ++i) {
            const RealRow &row = realRows[i];
            for (const Device device : {Device::Mouse, Device::Touch}) {
                const auto add = [&](const char *source, int value, Outcome outcome) {
                    QTest::addRow("%s %s, %s", device == Device::Mouse ? "mouse" : "touch",
                                  row.name, source)
                        << i << int(device) << value << int(outcome);
                };
                add("TriggerNone", 0, row.none);
                add("TriggerParent", 1, row.parent);
                add("TriggerScreen", 2, row.screen);
                add("another source", 3, row.other);
            }
        }
    }

    void real()
    {
        QFETCH(int, row);
        QFETCH(int, device);
        QFETCH(int, source);
        QFETCH(int, outcome);
        Stage stage(HelperStage::Source(source) == HelperStage::screen);
        // First, as a tool tip goes when a window becomes active.
        QVERIFY(areExposed({stage.window.windowHandle(), stage.panel->window()->windowHandle()}));
        const Spot spot = realRows[row].make(&stage);
        QVERIFY(areExposed({spot.window}));
        KELNonModalhelper helper(stage.panel);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        helper.setTriggerSource(HelperStage::Source(source));
        helper.enableTime(longPeriodMs);
        helper.stopTime();

        // On a slow machine the delay may be over when this returns.
        press(spot, Device(device));
        if (Outcome(outcome) != hides)
            QCOMPARE(periodOf(&helper), Outcome(outcome) == restarts ? longPeriodMs : -1);
        letScheduledHidesRun();
        QCOMPARE(triggered.count(), int(Outcome(outcome) == hides));
        QCOMPARE(stage.panel->isHidden(), Outcome(outcome) == hides);
        release(spot, Device(device));
        QToolTip::hideText();
        letScheduledHidesRun();
        QCOMPARE(triggered.count(), int(Outcome(outcome) == hides));
    }

    void edgeOfTheGeometry_data()
    {
        QTest::addColumn<QPointF>("pos");
        QTest::addColumn<bool>("contained");

        QTest::newRow("top left") << QPointF(100, 100) << true;
        QTest::newRow("left of it") << QPointF(99, 100) << false;
        QTest::newRow("above it") << QPointF(100, 99) << false;
        QTest::newRow("bottom right") << QPointF(219, 179) << true;
        QTest::newRow("right of it") << QPointF(220, 179) << false;
        QTest::newRow("below it") << QPointF(219, 180) << false;
        QTest::newRow("rounded up onto it") << QPointF(99.5, 99.5) << true;
        QTest::newRow("rounded down beside it") << QPointF(99.4, 100) << false;
        QTest::newRow("rounded down onto it") << QPointF(219.4, 179.4) << true;
        QTest::newRow("rounded up beside it") << QPointF(219.5, 100) << false;
        QTest::newRow("rounded up below it") << QPointF(100, 179.5) << false;
        QTest::newRow("negative") << QPointF(-150, -140) << false;
    }

    void edgeOfTheGeometry()
    {
        QFETCH(QPointF, pos);
        QFETCH(bool, contained);
        for (const auto source : {HelperStage::parent, HelperStage::screen}) {
            Stage stage;
            KELNonModalhelper helper(stage.panel);
            helper.setTriggerSource(source);
            sendMouse(stage.page, pos, pos);
            letScheduledHidesRun();
            QCOMPARE(stage.panel->isVisible(), contained);
        }
    }

    void topLevelWidgetWithAParent_data()
    {
        QTest::addColumn<int>("source");
        QTest::addColumn<QPoint>("local");
        QTest::addColumn<bool>("hides");

        // The page is at (20, 30) of the screen, the dialog at (60, 70).
        QTest::newRow("TriggerParent, the numbers are those of the page")
            << 1 << QPoint(65, 75) << false;
        QTest::newRow("TriggerParent, beside these numbers") << 1 << QPoint(50, 50) << true;
        QTest::newRow("TriggerScreen, on it") << 2 << QPoint(50, 50) << false;
        QTest::newRow("TriggerScreen, beside it") << 2 << QPoint(30, 30) << true;
    }

    void topLevelWidgetWithAParent()
    {
        QFETCH(int, source);
        QFETCH(QPoint, local);
        QFETCH(bool, hides);
        Stage stage;
        Window dialog(QRect(60, 70, 120, 80), stage.page, Qt::Dialog);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        KELNonModalhelper helper(&dialog);
        helper.setTriggerSource(HelperStage::Source(source));
        sendMouse(stage.page, local, stage.page->mapToGlobal(local));
        letScheduledHidesRun();
        QCOMPARE(dialog.isHidden(), hides);
    }

    void widgetWithoutAParent()
    {
        Stage stage(true);
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        for (QWidget *receiver : {static_cast<QWidget *>(&stage.window), stage.page, stage.panel}) {
            helper.stopTime();
            sendMouse(receiver, QPointF(1, 1), QPointF(1, 1));
            QCOMPARE(periodOf(&helper), longPeriodMs);
            QCOMPARE(HelperStage::scheduledHides(), 0);
        }
    }

    void widgetWithANewParent()
    {
        Stage stage;
        KELNonModalhelper helper(stage.panel);
        stage.panel->setParent(&stage.window);
        stage.panel->show();
        stage.page->setAttribute(Qt::WA_NoMousePropagation);
        sendMouse(stage.page, outside, outside);
        QCOMPARE(HelperStage::scheduledHides(), 0);
        sendMouse(&stage.window, outside, outside);
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
    }

    void geometryIsThatOfThePress()
    {
        Stage stage;
        KELNonModalhelper helper(stage.panel);
        stage.panel->move(outside);
        sendMouse(stage.page, outside, outside);
        QCOMPARE(HelperStage::scheduledHides(), 0);
        sendMouse(stage.page, QPoint(210, 170), outside);
        QCOMPARE(HelperStage::scheduledHides(), 1);
        letScheduledHidesRun();
    }

    void everyButtonCounts_data()
    {
        QTest::addColumn<int>("button");

        QTest::newRow("left") << int(Qt::LeftButton);
        QTest::newRow("right") << int(Qt::RightButton);
        QTest::newRow("middle") << int(Qt::MiddleButton);
        QTest::newRow("back") << int(Qt::BackButton);
    }

    void everyButtonCounts()
    {
        QFETCH(int, button);
        Stage stage;
        KELNonModalhelper helper(stage.panel);
        QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
        const Spot spot = spotIn(stage.page, outside);
        QTest::mousePress(spot.window, Qt::MouseButton(button), Qt::NoModifier, spot.pos);
        QTest::mouseRelease(spot.window, Qt::MouseButton(button), Qt::NoModifier, spot.pos);
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
    }

    void otherEventsDoNotCount_data()
    {
        QTest::addColumn<int>("type");

        QTest::newRow("move") << int(QEvent::MouseMove);
        QTest::newRow("release") << int(QEvent::MouseButtonRelease);
        QTest::newRow("double click") << int(QEvent::MouseButtonDblClick);
    }

    void otherEventsDoNotCount()
    {
        QFETCH(int, type);
        Stage stage;
        for (const int source : {0, 1, 2, 3}) {
            KELNonModalhelper helper(stage.panel);
            helper.setTriggerSource(HelperStage::Source(source));
            helper.enableTime(longPeriodMs);
            helper.stopTime();
            sendMouse(stage.page, outside, outside, QEvent::Type(type));
            QCOMPARE(periodOf(&helper), -1);
            QCOMPARE(HelperStage::scheduledHides(), 0);
        }
    }

    void pressGoesOnToItsTarget_data()
    {
        QTest::addColumn<int>("device");

        QTest::newRow("mouse") << int(Device::Mouse);
        QTest::newRow("touch") << int(Device::Touch);
    }

    void pressGoesOnToItsTarget()
    {
        QFETCH(int, device);
        Stage stage(true);
        auto *const button = qobject_cast<QPushButton *>(acceptingChildOf(stage.page));
        QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
        KELNonModalhelper helper(stage.panel);
        helper.setTriggerSource(KELNonModalhelper::TriggerScreen);
        bool visibleAtThePress = false;
        connect(button, &QPushButton::pressed, button,
                [&] { visibleAtThePress = stage.panel->isVisible(); });
        const QSignalSpy clicked(button, &QPushButton::clicked);
        const Spot spot = spotIn(button, QPoint(5, 5));
        press(spot, Device(device));
        QVERIFY(visibleAtThePress);
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
        release(spot, Device(device));
        QCOMPARE(clicked.count(), 1);
    }

    void buttonBesideItIsClicked()
    {
        // Within the delay.
        Stage stage(true);
        auto *const button = qobject_cast<QPushButton *>(acceptingChildOf(stage.page));
        QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
        KELNonModalhelper helper(stage.panel);
        helper.setTriggerSource(KELNonModalhelper::TriggerScreen);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        const QSignalSpy clicked(button, &QPushButton::clicked);
        const Spot spot = spotIn(button, QPoint(5, 5));
        press(spot, Device::Mouse);
        release(spot, Device::Mouse);
        QCOMPARE(clicked.count(), 1);
        letScheduledHidesRun();
        QCOMPARE(triggered.count(), 1);
    }

    void acceptedTouchIsNoPress()
    {
        struct TouchWidget : QWidget
        {
            using QWidget::QWidget;
            bool event(QEvent *event) override
            {
                const bool isTouch = event->type() == QEvent::TouchBegin
                    || event->type() == QEvent::TouchEnd;
                return isTouch || QWidget::event(event);
            }
        };
        Stage stage;
        auto *const widget = new TouchWidget(stage.page);
        widget->setAttribute(Qt::WA_AcceptTouchEvents);
        widget->setGeometry(10, 10, 60, 40);
        widget->show();
        QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        helper.stopTime();
        const Spot spot = spotIn(widget, QPoint(5, 5));
        press(spot, Device::Touch);
        QCOMPARE(HelperStage::scheduledHides(), 0);
        QCOMPARE(periodOf(&helper), -1);
        release(spot, Device::Touch);
    }

    void onePressHidesOnce()
    {
        Stage stage(true);
        QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
        KELNonModalhelper helper(stage.panel);
        helper.setTriggerSource(KELNonModalhelper::TriggerScreen);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        // Seen at the native window, at the page and at the window that holds it.
        const Spot spot = spotIn(stage.page, outside);
        press(spot, Device::Mouse);
        letScheduledHidesRun();
        letScheduledHidesRun();
        QCOMPARE(triggered.count(), 1);
        release(spot, Device::Mouse);
    }

    void severalHelpersSeeOnePress()
    {
        Stage stage;
        QWidget *const second = childOf(stage.page);
        KELNonModalhelper ofThePanel(stage.panel);
        KELNonModalhelper alsoOfThePanel(stage.panel);
        KELNonModalhelper ofTheSecond(second);
        const QSignalSpy one(&ofThePanel, &KELNonModalhelper::triggered);
        const QSignalSpy other(&alsoOfThePanel, &KELNonModalhelper::triggered);
        sendMouse(stage.page, QPoint(300, 200), QPoint(300, 200));
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
        QVERIFY(second->isHidden());
        QCOMPARE(one.count(), 1);
        QCOMPARE(other.count(), 1);
    }

    void ignoredEventIsNotSeen()
    {
        Stage stage;
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        helper.stopTime();
        stage.page->setAttribute(Qt::WA_NoMousePropagation);
        QMouseEvent event(QEvent::MouseButtonPress, outside, Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(stage.page, &event);
        QCOMPARE(HelperStage::scheduledHides(), 0);
        QCOMPARE(periodOf(&helper), -1);
    }

    void injectedEvent_data()
    {
        QTest::addColumn<bool>("withReceiver");
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("hides");

        QTest::newRow("a press") << true << int(QEvent::MouseButtonPress) << true;
        QTest::newRow("a press without a receiver")
            << false << int(QEvent::MouseButtonPress) << false;
        QTest::newRow("a release") << true << int(QEvent::MouseButtonRelease) << false;
    }

    void injectedEvent()
    {
        QFETCH(bool, withReceiver);
        QFETCH(int, type);
        QFETCH(bool, hides);
        Stage stage;
        KELNonModalhelper helper(stage.panel);
        auto *const notifier = helper.findChild<KELApplicationNotify *>();
        QVERIFY(notifier);
        QMouseEvent event(QEvent::Type(type), outside, Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        notifier->toNotify(withReceiver ? stage.page : nullptr, &event);
        letScheduledHidesRun();
        QCOMPARE(stage.panel->isHidden(), hides);
    }
};

int main(int argc, char *argv[])
{
    const XServer server;
    QApplication app(argc, argv);
    tst_KELNonModalhelperPress test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_kelnonmodalhelperpress.moc"
