// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "helperstage.h"
#include "xserver.h"

#include <kelapplicationnotify.h>

#include <QtCore/QDeadlineTimer>
#include <QtGui/QWindow>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSplashScreen>
#include <QtWidgets/QToolTip>

#include <memory>

namespace {

constexpr QPoint inside = HelperStage::inside;
constexpr QPoint outside = HelperStage::outside;
constexpr QRect otherRect(450, 200, 200, 150);

const Qt::WindowFlags noFocus = Qt::WindowDoesNotAcceptFocus;
const Qt::WindowFlags noFocusWindow = Qt::Window | Qt::WindowDoesNotAcceptFocus;

// The panel, the page that it is in, and whatever a row adds.
class PressStage : public HelperStage
{
public:
    explicit PressStage(Source source = Helper::TriggerParent, bool isPanelWindow = false)
    {
        helper->setTriggerSource(source);
        if (!isPanelWindow)
            return;
        panel->setParent(nullptr, Qt::Window | Qt::FramelessWindowHint);
        panel->setGeometry(450, 40, 120, 80);
        panel->show();
    }

    // A period that a press can restart.
    void stopPeriod()
    {
        helper->enableTime(longPeriodMs);
        helper->stopTime();
    }

    template <typename Object>
    Object *keep(Object *object)
    {
        m_kept.emplace_back(object);
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

private:
    std::vector<std::unique_ptr<QObject>> m_kept;
};

QWidget *childOf(QWidget *parent, Qt::WindowFlags flags = Qt::WindowFlags())
{
    auto *const child = new QWidget(parent);
    child->setWindowFlags(flags);
    child->setGeometry(10, 10, 60, 40);
    child->show();
    return child;
}

QWidget *nativeChildOf(QWidget *parent, Qt::WindowFlags flags = Qt::WindowFlags())
{
    QWidget *const child = childOf(parent, flags);
    child->setAttribute(Qt::WA_NativeWindow);
    child->winId();
    return child;
}

QWidget *dialogOf(QWidget *parent)
{
    auto *const dialog = new Window(QRect(500, 400, 100, 80), parent, Qt::Dialog);
    dialog->show();
    return dialog;
}

QPushButton *buttonIn(QWidget *parent)
{
    auto *const button = new QPushButton(parent);
    button->setGeometry(10, 10, 60, 40);
    // A window that becomes active late takes no focus from it then.
    button->setFocusPolicy(Qt::NoFocus);
    button->show();
    return button;
}

QAbstractItemView *listOfAComboBoxIn(QWidget *parent)
{
    auto *const box = new QComboBox(parent);
    box->addItems({u"one"_s, u"two"_s});
    box->setGeometry(260, 20, 100, 30);
    box->show();
    box->showPopup();
    return box->view();
}

QMenu *openMenu(PressStage *stage)
{
    auto *const menu = stage->keep(new QMenu);
    menu->addAction(u"one"_s);
    menu->popup(otherRect.topLeft());
    return menu;
}

// What a press hits: the parent of the panel, a popup or something else that is ignored, or
// neither.
enum class Kind { Parent, Other, Ignored };
enum class Outcome { Nothing, Restarts, Hides };

Outcome outcomeOf(Kind kind, Source source, bool isInside)
{
    if (kind == Kind::Ignored || source == Helper::TriggerNone)
        return Outcome::Nothing;
    const bool canHide = source == Helper::TriggerScreen
        || (source == Helper::TriggerParent && kind == Kind::Parent);
    return canHide && !isInside ? Outcome::Hides : Outcome::Restarts;
}

struct Receiver
{
    const char *name;
    std::function<QObject *(PressStage *)> make;
    Kind kind = Kind::Other;
};

constexpr Kind ignored = Kind::Ignored;

const std::vector<Receiver> targets = {
    {"the widget", [](PressStage *s) { return s->panel; }},
    {"its child", [](PressStage *s) { return childOf(s->panel); }},
    {"its parent", [](PressStage *s) { return s->page; }, Kind::Parent},
    {"the parent of the parent", [](PressStage *s) { return s->window; }},
    {"a sibling", [](PressStage *s) { return childOf(s->page); }},
    {"a child of a sibling", [](PressStage *s) { return childOf(childOf(s->page)); }},
    {"a native sibling", [](PressStage *s) { return nativeChildOf(s->page); }},
    {"a child of a native sibling", [](PressStage *s) { return childOf(nativeChildOf(s->page)); }},
    {"another window", [](PressStage *s) { return s->newWindow(Qt::Window); }},
    {"a child of another window", [](PressStage *s) { return childOf(s->newWindow(Qt::Window)); }},
    {"a dialog", [](PressStage *s) { return dialogOf(s->page); }},
    {"a sheet", [](PressStage *s) { return s->newWindow(Qt::Sheet); }},
    {"a drawer", [](PressStage *s) { return s->newWindow(Qt::Drawer); }},

    {"a popup", [](PressStage *s) { return s->newWindow(Qt::Popup); }, ignored},
    {"a tool window", [](PressStage *s) { return s->newWindow(Qt::Tool); }, ignored},
    {"a tool tip", [](PressStage *s) { return s->newWindow(Qt::ToolTip); }, ignored},
    {"a splash screen", [](PressStage *s) { return s->newWindow(Qt::SplashScreen); }, ignored},
    {"a child of a popup", [](PressStage *s) { return childOf(s->newWindow(Qt::Popup)); }, ignored},
    {"a child of a tool window", [](PressStage *s) { return childOf(s->newWindow(Qt::Tool)); },
     ignored},
    {"a child of a child of a tool tip",
     [](PressStage *s) { return childOf(childOf(s->newWindow(Qt::ToolTip))); }, ignored},
    {"a native child of a tool window",
     [](PressStage *s) { return nativeChildOf(s->newWindow(Qt::Tool)); }, ignored},
    {"a dialog of a tool window", [](PressStage *s) { return dialogOf(s->newWindow(Qt::Tool)); },
     ignored},
    {"a child of a dialog of a tool window",
     [](PressStage *s) { return childOf(dialogOf(s->newWindow(Qt::Tool))); }, ignored},
    {"a menu", openMenu, ignored},
    {"the list of a combo box",
     [](PressStage *s) { return listOfAComboBoxIn(s->page)->viewport(); }, ignored},
    {"the window of that list", [](PressStage *s) { return listOfAComboBoxIn(s->page)->window(); },
     ignored},

    {"a window without focus", [](PressStage *s) { return s->newWindow(noFocusWindow); }, ignored},
    {"a child of a window without focus",
     [](PressStage *s) { return childOf(s->newWindow(noFocusWindow)); }, ignored},
    {"a child of a child of a window without focus",
     [](PressStage *s) { return childOf(childOf(s->newWindow(noFocusWindow))); }, ignored},
    {"a native child of a window without focus",
     [](PressStage *s) { return nativeChildOf(s->newWindow(noFocusWindow)); }, ignored},
    {"a child of a native child of a window without focus",
     [](PressStage *s) { return childOf(nativeChildOf(s->newWindow(noFocusWindow))); }},
    {"a dialog of a window without focus",
     [](PressStage *s) { return dialogOf(s->newWindow(noFocusWindow)); }, ignored},
    {"a sibling without focus", [](PressStage *s) { return childOf(s->page, noFocus); }, ignored},
    {"a child of a sibling without focus",
     [](PressStage *s) { return childOf(childOf(s->page, noFocus)); }},
    {"a child of a native sibling without focus",
     [](PressStage *s) { return childOf(nativeChildOf(s->page, noFocus)); }, ignored},

    {"a QWindow", [](PressStage *s) { return s->newQWindow(Qt::Window); }},
    {"a QWindow, dialog", [](PressStage *s) { return s->newQWindow(Qt::Dialog); }},
    {"a QWindow with one of the two bits of a popup",
     [](PressStage *s) { return s->newQWindow(Qt::WindowFlags(8)); }},
    {"a QWindow, popup", [](PressStage *s) { return s->newQWindow(Qt::Popup); }, ignored},
    {"a QWindow, tool window", [](PressStage *s) { return s->newQWindow(Qt::Tool); }, ignored},
    {"a QWindow, tool tip", [](PressStage *s) { return s->newQWindow(Qt::ToolTip); }, ignored},
    {"a QWindow, splash screen", [](PressStage *s) { return s->newQWindow(Qt::SplashScreen); },
     ignored},
    {"a QWindow without focus", [](PressStage *s) { return s->newQWindow(noFocusWindow); },
     ignored},
    {"a QWindow in a QWindow without focus",
     [](PressStage *s) { return new QWindow(s->newQWindow(noFocusWindow)); }},

    {"an object", [](PressStage *s) { return s->keep(new QObject); }, ignored},
    {"an object in the panel", [](PressStage *s) { return new QObject(s->panel); }, ignored},
    {"the application", [](PressStage *) { return QCoreApplication::instance(); }, ignored},
};

// While the panel can be seen the source decides, otherwise the outcome is the same for all but
// TriggerNone.
struct Circumstances
{
    const char *name;
    std::function<void(HelperStage &)> arrange;
    bool isInside = false;
    bool doesSourceDecide = false;
    Outcome outcome = Outcome::Nothing;
};

const std::vector<Circumstances> circumstances = {
    {"inside", [](HelperStage & /*stage*/) {}, true, true},
    {"outside", [](HelperStage & /*stage*/) {}, false, true},
    {"the widget hidden", [](HelperStage &s) { s.panel->hide(); }, false, false, Outcome::Restarts},
    {"in a hidden window", [](HelperStage &s) { s.window->hide(); }, false, false,
     Outcome::Restarts},
    {"a hide scheduled", [](HelperStage &s) { s.pressOutside(); }},
};

// For a real press. A widget that ignores it hands it to its parent.
struct Spot
{
    QWindow *window;
    QPoint pos;
};

Spot spotIn(QWidget *widget, const QPoint &pos = QPoint(5, 5))
{
    QWidget *const native = widget->windowHandle() ? widget : widget->nativeParentWidget();
    return {native->windowHandle(), widget->mapTo(native, pos)};
}

Spot spotInSplashScreen(PressStage *stage)
{
    auto *const splash = stage->keep(new QSplashScreen(QPixmap(otherRect.size())));
    splash->move(otherRect.topLeft());
    splash->show();
    return spotIn(splash);
}

Spot spotInToolTip(PressStage * /*stage*/)
{
    QToolTip::showText(otherRect.topLeft(), u"a long tip to press on"_s);
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (widget->windowType() == Qt::ToolTip && widget->isVisible())
            return spotIn(widget);
    }
    return {};
}

Spot spotInQWindow(PressStage *stage)
{
    QWindow *const window = stage->newQWindow(Qt::Window | Qt::FramelessWindowHint);
    window->show();
    return {window, QPoint(20, 20)};
}

struct Place
{
    const char *name;
    std::function<Spot(PressStage *)> make;
    Kind kind = Kind::Other;
    bool isInside = false;
};

const std::vector<Place> places = {
    {"on the widget", [](PressStage *s) { return spotIn(s->panel, QPoint(60, 40)); }, Kind::Parent,
     true},
    {"on its first pixel", [](PressStage *s) { return spotIn(s->panel, QPoint(0, 0)); },
     Kind::Parent, true},
    {"on its last pixel", [](PressStage *s) { return spotIn(s->panel, QPoint(119, 79)); },
     Kind::Parent, true},
    {"on a button in it", [](PressStage *s) { return spotIn(buttonIn(s->panel)); }, Kind::Parent,
     true},
    {"on the parent", [](PressStage *s) { return spotIn(s->page, QPoint(300, 200)); },
     Kind::Parent},
    {"on the parent, one pixel beside the widget",
     [](PressStage *s) { return spotIn(s->page, QPoint(220, 140)); }, Kind::Parent},
    {"on a button beside it", [](PressStage *s) { return spotIn(buttonIn(s->page)); }},
    {"on a sibling that ignores it", [](PressStage *s) { return spotIn(childOf(s->page)); },
     Kind::Parent},
    {"on a native sibling that ignores it",
     [](PressStage *s) { return spotIn(nativeChildOf(s->page)); }, Kind::Parent},
    {"on a button in a native sibling",
     [](PressStage *s) { return spotIn(buttonIn(nativeChildOf(s->page)), QPoint(15, 15)); }},
    {"on another window", [](PressStage *s) { return spotIn(s->newWindow(Qt::Window)); }},
    {"on a QWindow", spotInQWindow},
    {"in a popup", [](PressStage *s) { return spotIn(s->newWindow(Qt::Popup)); }, ignored},
    {"on a button in a popup",
     [](PressStage *s) { return spotIn(buttonIn(s->newWindow(Qt::Popup))); }, ignored},
    {"in a tool window", [](PressStage *s) { return spotIn(s->newWindow(Qt::Tool)); }, ignored},
    {"in a splash screen", spotInSplashScreen, ignored},
    {"in a tool tip", spotInToolTip, ignored},
    {"in a menu", [](PressStage *s) { return spotIn(openMenu(s), QPoint(8, 8)); }, ignored},
    {"in the list of a combo box",
     [](PressStage *s) { return spotIn(listOfAComboBoxIn(s->page)->viewport()); }, ignored},
    {"on a key of a keyboard without focus",
     [](PressStage *s) { return spotIn(buttonIn(s->newWindow(noFocusWindow))); }, ignored},
};

// As qWaitForWindowExposed() for each, which sleeps.
bool areExposed(const QList<QWindow *> &windows)
{
    const QDeadlineTimer deadline(patienceMs);
    const auto isExposed = [](const QWindow *window) { return window && window->isExposed(); };
    while (!std::all_of(windows.cbegin(), windows.cend(), isExposed)) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents();
    }
    return true;
}

} // namespace

// What each press does, delivered to one receiver and for real. Runs offscreen and on an X server.
class tst_KELNonModalhelperPress : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(0); }

    void delivered_data()
    {
        addRows({{"receiver", namesOf(targets)},
                 {"circumstances", namesOf(circumstances)},
                 {"source", sources}});
    }

    void delivered()
    {
        const Receiver &receiver = targets[fetch<size_t>("receiver")];
        const Circumstances &given = circumstances[fetch<size_t>("circumstances")];
        const auto source = fetch<Source>("source");
        PressStage stage;
        QObject *const target = receiver.make(&stage);
        // This receiver and no other.
        if (target->isWidgetType())
            static_cast<QWidget *>(target)->setAttribute(Qt::WA_NoMousePropagation);
        given.arrange(stage);
        stage.stopPeriod();
        const bool isPending = scheduledHides() > 0;
        const bool wasHidden = stage.panel->isHidden();
        stage.helper->setTriggerSource(source);

        // The source looks at one of the two positions; the other one would say the opposite.
        const bool byScreen = source == Helper::TriggerScreen;
        sendMouse(target, given.isInside != byScreen ? inside : outside,
                  given.isInside == byScreen ? inside : outside);
        Outcome outcome = source == Helper::TriggerNone ? Outcome::Nothing : given.outcome;
        if (given.doesSourceDecide)
            outcome = outcomeOf(receiver.kind, source, given.isInside);
        QCOMPARE(stage.period(), outcome == Outcome::Restarts ? longPeriodMs : -1);
        QCOMPARE(stage.panel->isHidden(), wasHidden);
        QCOMPARE(stage.triggered(), 0);
        const bool willHide = isPending || outcome == Outcome::Hides;
        QCOMPARE(scheduledHides(), int(willHide));
        if (!willHide)
            return;
        letScheduledHidesRun();
        QCOMPARE(stage.triggered(), 1);
        QVERIFY(stage.panel->isHidden());
    }

    void real_data()
    {
        addRows({{"input", inputs}, {"place", namesOf(places)}, {"source", sources}});
    }

    void real()
    {
        const auto source = fetch<Source>("source");
        const Place &place = places[fetch<size_t>("place")];
        const Outcome outcome = outcomeOf(place.kind, source, place.isInside);
        PressStage stage(source, source == Helper::TriggerScreen);
        // First, as a tool tip goes when a window becomes active.
        QVERIFY(areExposed({stage.window->windowHandle(), stage.panel->window()->windowHandle()}));
        const Spot spot = place.make(&stage);
        QVERIFY(areExposed({spot.window}));
        stage.stopPeriod();

        // On a slow machine the delay may be over when this returns.
        WindowHand hand(fetch<Input>("input"));
        hand.press(spot.window, spot.pos);
        if (outcome != Outcome::Hides)
            QCOMPARE(stage.period(), outcome == Outcome::Restarts ? longPeriodMs : -1);
        letScheduledHidesRun();
        QCOMPARE(stage.triggered(), int(outcome == Outcome::Hides));
        QCOMPARE(stage.panel->isHidden(), outcome == Outcome::Hides);
        hand.release();
        QToolTip::hideText();
        letScheduledHidesRun();
        QCOMPARE(stage.triggered(), int(outcome == Outcome::Hides));
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
        QFETCH(const QPointF, pos);
        QFETCH(const bool, contained);
        for (const Source source : {Helper::TriggerParent, Helper::TriggerScreen}) {
            const PressStage stage(source);
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
            << int(Helper::TriggerParent) << QPoint(65, 75) << false;
        QTest::newRow("TriggerParent, beside these numbers")
            << int(Helper::TriggerParent) << QPoint(50, 50) << true;
        QTest::newRow("TriggerScreen, on it")
            << int(Helper::TriggerScreen) << QPoint(50, 50) << false;
        QTest::newRow("TriggerScreen, beside it")
            << int(Helper::TriggerScreen) << QPoint(30, 30) << true;
    }

    void topLevelWidgetWithAParent()
    {
        const auto source = fetch<Source>("source");
        QFETCH(const QPoint, local);
        QFETCH(const bool, hides);
        const HelperStage stage(Maker::Nobody);
        Window dialog(QRect(60, 70, 120, 80), stage.page, Qt::Dialog);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        Helper helper(&dialog);
        helper.setTriggerSource(source);
        sendMouse(stage.page, local, stage.page->mapToGlobal(local));
        letScheduledHidesRun();
        QCOMPARE(dialog.isHidden(), hides);
    }

    void widgetWithoutAParent()
    {
        PressStage stage(Helper::TriggerParent, true);
        QWidget *const widgets[] = {stage.window, stage.page, stage.panel};
        for (QWidget *receiver : widgets) {
            stage.stopPeriod();
            sendMouse(receiver, QPointF(1, 1), QPointF(1, 1));
            QCOMPARE(stage.period(), longPeriodMs);
            QCOMPARE(scheduledHides(), 0);
        }
    }

    void widgetWithANewParent()
    {
        const HelperStage stage;
        stage.panel->setParent(stage.window);
        stage.panel->show();
        stage.page->setAttribute(Qt::WA_NoMousePropagation);
        sendMouse(stage.page, outside, outside);
        QCOMPARE(scheduledHides(), 0);
        sendMouse(stage.window, outside, outside);
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
    }

    void geometryIsThatOfThePress()
    {
        HelperStage stage;
        stage.panel->move(outside);
        stage.pressOutside();
        QCOMPARE(scheduledHides(), 0);
        sendMouse(stage.page, QPoint(210, 170), outside);
        QCOMPARE(scheduledHides(), 1);
        letScheduledHidesRun();
    }

    void everyButtonCounts_data()
    {
        addRows({{"button",
                  {{"left", Qt::LeftButton},
                   {"right", Qt::RightButton},
                   {"middle", Qt::MiddleButton},
                   {"back", Qt::BackButton}}}});
    }

    void everyButtonCounts()
    {
        const HelperStage stage;
        QVERIFY(QTest::qWaitForWindowExposed(stage.window));
        WindowHand().tap(stage.page, outside, fetch<Qt::MouseButton>("button"));
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
    }

    void otherEventsDoNotCount_data()
    {
        addRows({{"type",
                  {{"move", QEvent::MouseMove},
                   {"release", QEvent::MouseButtonRelease},
                   {"double click", QEvent::MouseButtonDblClick}}},
                 {"source", sources}});
    }

    void otherEventsDoNotCount()
    {
        PressStage stage(fetch<Source>("source"));
        stage.stopPeriod();
        sendMouse(stage.page, outside, outside, fetch<QEvent::Type>("type"));
        QCOMPARE(stage.period(), -1);
        QCOMPARE(scheduledHides(), 0);
    }

    // Which is clicked even when it is released within the delay.
    void pressGoesOnToItsTarget_data()
    {
        addRows(
            {{"input", inputs}, {"late", {{"released at once", false}, {"released late", true}}}});
    }

    void pressGoesOnToItsTarget()
    {
        PressStage stage(Helper::TriggerScreen, true);
        QPushButton *const button = buttonIn(stage.page);
        QVERIFY(QTest::qWaitForWindowExposed(stage.window));
        bool visibleAtThePress = false;
        connect(button, &QPushButton::pressed, button,
                [&] { visibleAtThePress = stage.panel->isVisible(); });
        const QSignalSpy clicked(button, &QPushButton::clicked);
        WindowHand hand(fetch<Input>("input"));
        hand.press(button, QPoint(5, 5));
        QVERIFY(visibleAtThePress);
        if (fetch<bool>("late"))
            letScheduledHidesRun();
        hand.release();
        QCOMPARE(clicked.count(), 1);
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(stage.triggered(), 1);
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
        PressStage stage;
        auto *const widget = new TouchWidget(stage.page);
        widget->setAttribute(Qt::WA_AcceptTouchEvents);
        widget->setGeometry(10, 10, 60, 40);
        widget->show();
        QVERIFY(QTest::qWaitForWindowExposed(stage.window));
        stage.stopPeriod();
        WindowHand(Input::Touch).tap(widget, QPoint(5, 5));
        QCOMPARE(scheduledHides(), 0);
        QCOMPARE(stage.period(), -1);
    }

    void onePressHidesOnce()
    {
        PressStage stage(Helper::TriggerScreen, true);
        QVERIFY(QTest::qWaitForWindowExposed(stage.window));
        // Seen at the native window, at the page and at the window that holds it.
        WindowHand().tap(stage.page, outside);
        letScheduledHidesRun();
        letScheduledHidesRun();
        QCOMPARE(stage.triggered(), 1);
    }

    void severalHelpersSeeOnePress()
    {
        HelperStage stage;
        QWidget *const second = childOf(stage.page);
        Helper alsoOfThePanel(stage.panel);
        const Helper ofTheSecond(second);
        const QSignalSpy also(&alsoOfThePanel, &Helper::triggered);
        sendMouse(stage.page, QPoint(300, 200), QPoint(300, 200));
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
        QVERIFY(second->isHidden());
        QCOMPARE(stage.triggered(), 1);
        QCOMPARE(also.count(), 1);
    }

    void ignoredEventIsNotSeen()
    {
        PressStage stage;
        stage.stopPeriod();
        stage.page->setAttribute(Qt::WA_NoMousePropagation);
        QMouseEvent event(QEvent::MouseButtonPress, outside, Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        event.ignore();
        QCoreApplication::sendEvent(stage.page, &event);
        QCOMPARE(scheduledHides(), 0);
        QCOMPARE(stage.period(), -1);
    }

    void injectedEvent_data()
    {
        addRows(
            {{"type",
              {{"a press", QEvent::MouseButtonPress}, {"a release", QEvent::MouseButtonRelease}}},
             {"receiver", {{"of the parent", true}, {"without a receiver", false}}}});
    }

    void injectedEvent()
    {
        const auto type = fetch<QEvent::Type>("type");
        const bool hasReceiver = fetch<bool>("receiver");
        const HelperStage stage;
        auto *const notifier = stage.helper->findChild<KELApplicationNotify *>();
        QVERIFY(notifier);
        QMouseEvent event(type, outside, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        notifier->toNotify(hasReceiver ? stage.page.data() : nullptr, &event);
        letScheduledHidesRun();
        QCOMPARE(stage.panel->isHidden(), hasReceiver && type == QEvent::MouseButtonPress);
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
