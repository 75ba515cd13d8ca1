// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controlclasses.h"
#include "stage.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTimer>
#include <QtWidgets/QAction>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

/*
 * Left out, because Qt itself cannot do it, with any item:
 * - delete of the view inside a slot that runs during its own event: QGraphicsView touches itself
 * and its scene after the scene has handled the event. deleteLater() works and is tested.
 * - delete of the scene inside such a slot, for the same reason.
 * - scene.clear() or delete of the parent item while the destroyed control is still being destroyed
 * by a scene.clear() or a parent item: the inner call would delete what the outer one is deleting.
 */

namespace {

// A class, and the base once more with the flag that makes it keep a press.
struct Kind
{
    const char *name;
    const QMetaObject *meta;
    bool isSelectable;
    KELRoundRectControl *(*create)();

    template <typename Control>
    bool is() const
    {
        return meta == &Control::staticMetaObject;
    }
};

const std::vector<Kind> &kinds()
{
    static const std::vector<Kind> all = [] {
        std::vector<Kind> found;
        forEachControl([&found](auto tag) {
            using Control = typename decltype(tag)::Type;
            found.push_back({Control::staticMetaObject.className(), &Control::staticMetaObject,
                             Control().flags().testFlag(QGraphicsItem::ItemIsSelectable),
                             []() -> KELRoundRectControl * { return new Control; }});
        });
        found.push_back({"selectable base", &KELRoundRectControl::staticMetaObject, true,
                         [] { return new KELRoundRectControl; }});
        return found;
    }();
    return all;
}

template <typename Control>
const Kind &kindOf()
{
    return *std::find_if(kinds().begin(), kinds().end(),
                         [](const Kind &kind) { return kind.is<Control>(); });
}

enum class Signal { Press, Release, Clicked, SecondPress, DoubleClicked, LongPress, Enter, Leave };
const std::vector<Named> signalNames = {{"press", int(Signal::Press)},
                                        {"release", int(Signal::Release)},
                                        {"clicked", int(Signal::Clicked)},
                                        {"press of a double click", int(Signal::SecondPress)},
                                        {"double clicked", int(Signal::DoubleClicked)},
                                        {"long press", int(Signal::LongPress)},
                                        {"enter", int(Signal::Enter)},
                                        {"leave", int(Signal::Leave)}};
// As the log writes them down.
const QStringList entries = {u"press"_s,         u"release"_s,   u"clicked"_s, u"press"_s,
                             u"doubleClicked"_s, u"longPress"_s, u"enter"_s,   u"leave"_s};

bool isPossible(const Kind &kind, Signal signal, Input input)
{
    const bool isHover = signal == Signal::Enter || signal == Signal::Leave;
    // What is not selectable ignores presses and so gets no release.
    if (!kind.isSelectable && (signal == Signal::Release || signal == Signal::Clicked))
        return false;
    if (kind.is<KELSlideControl>() && signal == Signal::LongPress)
        return false;
    // Its button takes all of them.
    if (kind.is<KELComboBox>())
        return false;
    // It does not hear of its presses.
    if (kind.is<KELNavigationTable>() && signal != Signal::Release
        && signal != Signal::DoubleClicked && !isHover)
        return false;
    return input == Input::Mouse || !isHover;
}

const QPoint beside(20, 20);

bool endsWithTheFingerDown(Signal signal)
{
    return signal == Signal::Press || signal == Signal::SecondPress
        || signal == Signal::DoubleClicked || signal == Signal::LongPress;
}

// Does what sends the signal.
void cause(Signal signal, Hand *hand, const QPointer<KELRoundRectControl> &control, QPoint centre)
{
    switch (signal) {
    case Signal::Enter:
    case Signal::Leave:
        hand->hover(beside);
        hand->hover(centre);
        if (signal == Signal::Leave)
            hand->hover(beside);
        break;
    case Signal::Press:
        hand->press(centre);
        break;
    case Signal::LongPress:
        hand->press(centre);
        endLongPressTime(control);
        break;
    case Signal::SecondPress:
    case Signal::DoubleClicked:
        hand->tap(centre);
        hand->pressAgain(centre);
        break;
    case Signal::Release:
    case Signal::Clicked:
        hand->tap(centre);
        break;
    }
}

// The other control lies below and takes every press as well. tst_deletionmatrix deletes that one.
class KindStage : public ControlStage
{
public:
    explicit KindStage(const Kind &kind = kindOf<KELPushButton>()) : ControlStage(made(kind))
    {
        other->setboundRect(90, 90, 120, 70);
        other->setZValue(-1);
    }

    void on(Signal signal, const std::function<void()> &action)
    {
        log.on(entries.at(int(signal)), [this, signal, action] {
            if (signal != Signal::SecondPress || log.count(u"press"_s) == 2)
                action();
        });
    }

    // The last signal of the control.
    QString lastEntry() const
    {
        return log.entries().filter(QRegularExpression(u"^\\w+$"_s)).constLast();
    }

    void cause(Signal signal) { ::cause(signal, &hand, control, centre()); }
    void finish(Signal signal)
    {
        if (endsWithTheFingerDown(signal))
            hand.release();
    }

private:
    static KELRoundRectControl *made(const Kind &kind)
    {
        KELRoundRectControl *const control = kind.create();
        control->setAcceptHoverEvents(true);
        control->setAcceptTouchEvents(true);
        control->setFlag(QGraphicsItem::ItemIsSelectable, kind.isSelectable);
        control->setboundRect(100, 100, 100, 50);
        return control;
    }
};

const Kind &kindOfTheRow()
{
    return kinds().at(fetch<size_t>("kind"));
}

enum class Opening { ByEvent, ByLongPress };
const std::vector<Named> openings = {{"menu by event", int(Opening::ByEvent)},
                                     {"menu by long press", int(Opening::ByLongPress)}};

void openMenu(KindStage *stage)
{
    if (fetch<Opening>("opening") == Opening::ByEvent) {
        stage->hand.openContextMenu(stage->centre());
    } else {
        stage->cause(Signal::LongPress);
        stage->finish(Signal::LongPress);
    }
}

enum class Moment { Open, AboutToShow, AboutToHide, Triggered };
const std::vector<Named> moments = {{"while open", int(Moment::Open)},
                                    {"when about to show", int(Moment::AboutToShow)},
                                    {"when about to hide", int(Moment::AboutToHide)},
                                    {"when triggered", int(Moment::Triggered)}};

// Keeps a record without the fields of its base class.
template <typename Control, typename Style>
class WithShortRecord : public Control
{
public:
    WithShortRecord()
    {
        auto *const record = new KELRoundRectControlStyle();
        this->m_style->copy(record);
        delete static_cast<Style *>(this->m_style);
        this->m_style = record;
    }
};

class SelfDeletingControl : public KELPushButton
{
public:
    bool deletesLater = false;
    int calls = 0;

    void onCheckedEvent(bool /*check*/) override
    {
        ++calls;
        if (deletesLater)
            deleteLater();
        else
            delete this;
    }
};

void failOnMessage(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    std::fprintf(stderr, "message at exit: %s\n", qPrintable(text));
    if (type != QtDebugMsg)
        std::_Exit(EXIT_FAILURE);
}

// Destroyed after the application object.
struct ControlsOfTheProcess
{
    ~ControlsOfTheProcess()
    {
        qInstallMessageHandler(failOnMessage);
        comboBox.reset();
        scene.reset();
        alone.reset();
    }

    std::unique_ptr<KELPushButton> alone;
    std::unique_ptr<KELComboBox> comboBox;
    std::unique_ptr<QGraphicsScene> scene;
};

} // namespace

class tst_Lifetime : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void deletedInASlot_data()
    {
        addRows({{"kind", namesOf(kinds())},
                 {"signal", signalNames},
                 {"input", inputs},
                 {"way", deletionWays}},
                [](const std::vector<int> &row) {
                    return isPossible(kinds().at(size_t(row[0])), Signal(row[1]), Input(row[2]));
                });
    }

    void deletedInASlot()
    {
        const auto signal = fetch<Signal>("signal");
        const Way way = fetch<Way>("way");
        KindStage stage(kindOfTheRow());
        stage.hand.use(fetch<Input>("input"));
        stage.on(signal, [&] { stage.destroy(way); });
        stage.cause(signal);
        stage.finish(signal);
        QCOMPARE(stage.destroyCalls, 1);
        if (way == Way::DeleteLater)
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        else
            QCOMPARE(stage.lastEntry(), entries.at(int(signal)));
        QVERIFY(!stage.control);
        QCOMPARE(stage.other.isNull(), way == Way::ClearScene);
        QVERIFY(stage.nextControlIsClicked());
    }

    void deletedInASlotOfDestroyed_data()
    {
        addRows({{"kind", namesOf(kinds())},
                 {"way",
                  {{"scene cleared", int(Way::ClearScene)},
                   {"parent deleted", int(Way::DeleteParent)}}}});
    }

    void deletedInASlotOfDestroyed()
    {
        KindStage stage(kindOfTheRow());
        stage.hand.press(stage.centre());
        connect(stage.control, &QObject::destroyed, &stage.view,
                [&] { stage.destroy(fetch<Way>("way")); });
        delete stage.control;
        QCOMPARE(stage.destroyCalls, 1);
        QVERIFY(!stage.parent);
        stage.hand.release();
        QVERIFY(stage.nextControlIsClicked());
    }

    void deletedWithItsMenu_data()
    {
        addRows({{"kind", namesOf(kinds())},
                 {"opening", openings},
                 {"moment", moments},
                 {"way", deletionWays}},
                [](const std::vector<int> &row) {
                    return Opening(row[1]) == Opening::ByEvent
                        || isPossible(kinds().at(size_t(row[0])), Signal::LongPress, Input::Mouse);
                });
    }

    void deletedWithItsMenu()
    {
        const auto moment = fetch<Moment>("moment");
        KindStage stage(kindOfTheRow());
        const QPointer<QMenu> menu(newMenu());
        QAction *const action = menu->actions().constFirst();
        stage.control->style()->contextMenu = menu;

        const auto destroy = [&] { stage.destroy(fetch<Way>("way")); };
        const QSignalSpy opened(menu, &QMenu::aboutToShow);
        if (moment == Moment::AboutToShow)
            connect(menu, &QMenu::aboutToShow, &stage.view, destroy);
        if (moment == Moment::AboutToHide)
            connect(menu, &QMenu::aboutToHide, &stage.view, destroy);
        if (moment == Moment::Triggered)
            connect(action, &QAction::triggered, &stage.view, destroy);
        whenOpen(menu, [&] {
            if (moment == Moment::Triggered)
                action->trigger();
            if (moment == Moment::Open)
                destroy();
        });

        openMenu(&stage);
        QCOMPARE(opened.count(), 1);
        QCOMPARE(stage.destroyCalls, 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTRY_VERIFY(!stage.control);
        QTRY_VERIFY(!menu);
        QVERIFY(stage.nextControlIsClicked());
    }

    void menuDeletedWhileOpen_data() { addRows({{"opening", openings}}); }

    void menuDeletedWhileOpen()
    {
        KindStage stage;
        const QPointer<QMenu> menu(newMenu());
        stage.control->style()->contextMenu = menu;
        whenOpen(menu, [&] {
            stage.control->style()->contextMenu = nullptr;
            delete menu;
        });
        openMenu(&stage);
        QVERIFY(!menu);
        QVERIFY(stage.control);
        QVERIFY(!stage.control->isMouseDown());
        QVERIFY(stage.nextControlIsClicked());
    }

    void deletedBeforeItsMenuOpens_data() { addRows({{"way", deletionWays}}); }

    void deletedBeforeItsMenuOpens()
    {
        const Way way = fetch<Way>("way");
        KindStage stage;
        const QPointer<QMenu> menu(newMenu());
        stage.control->style()->contextMenu = menu;
        const QSignalSpy opened(menu, &QMenu::aboutToShow);
        whenOpen(menu, [] {});
        stage.on(Signal::LongPress, [&] { stage.destroy(way); });
        stage.cause(Signal::LongPress);
        QTRY_VERIFY(!stage.control);
        // A control that is to be deleted later is still there for its menu.
        QCOMPARE(opened.count(), way == Way::DeleteLater ? 1 : 0);
        QTRY_VERIFY(!menu);
        stage.hand.release();
        QVERIFY(stage.nextControlIsClicked());
    }

    void deletedWhilePressed_data()
    {
        addRows({{"kind", namesOf(kinds())}, {"way", deletionWays}, {"input", inputs}});
    }

    void deletedWhilePressed()
    {
        const Kind &kind = kindOfTheRow();
        KindStage stage(kind);
        stage.hand.use(fetch<Input>("input"));
        stage.hand.press(stage.centre());
        QCOMPARE(stage.control->isMouseDown(),
                 !kind.is<KELNavigationTable>() && !kind.is<KELComboBox>());
        stage.destroy(fetch<Way>("way"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.control);
        QCoreApplication::processEvents();
        stage.hand.release();
        QVERIFY(stage.nextControlIsClicked());
    }

    void deletedWhenChecked_data()
    {
        addRows({{"later", {{"delete", false}, {"deleteLater", true}}}});
    }

    void deletedWhenChecked()
    {
        const bool isLater = fetch<bool>("later");
        KelTestView view;
        auto *control = new SelfDeletingControl;
        const QPointer<KELPushButton> alive(control);
        control->deletesLater = isLater;
        view.ownScene.addItem(control);
        QVERIFY(view.showAndWait());
        control->setCheck(true);
        QCOMPARE(alive.isNull(), !isLater);
        if (isLater) {
            QVERIFY(control->isCheck());
            QCOMPARE(control->calls, 1);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!alive);
        QCOMPARE(view.ownScene.items().size(), 0);
        QCoreApplication::processEvents();
    }

    void deletedByALaterSlotOfTheSameSignal()
    {
        Stage<KELPushButton> stage;
        QStringList calls;
        const auto connectSlot = [&](const QString &name, bool deletes) {
            connect(stage.get(), &KELPushButton::mouseClicked, &stage.view, [&, name, deletes] {
                calls.append(name);
                if (deletes)
                    delete stage.control;
            });
        };
        connectSlot(u"first"_s, false);
        connectSlot(u"second"_s, true);
        connectSlot(u"third"_s, false);
        stage.hand.tap(stage.centre());
        QCOMPARE(calls, QStringList({u"first"_s, u"second"_s}));
    }

    void viewDeletedLaterInASlot_data() { addRows({{"signal", signalNames}}); }

    void viewDeletedLaterInASlot()
    {
        const auto signal = fetch<Signal>("signal");
        auto stage = std::make_unique<KindStage>();
        const QPointer<KELRoundRectControl> control(stage->control);
        QObject context;
        bool isPosted = false;
        stage->on(signal, [&] {
            if (!std::exchange(isPosted, true))
                QTimer::singleShot(0, &context, [&] { stage.reset(); });
        });
        stage->cause(signal);
        QVERIFY(isPosted);
        QTRY_VERIFY(!control);
    }

    void contentReplacedInASlot_data() { addRows({{"signal", signalNames}}); }

    void contentReplacedInASlot()
    {
        const auto signal = fetch<Signal>("signal");
        KELContentView view;
        const QPointer<KELRoundRectControl> first(new KELPushButton);
        first->setboundRect(0, 0, 200, 100);
        view.setContent(first);
        const QPointer<KELRoundRectControl> second(new KELPushButton);
        second->setboundRect(0, 0, 100, 60);
        SignalLog log;
        log.listenTo(first, u"first"_s);
        log.listenTo(second, u"second"_s);
        log.on(u"first."_s + entries.at(int(signal)), [&] {
            if (signal != Signal::SecondPress || log.count(u"first.press"_s) == 2)
                view.setContent(second);
        });
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        const QPoint centre(50, 30);
        Hand hand(view.viewport());
        cause(signal, &hand, first, centre);
        if (endsWithTheFingerDown(signal))
            hand.release(centre);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(view.viewport(), &leave);
        QVERIFY(!first);
        QVERIFY(second);
        QCOMPARE(view.content(), second.data());
        QCOMPARE(view.size(), QSize(100, 60));
        log.take();
        hand.tap(centre);
        QCOMPARE(log.take(), u"second.press second.release second.clicked"_s);
    }

    // The sanitizers watch this one.
    void shortRecordOfADerivedClassIsNotWrittenTo()
    {
        delete new WithShortRecord<KELCheckBox, KELCheckBoxStyle>;
        delete new WithShortRecord<KELNavigationTable, KELNavigationTableStyle>;
        delete new WithShortRecord<KELNavigationTableItem, KELNavigationTableItemStyle>;
        WithShortRecord<KELCheckBox, KELCheckBoxStyle> again;
        QVERIFY(again.initStyle() == again.style());
    }

    void outlivesTheApplication()
    {
        // Destroyed after main(): a crash or a warning then ends the program with a failure.
        static ControlsOfTheProcess controls;
        controls.alone = std::make_unique<KELPushButton>();
        controls.alone->setText(u"Start"_s);
        controls.alone->style()->pixmap = QPixmap(10, 10);
        controls.comboBox = std::make_unique<KELComboBox>();
        controls.comboBox->addItem(1, u"Start"_s);
        const auto children = controls.comboBox->childItems();
        for (QGraphicsItem *child : children) {
            if (auto *button = qobject_cast<KELPushButton *>(child->toGraphicsObject()))
                Q_EMIT button->mouseClicked(); // opens the list
        }
        controls.scene = std::make_unique<QGraphicsScene>();
        controls.scene->addItem(new KELPushButton);
        QVERIFY(controls.alone);
    }
};

KEL_TEST_MAIN(tst_Lifetime)
#include "tst_lifetime.moc"
