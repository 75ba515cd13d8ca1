// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "lifetimestage.h"

#include <QtCore/QTimer>
#include <QtWidgets/QAction>
#include <QtWidgets/QMenu>

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

enum class MenuMoment { Open, AboutToShow, AboutToHide, Triggered };

bool isPossible(const Kind &kind, Signal signal, Input input)
{
    // What is not selectable ignores presses and so gets no release.
    if (!kind.isSelectable && (signal == Signal::Release || signal == Signal::Clicked))
        return false;
    if (kind.is(KELSlideControl::staticMetaObject) && signal == Signal::LongPress)
        return false;
    // Its button takes all of them.
    if (kind.is(KELComboBox::staticMetaObject))
        return false;
    // It does not hear of its presses.
    if (kind.is(KELNavigationTable::staticMetaObject) && signal != Signal::Release
        && signal != Signal::DoubleClicked && signal != Signal::Enter && signal != Signal::Leave)
        return false;
    return input == Input::Mouse || (signal != Signal::Enter && signal != Signal::Leave);
}

// A data column that names one of the kinds.
int indexOf(const Kind &kind)
{
    return int(&kind - kinds().data());
}

const Kind &kindAt(int index)
{
    return kinds()[size_t(index)];
}

bool needsTwoTaps(Signal signal)
{
    return signal == Signal::SecondPress || signal == Signal::DoubleClicked;
}

// A record with a value that has a destructor.
struct RichStyle : KELRoundRectControlStyle
{
    QString unit;
    std::vector<QString> history;
};

class RichControl : public KELRoundRectControl
{
public:
    RichControl()
    {
        auto *rich = new RichStyle();
        m_style->copy(rich);
        delete m_style;
        m_style = rich;
        rich->unit = QString(200, QLatin1Char('u'));
        rich->history.assign(50, rich->unit);
    }

    ~RichControl() override
    {
        // The base deletes the record as its own type, which frees no value added here.
        auto *rich = static_cast<RichStyle *>(m_style);
        rich->unit = QString();
        std::vector<QString>().swap(rich->history);
    }
};

class SelfDeletingControl : public KELPushButton
{
public:
    using KELPushButton::KELPushButton;

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
        inScene = nullptr;
        comboBox.reset();
        scene.reset();
        alone.reset();
        rich.reset();
    }

    std::unique_ptr<KELPushButton> alone;
    std::unique_ptr<KELComboBox> comboBox;
    std::unique_ptr<RichControl> rich;
    std::unique_ptr<QGraphicsScene> scene;
    KELPushButton *inScene = nullptr;
};

} // namespace

class tst_Lifetime : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void deletedInASlot_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("signal");
        QTest::addColumn<int>("way");
        QTest::addColumn<int>("input");

        for (const Kind &kind : kinds()) {
            for (const Named &signal : signalNames) {
                for (const Named &input : inputs) {
                    if (!isPossible(kind, Signal(signal.value), Input(input.value)))
                        continue;
                    for (const Named &way : ways) {
                        QTest::addRow("%s, %s by %s, %s", kind.name, signal.name, input.name,
                                      way.name)
                            << indexOf(kind) << signal.value << way.value << input.value;
                    }
                }
            }
        }
    }

    void deletedInASlot()
    {
        QFETCH(int, kind);
        QFETCH(int, signal);
        QFETCH(int, way);
        QFETCH(int, input);
        const auto device = Input(input);
        Stage stage{kindAt(kind)};
        int presses = 0;
        connectTo(stage.control, Signal(signal), &stage.view, [&] {
            if (Signal(signal) != Signal::SecondPress || ++presses == 2)
                stage.destroy(Way(way));
        });
        QVERIFY(stage.view.showAndWait());
        // Elsewhere, so that the next tap is not the second of a double tap.
        stage.press(device, besideTheControl);
        stage.release(device, besideTheControl);

        switch (Signal(signal)) {
        case Signal::Enter:
            stage.hover(besideTheControl);
            stage.hover(controlCentre);
            break;
        case Signal::Leave:
            stage.hover(besideTheControl);
            stage.hover(controlCentre);
            stage.hover(besideTheControl);
            break;
        case Signal::LongPress:
            stage.press(device);
            if (!kindAt(kind).is(KELPushButton::staticMetaObject))
                stage.endLongPressTime();
            QTRY_COMPARE(stage.destroyCalls, 1);
            stage.release(device);
            break;
        case Signal::SecondPress:
        case Signal::DoubleClicked:
            stage.press(device);
            stage.release(device);
            if (device == Input::Mouse)
                stage.view.doubleClickPress(controlCentre);
            else
                stage.press(device);
            stage.release(device);
            break;
        default:
            stage.press(device);
            stage.release(device);
        }
        QCOMPARE(stage.destroyCalls, 1);
        if (Way(way) == Way::DeleteLater)
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.control);
        QCOMPARE(stage.below.isNull(), Way(way) == Way::ClearScene);
        QVERIFY(stage.nextControlIsClicked(device));
    }

    void deletedInASlotOfDestroyed_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("way");

        for (const Kind &kind : kinds()) {
            QTest::addRow("%s, scene cleared", kind.name) << indexOf(kind) << int(Way::ClearScene);
            QTest::addRow("%s, parent deleted", kind.name)
                << indexOf(kind) << int(Way::DeleteParent);
        }
    }

    void deletedInASlotOfDestroyed()
    {
        QFETCH(int, kind);
        QFETCH(int, way);
        Stage stage{kindAt(kind)};
        QVERIFY(stage.view.showAndWait());
        stage.press(Input::Mouse);
        connect(stage.control, &QObject::destroyed, &stage.view, [&] { stage.destroy(Way(way)); });
        delete stage.control;
        QCOMPARE(stage.destroyCalls, 1);
        QVERIFY(!stage.group);
        stage.release(Input::Mouse);
        QVERIFY(stage.nextControlIsClicked(Input::Mouse));
    }

    void deletedWithItsMenu_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("byLongPress");
        QTest::addColumn<int>("moment");
        QTest::addColumn<int>("way");

        const Named moments[] = {{"while open", int(MenuMoment::Open)},
                                 {"when about to show", int(MenuMoment::AboutToShow)},
                                 {"when about to hide", int(MenuMoment::AboutToHide)},
                                 {"when triggered", int(MenuMoment::Triggered)}};
        // Each of them waits: not every kind in every row.
        const Kind *const byLongPress[] = {&kindOf<KELRoundRectControl>(), &kinds().back(),
                                           &kindOf<KELPushButton>()};
        for (const Named &moment : moments) {
            for (const Named &way : ways) {
                for (const Kind &kind : kinds()) {
                    QTest::addRow("%s, menu by event, %s, %s", kind.name, moment.name, way.name)
                        << indexOf(kind) << false << moment.value << way.value;
                }
                const Kind &kind = *byLongPress[size_t(moment.value + way.value) % 3];
                QTest::addRow("%s, menu by long press, %s, %s", kind.name, moment.name, way.name)
                    << indexOf(kind) << true << moment.value << way.value;
            }
        }
    }

    void deletedWithItsMenu()
    {
        QFETCH(int, kind);
        QFETCH(bool, byLongPress);
        QFETCH(int, moment);
        QFETCH(int, way);
        Stage stage{kindAt(kind)};
        const QPointer<QMenu> menu(new QMenu);
        QAction *action = menu->addAction(u"Stop"_s);
        stage.control->style()->contextMenu = menu;
        QVERIFY(stage.view.showAndWait());

        const auto destroy = [&] { stage.destroy(Way(way)); };
        bool opened = false;
        // Runs in the event loop of the menu.
        const auto useMenu = [&] {
            opened = true;
            if (MenuMoment(moment) == MenuMoment::Triggered)
                action->trigger();
            if (MenuMoment(moment) == MenuMoment::Open)
                destroy();
            if (menu)
                menu->close();
        };
        connect(menu, &QMenu::aboutToShow, &stage.view, [&] {
            QTimer::singleShot(0, &stage.view, useMenu);
            if (MenuMoment(moment) == MenuMoment::AboutToShow)
                destroy();
        });
        if (MenuMoment(moment) == MenuMoment::AboutToHide)
            connect(menu, &QMenu::aboutToHide, &stage.view, destroy);
        if (MenuMoment(moment) == MenuMoment::Triggered)
            connect(action, &QAction::triggered, &stage.view, destroy);

        if (byLongPress) {
            stage.press(Input::Mouse);
            if (Way(way) != Way::Delete)
                stage.endLongPressTime();
            QTRY_VERIFY(opened);
        } else {
            stage.openMenuByEvent();
        }
        QVERIFY(opened);
        QCOMPARE(stage.destroyCalls, 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTRY_VERIFY(!stage.control);
        QTRY_VERIFY(!menu);
        if (byLongPress)
            stage.release(Input::Mouse);
        QVERIFY(stage.nextControlIsClicked(Input::Mouse));
    }

    void menuDeletedWhileOpen_data()
    {
        QTest::addColumn<bool>("byLongPress");

        QTest::newRow("by event") << false;
        QTest::newRow("by long press") << true;
    }

    void menuDeletedWhileOpen()
    {
        QFETCH(bool, byLongPress);
        Stage stage{kindOf<KELPushButton>()};
        const QPointer<QMenu> menu(new QMenu);
        menu->addAction(u"Stop"_s);
        stage.control->style()->contextMenu = menu;
        QVERIFY(stage.view.showAndWait());
        connect(menu, &QMenu::aboutToShow, &stage.view, [&] {
            QTimer::singleShot(0, &stage.view, [&] {
                stage.control->style()->contextMenu = nullptr;
                delete menu;
            });
        });
        if (byLongPress) {
            stage.press(Input::Mouse);
            QTRY_VERIFY(!menu);
            stage.release(Input::Mouse);
        } else {
            stage.openMenuByEvent();
        }
        QVERIFY(!menu);
        QVERIFY(stage.control);
        QVERIFY(!stage.control->isMouseDown());
        QVERIFY(stage.nextControlIsClicked(Input::Mouse));
    }

    void deletedBeforeItsMenuOpens_data()
    {
        QTest::addColumn<int>("way");

        for (const Named &way : ways)
            QTest::newRow(way.name) << way.value;
    }

    void deletedBeforeItsMenuOpens()
    {
        QFETCH(int, way);
        Stage stage{kindOf<KELPushButton>()};
        const QPointer<QMenu> menu(new QMenu);
        menu->addAction(u"Stop"_s);
        stage.control->style()->contextMenu = menu;
        int shown = 0;
        connect(menu, &QMenu::aboutToShow, &stage.view, [&] {
            ++shown;
            QTimer::singleShot(0, menu, &QWidget::close);
        });
        connect(stage.control, &KELRoundRectControl::mouseLongPress, &stage.view,
                [&] { stage.destroy(Way(way)); });
        QVERIFY(stage.view.showAndWait());
        stage.press(Input::Mouse);
        QTRY_VERIFY(!stage.control);
        // A control that is to be deleted later is still there for its menu.
        QCOMPARE(shown, Way(way) == Way::DeleteLater ? 1 : 0);
        QTRY_VERIFY(!menu);
        stage.release(Input::Mouse);
        QVERIFY(stage.nextControlIsClicked(Input::Mouse));
    }

    void deletedWhilePressed_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("way");
        QTest::addColumn<int>("input");

        for (const Kind &kind : kinds()) {
            for (const Named &way : ways) {
                for (const Named &input : inputs) {
                    QTest::addRow("%s, %s, %s", kind.name, way.name, input.name)
                        << indexOf(kind) << way.value << input.value;
                }
            }
        }
    }

    void deletedWhilePressed()
    {
        QFETCH(int, kind);
        QFETCH(int, way);
        QFETCH(int, input);
        Stage stage{kindAt(kind)};
        QVERIFY(stage.view.showAndWait());
        stage.press(Input(input));
        QCOMPARE(stage.control->isMouseDown(),
                 !kindAt(kind).is(KELNavigationTable::staticMetaObject)
                     && !kindAt(kind).is(KELComboBox::staticMetaObject));
        stage.destroy(Way(way));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.control);
        QCoreApplication::processEvents();
        stage.release(Input(input));
        QVERIFY(stage.nextControlIsClicked(Input(input)));
    }

    void deletedWhenChecked_data()
    {
        QTest::addColumn<bool>("later");

        QTest::newRow("delete") << false;
        QTest::newRow("deleteLater") << true;
    }

    void deletedWhenChecked()
    {
        QFETCH(bool, later);
        KelTestView view;
        auto *control = new SelfDeletingControl;
        const QPointer<KELPushButton> alive(control);
        control->deletesLater = later;
        control->setboundRect(100, 100, 100, 50);
        view.ownScene.addItem(control);
        QVERIFY(view.showAndWait());
        control->setCheck(true);
        QCOMPARE(alive.isNull(), !later);
        if (later) {
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
        Stage stage{kindOf<KELPushButton>()};
        QStringList calls;
        connect(stage.control, &KELRoundRectControl::mouseClicked, &stage.view,
                [&] { calls.append(u"first"_s); });
        connect(stage.control, &KELRoundRectControl::mouseClicked, &stage.view, [&] {
            calls.append(u"second"_s);
            delete stage.control;
        });
        connect(stage.control, &KELRoundRectControl::mouseClicked, &stage.view,
                [&] { calls.append(u"third"_s); });
        QVERIFY(stage.view.showAndWait());
        stage.press(Input::Mouse);
        stage.release(Input::Mouse);
        QCOMPARE(calls, QStringList({u"first"_s, u"second"_s}));
    }

    void siblingDeletedInASlot_data()
    {
        QTest::addColumn<int>("signal");

        for (const Named &signal : signalNames) {
            if (Signal(signal.value) != Signal::LongPress && !needsTwoTaps(Signal(signal.value)))
                QTest::newRow(signal.name) << signal.value;
        }
    }

    void siblingDeletedInASlot()
    {
        QFETCH(int, signal);
        Stage stage{kindOf<KELPushButton>()};
        connectTo(stage.control, Signal(signal), &stage.view, [&] { delete stage.below; });
        QVERIFY(stage.view.showAndWait());
        stage.hover(besideTheControl);
        stage.hover(controlCentre);
        stage.press(Input::Mouse);
        stage.release(Input::Mouse);
        stage.hover(besideTheControl);
        QVERIFY(!stage.below);
        QVERIFY(stage.control);
        QVERIFY(stage.nextControlIsClicked(Input::Mouse));
    }

    void viewDeletedLaterInASlot_data()
    {
        QTest::addColumn<int>("signal");

        for (const Named &signal : signalNames) {
            if (!needsTwoTaps(Signal(signal.value)))
                QTest::newRow(signal.name) << signal.value;
        }
    }

    void viewDeletedLaterInASlot()
    {
        QFETCH(int, signal);
        auto *stage = new Stage(kindOf<KELPushButton>());
        const QPointer<KELRoundRectControl> control(stage->control);
        QObject context;
        bool posted = false;
        connectTo(stage->control, Signal(signal), &context, [&] {
            if (!std::exchange(posted, true))
                QTimer::singleShot(0, &context, [stage] { delete stage; });
        });
        QVERIFY(stage->view.showAndWait());
        stage->hover(besideTheControl);
        stage->hover(controlCentre);
        stage->press(Input::Mouse);
        if (Signal(signal) != Signal::Press && Signal(signal) != Signal::LongPress
            && Signal(signal) != Signal::Enter) {
            stage->release(Input::Mouse);
            stage->hover(besideTheControl);
        }
        QTRY_VERIFY(posted);
        QTRY_VERIFY(!control);
    }

    void contentReplacedInASlot_data()
    {
        QTest::addColumn<int>("signal");

        for (const Named &signal : signalNames) {
            if (!needsTwoTaps(Signal(signal.value)))
                QTest::newRow(signal.name) << signal.value;
        }
    }

    void contentReplacedInASlot()
    {
        QFETCH(int, signal);
        KELContentView view;
        const QPointer<KELRoundRectControl> first(makeControl(kindOf<KELPushButton>(), nullptr));
        first->setboundRect(0, 0, 200, 100);
        view.setContent(first);
        const QPointer<KELRoundRectControl> second(makeControl(kindOf<KELPushButton>(), nullptr));
        second->setboundRect(0, 0, 100, 60);
        int calls = 0;
        connectTo(first, Signal(signal), &view, [&] {
            ++calls;
            view.setContent(second);
        });
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        const QPoint centre(50, 30);
        hoverOver(view, centre);
        QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, centre);
        if (Signal(signal) == Signal::LongPress)
            QTRY_VERIFY(!first);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, centre);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(view.viewport(), &leave);
        QCOMPARE(calls, 1);
        QVERIFY(!first);
        QVERIFY(second);
        QCOMPARE(view.content(), second.data());
        QCOMPARE(view.size(), QSize(100, 60));
        const QSignalSpy clicked(second, &KELRoundRectControl::mouseClicked);
        QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, centre);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, centre);
        QCOMPARE(clicked.count(), 1);
    }

    void menuIsDeletedWithTheControl()
    {
        const QPointer<QMenu> menu(new QMenu);
        auto *control = new KELPushButton;
        control->style()->contextMenu = menu;
        delete control;
        QVERIFY(menu);
        QCoreApplication::sendPostedEvents(menu, QEvent::DeferredDelete);
        QVERIFY(!menu);
    }

    void derivedRecordIsDeletedAsTheBaseRecord()
    {
        // The sanitizers watch this one.
        for (int i = 0; i < 3; ++i) {
            const std::unique_ptr<KELRoundRectControl> control(new RichControl);
            QCOMPARE(control->style()->textFlags, 0x1084);
        }
        std::unique_ptr<KELRoundRectControlStyle> own(new KELRoundRectControlStyle());
        own = std::unique_ptr<KELRoundRectControlStyle>(new KELPushButtonStyle());
        QVERIFY(own->text.isNull());
    }

    // The sanitizers watch this one, too.
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
        controls.rich = std::make_unique<RichControl>();
        controls.comboBox = std::make_unique<KELComboBox>();
        controls.comboBox->addItem(1, u"Start"_s);
        const auto children = controls.comboBox->childItems();
        for (QGraphicsItem *child : children) {
            if (auto *button = qobject_cast<KELPushButton *>(child->toGraphicsObject()))
                Q_EMIT button->mouseClicked(); // opens the list
        }
        controls.scene = std::make_unique<QGraphicsScene>();
        controls.inScene = new KELPushButton;
        controls.scene->addItem(controls.inScene);
        QVERIFY(controls.alone);
    }
};

KEL_TEST_MAIN(tst_Lifetime)
#include "tst_lifetime.moc"
