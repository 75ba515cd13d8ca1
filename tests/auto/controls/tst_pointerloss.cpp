// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelpushbutton.h>
#include <kelroundrectcontrol.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>
#include <QtWidgets/QGraphicsRectItem>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolTip>

#include <memory>

namespace {

constexpr int wellAfterLongPressMs = 600;

enum ControlType { SelectableBase, PushButton, UnselectableBase };

class PlainParent : public QGraphicsObject
{
public:
    QRectF boundingRect() const override { return QRectF(0, 0, 1, 1); }
    void paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    { }
};

class Recorder : public QObject
{
public:
    explicit Recorder(KELRoundRectControl *control)
    {
        const auto noting = [this](const char *name) {
            return [this, name] { m_names.append(QLatin1String(name)); };
        };
        connect(control, &KELRoundRectControl::mousePress, this, noting("press"));
        connect(control, &KELRoundRectControl::mouseRelease, this, noting("release"));
        connect(control, &KELRoundRectControl::mouseClicked, this, noting("clicked"));
        connect(control, &KELRoundRectControl::mouseDoubleClicked, this, noting("double"));
        connect(control, &KELRoundRectControl::mouseLongPress, this, noting("long"));
    }
    QString take() { return std::exchange(m_names, QStringList()).join(QLatin1Char(' ')); }
    bool has(const char *name) const { return m_names.contains(QLatin1String(name)); }

private:
    QStringList m_names;
};

KELRoundRectControl *newControl(ControlType type)
{
    auto *control = type == PushButton ? new KELPushButton : new KELRoundRectControl;
    control->setFlag(QGraphicsItem::ItemIsSelectable, type != UnselectableBase);
    return control;
}

// Two controls in a view inside a window: the one that loses the pointer, and another one beside
// it.
struct Stage
{
    explicit Stage(ControlType type) :
        view(new KelTestView),
        parent(new PlainParent),
        control(newControl(type)),
        other(new KELPushButton),
        recorder(control),
        otherRecorder(other)
    {
        control->setboundRect(20, 20, 100, 60);
        control->setParentItem(parent);
        view->ownScene.addItem(parent);
        other->setboundRect(200, 20, 100, 60);
        view->ownScene.addItem(other);
        view->setParent(&window);
        window.resize(view->size());
    }
    ~Stage()
    {
        if (!control->scene())
            delete control;
        if (!parent->scene())
            delete parent;
    }

    bool show()
    {
        window.show();
        return QTest::qWaitForWindowExposed(&window);
    }
    // No release follows: the tests send it where they want it.
    void press() const
    {
        const QPoint pos(70, 50);
        QMouseEvent event(QEvent::MouseButtonPress, pos, view->viewport()->mapToGlobal(pos),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &event);
    }
    void release() const
    {
        const QPoint pos(70, 50);
        QMouseEvent event(QEvent::MouseButtonRelease, pos, view->viewport()->mapToGlobal(pos),
                          Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &event);
    }
    void tapOther() const { view->click(QPoint(250, 50)); }

    void openModal(QWidget *dialogParent, Qt::WindowModality modality)
    {
        cover = std::make_unique<QDialog>(dialogParent);
        cover->setWindowModality(modality);
        cover->show();
    }

    QGraphicsScene otherScene;
    QDialog window;
    QPointer<KelTestView> view; // dies with the window
    QPointer<PlainParent> parent;
    QPointer<KELRoundRectControl> control;
    QPointer<KELRoundRectControl> other;
    Recorder recorder;
    Recorder otherRecorder;
    QWidget otherWindow;
    std::unique_ptr<QWidget> cover;
};

} // namespace

using Step = std::function<void(Stage &)>;
Q_DECLARE_METATYPE(Step)

namespace {

struct Way
{
    const char *name;
    Step lose;
    Step restore;
};

// Ways of losing the pointer that touch the control alone, and so need no grab to be lost.
const std::vector<Way> &waysOfTheItem()
{
    static const std::vector<Way> ways = {
        {"disabled", [](Stage &s) { s.control->setEnabled(false); },
         [](Stage &s) { s.control->setEnabled(true); }},
        {"hidden", [](Stage &s) { s.control->hide(); }, [](Stage &s) { s.control->show(); }},
        {"parent disabled", [](Stage &s) { s.parent->setEnabled(false); },
         [](Stage &s) { s.parent->setEnabled(true); }},
        {"parent hidden", [](Stage &s) { s.parent->hide(); }, [](Stage &s) { s.parent->show(); }},
        {"pressed button switched off",
         [](Stage &s) { s.control->setAcceptedMouseButtons(Qt::RightButton); },
         [](Stage &s) { s.control->setAcceptedMouseButtons(Qt::LeftButton); }},
        {"buttons switched off", [](Stage &s) { s.control->setAcceptedMouseButtons(Qt::NoButton); },
         [](Stage &s) { s.control->setAcceptedMouseButtons(Qt::LeftButton); }},
    };
    return ways;
}

const std::vector<Way> &ways()
{
    static const std::vector<Way> all = [] {
        std::vector<Way> list = waysOfTheItem();
        const std::vector<Way> rest = {
            {"ungrabbed", [](Stage &s) { s.control->ungrabMouse(); }, [](Stage &) {}},
            {"another item grabs", [](Stage &s) { s.other->grabMouse(); },
             [](Stage &s) { s.other->ungrabMouse(); }},
            {"taken out of the scene", [](Stage &s) { s.view->ownScene.removeItem(s.control); },
             [](Stage &s) { s.control->setParentItem(s.parent); }},
            {"parent taken out of the scene",
             [](Stage &s) { s.view->ownScene.removeItem(s.parent); },
             [](Stage &s) { s.view->ownScene.addItem(s.parent); }},
            {"view hidden", [](Stage &s) { s.view->hide(); }, [](Stage &s) { s.view->show(); }},
            {"window hidden", [](Stage &s) { s.window.hide(); }, [](Stage &s) { s.window.show(); }},
            {"window closed", [](Stage &s) { s.window.close(); },
             [](Stage &s) { s.window.show(); }},
            {"view set to another scene", [](Stage &s) { s.view->setScene(&s.otherScene); },
             [](Stage &s) { s.view->setScene(&s.view->ownScene); }},
            {"scene taken from the view", [](Stage &s) { s.view->setScene(nullptr); },
             [](Stage &s) { s.view->setScene(&s.view->ownScene); }},
            {"view disabled", [](Stage &s) { s.view->setEnabled(false); },
             [](Stage &s) { s.view->setEnabled(true); }},
            {"window disabled", [](Stage &s) { s.window.setEnabled(false); },
             [](Stage &s) { s.window.setEnabled(true); }},
            {"view made not interactive", [](Stage &s) { s.view->setInteractive(false); },
             [](Stage &s) { s.view->setInteractive(true); }},
            {"menu opened",
             [](Stage &s) {
                 auto menu = std::make_unique<QMenu>();
                 menu->addAction(u"One"_s);
                 menu->popup(QPoint(10, 10));
                 s.cover = std::move(menu);
             },
             [](Stage &s) { s.cover.reset(); }},
            {"popup window opened",
             [](Stage &s) {
                 s.cover = std::make_unique<QWidget>(&s.window, Qt::Popup);
                 s.cover->show();
             },
             [](Stage &s) { s.cover.reset(); }},
            {"application-modal dialog opened",
             [](Stage &s) { s.openModal(nullptr, Qt::ApplicationModal); },
             [](Stage &s) { s.cover.reset(); }},
            {"application-modal dialog of the window opened",
             [](Stage &s) { s.openModal(&s.window, Qt::ApplicationModal); },
             [](Stage &s) { s.cover.reset(); }},
            {"window-modal dialog of the window opened",
             [](Stage &s) { s.openModal(&s.window, Qt::WindowModal); },
             [](Stage &s) { s.cover.reset(); }},
            {"modal dialog run until it closes",
             [](Stage &s) {
                 QDialog dialog(&s.window);
                 QTimer::singleShot(50, &dialog, &QDialog::accept);
                 dialog.exec();
             },
             [](Stage &) {}},
            {"menu run until it closes",
             [](Stage & /*s*/) {
                 QMenu menu;
                 menu.addAction(u"One"_s);
                 QTimer::singleShot(50, &menu, &QMenu::close);
                 menu.exec(QPoint(10, 10));
             },
             [](Stage &) {}},
            {"modal panel opened in the scene",
             [](Stage &s) {
                 auto *panel = new QGraphicsRectItem(0, 0, 400, 300);
                 panel->setFlag(QGraphicsItem::ItemIsPanel);
                 panel->setPanelModality(QGraphicsItem::SceneModal);
                 panel->setZValue(99);
                 s.view->ownScene.addItem(panel);
             },
             [](Stage &s) {
                 const QList<QGraphicsItem *> items = s.view->ownScene.items();
                 for (QGraphicsItem *item : items) {
                     if (qFuzzyCompare(item->zValue(), 99))
                         delete item;
                 }
             }},
        };
        list.insert(list.end(), rest.begin(), rest.end());
        return list;
    }();
    return all;
}

void addRows()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("inSlot");
    QTest::addColumn<Step>("lose");
    QTest::addColumn<Step>("restore");

    for (const Way &way : ways()) {
        for (const ControlType type : {SelectableBase, PushButton}) {
            for (const bool inSlot : {true, false}) {
                QTest::addRow("%s, %s, %s", way.name,
                              type == PushButton ? "push button" : "selectable base",
                              inSlot ? "inside the press slot" : "later")
                    << int(type) << inSlot << way.lose << way.restore;
            }
        }
    }
}

// Presses the control and takes the pointer away from it.
void pressAndLose(Stage &stage, bool inSlot, const Step &lose)
{
    if (inSlot) {
        auto *context = new QObject;
        QObject::connect(stage.control, &KELRoundRectControl::mousePress, context, [&, context] {
            delete context; // once only
            lose(stage);
        });
        stage.press();
    } else {
        stage.press();
        QVERIFY(stage.control->isMouseDown());
        lose(stage);
    }
}

bool hasTimer(QObject *object)
{
    return !QAbstractEventDispatcher::instance()->registeredTimers(object).isEmpty();
}

} // namespace

class tst_PointerLoss : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pressIsDropped_data() { addRows(); }

    void pressIsDropped()
    {
        QFETCH(int, type);
        QFETCH(bool, inSlot);
        QFETCH(Step, lose);
        QFETCH(Step, restore);
        Stage stage{ControlType(type)};
        QVERIFY(stage.show());
        pressAndLose(stage, inSlot, lose);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        QVERIFY(!stage.control->isMouseDown());
        QVERIFY2(!hasTimer(stage.control), "the long press is still to come");
        restore(stage);
        QCoreApplication::processEvents();
        QVERIFY(!stage.control->style()->isMouseDown);
        QCOMPARE(stage.recorder.take(), u"press"_s);
    }

    void releaseAfterwardsIsNoClick_data() { addRows(); }

    void releaseAfterwardsIsNoClick()
    {
        QFETCH(int, type);
        QFETCH(bool, inSlot);
        QFETCH(Step, lose);
        QFETCH(Step, restore);
        Stage stage{ControlType(type)};
        QVERIFY(stage.show());
        pressAndLose(stage, inSlot, lose);
        // At once: before the event loop goes round.
        stage.release();
        QCoreApplication::processEvents();
        restore(stage);
        stage.release();
        const QString names = stage.recorder.take();
        QVERIFY2(names == QLatin1String("press") || names == QLatin1String("press release"),
                 qPrintable(names));
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
    }

    void nextTapReachesAnotherControl_data() { addRows(); }

    void nextTapReachesAnotherControl()
    {
        QFETCH(int, type);
        QFETCH(bool, inSlot);
        QFETCH(Step, lose);
        QFETCH(Step, restore);
        Stage stage{ControlType(type)};
        QVERIFY(stage.show());
        pressAndLose(stage, inSlot, lose);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        restore(stage);
        QCoreApplication::processEvents();
        stage.recorder.take();
        stage.otherRecorder.take();
        stage.tapOther();
        QCOMPARE(stage.otherRecorder.take(), u"press release clicked"_s);
        QCOMPARE(stage.recorder.take(), QString());
        stage.tapOther();
        QCOMPARE(stage.otherRecorder.take(), u"press release clicked"_s);
    }

    void nextTapOnTheSameControlWorks_data() { addRows(); }

    void nextTapOnTheSameControlWorks()
    {
        QFETCH(int, type);
        QFETCH(bool, inSlot);
        QFETCH(Step, lose);
        QFETCH(Step, restore);
        Stage stage{ControlType(type)};
        QVERIFY(stage.show());
        pressAndLose(stage, inSlot, lose);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        restore(stage);
        QCoreApplication::processEvents();
        stage.recorder.take();
        for (int i = 0; i < 2; ++i) {
            stage.press();
            QVERIFY(stage.control->isMouseDown());
            stage.release();
            QCOMPARE(stage.recorder.take(), u"press release clicked"_s);
            QVERIFY(!stage.control->isMouseDown());
        }
    }

    void noLateLongPress_data()
    {
        QTest::addColumn<Step>("lose");
        QTest::addColumn<Step>("restore");

        const QStringList names = {
            u"ungrabbed"_s,           u"disabled"_s,    u"hidden"_s,
            u"window closed"_s,       u"menu opened"_s, u"application-modal dialog opened"_s,
            u"buttons switched off"_s};
        for (const Way &way : ways()) {
            if (names.contains(QLatin1String(way.name)))
                QTest::newRow(way.name) << way.lose << way.restore;
        }
    }

    void noLateLongPress()
    {
        QFETCH(Step, lose);
        QFETCH(Step, restore);
        Stage stage{PushButton};
        QVERIFY(stage.show());
        stage.press();
        lose(stage);
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(stage.recorder.take(), u"press"_s);
        restore(stage);
    }

    void pressedLookLeavesTheScreen_data()
    {
        QTest::addColumn<Step>("lose");
        QTest::addColumn<Step>("restore");

        const QStringList names = {u"ungrabbed"_s, u"another item grabs"_s, u"menu opened"_s,
                                   u"window-modal dialog of the window opened"_s,
                                   u"buttons switched off"_s};
        for (const Way &way : ways()) {
            if (names.contains(QLatin1String(way.name)))
                QTest::newRow(way.name) << way.lose << way.restore;
        }
    }

    void pressedLookLeavesTheScreen()
    {
        QFETCH(Step, lose);
        QFETCH(Step, restore);
        Stage stage{PushButton};
        // The place of the finger, where no caption is drawn.
        const auto colour = [&stage] { return stage.view->grab().toImage().pixel(70, 50); };
        QVERIFY(stage.show());
        const QRgb released = colour();
        stage.press();
        QTRY_VERIFY(colour() != released);
        lose(stage);
        QTRY_COMPARE(colour(), released);
        restore(stage);
    }

    void ungrabbedByTheChildOfAButton()
    {
        Stage stage{PushButton};
        auto *child = new QGraphicsRectItem(40, 30, 60, 40, stage.control);
        QVERIFY(stage.show());
        stage.press();
        QVERIFY(stage.control->isMouseDown());
        QCOMPARE(stage.view->ownScene.mouseGrabberItem(), child);
        child->ungrabMouse();
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        stage.release();
        QCOMPARE(stage.recorder.take(), u"press"_s);
    }

    void unselectableControlLosesAPress_data()
    {
        QTest::addColumn<bool>("inSlot");
        QTest::addColumn<Step>("lose");

        for (const Way &way : waysOfTheItem()) {
            QTest::addRow("%s, inside the press slot", way.name) << true << way.lose;
            QTest::addRow("%s, later", way.name) << false << way.lose;
        }
    }

    void unselectableControlLosesAPress()
    {
        QFETCH(bool, inSlot);
        QFETCH(Step, lose);
        Stage stage{UnselectableBase};
        QVERIFY(stage.show());
        pressAndLose(stage, inSlot, lose);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        QVERIFY2(!hasTimer(stage.control), "the long press is still to come");
        QCOMPARE(stage.recorder.take(), u"press"_s);
    }

    void nextDoubleClickReachesAnotherControl()
    {
        Stage stage{PushButton};
        QVERIFY(stage.show());
        stage.press();
        stage.openModal(nullptr, Qt::ApplicationModal);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        stage.cover.reset();
        stage.recorder.take();
        stage.view->doubleClickPress(QPoint(250, 50));
        stage.view->release(QPoint(250, 50));
        QCOMPARE(stage.recorder.take(), QString());
        // Qt turns a double click that follows a press elsewhere into a press.
        QCOMPARE(stage.otherRecorder.take(), u"press release clicked"_s);
    }

    void nextDoubleClickOnTheSameControlWorks()
    {
        Stage stage{PushButton};
        QVERIFY(stage.show());
        stage.press();
        stage.openModal(nullptr, Qt::ApplicationModal);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        stage.cover.reset();
        stage.recorder.take();
        stage.view->doubleClickPress(QPoint(70, 50));
        stage.view->release(QPoint(70, 50));
        QCOMPARE(stage.recorder.take(), u"press double release clicked"_s);
    }

    void nextTouchReachesAnotherControl()
    {
        Stage stage{PushButton};
        QVERIFY(stage.show());
        stage.press();
        stage.openModal(nullptr, Qt::ApplicationModal);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        stage.cover.reset();
        stage.recorder.take();
        stage.view->touchPress(QPoint(250, 50));
        stage.view->touchRelease(QPoint(250, 50));
        QCOMPARE(stage.recorder.take(), QString());
        QCOMPARE(stage.otherRecorder.take(), u"press release clicked"_s);
    }

    void nextPressOnNothingReachesNobody()
    {
        Stage stage{PushButton};
        QVERIFY(stage.show());
        stage.press();
        stage.openModal(nullptr, Qt::ApplicationModal);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        stage.cover.reset();
        stage.recorder.take();
        const QPoint nowhere(150, 200);
        QMouseEvent event(QEvent::MouseButtonPress, nowhere, Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(stage.view->viewport(), &event);
        stage.view->release(nowhere);
        QCOMPARE(stage.recorder.take(), QString());
        stage.tapOther();
        QCOMPARE(stage.otherRecorder.take(), u"press release clicked"_s);
    }

    void releaseAfterTheLongPressMenuIsNoClick_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("selectable base") << int(SelectableBase);
        QTest::newRow("push button") << int(PushButton);
    }

    void releaseAfterTheLongPressMenuIsNoClick()
    {
        QFETCH(int, type);
        Stage stage{ControlType(type)};
        QVERIFY(stage.show());
        auto *menu = new QMenu;
        menu->addAction(u"One"_s);
        stage.control->style()->contextMenu = menu;
        bool wasDown = true;
        connect(menu, &QMenu::aboutToShow, this, [&] {
            QTimer::singleShot(0, menu, [&] {
                wasDown = stage.control->isMouseDown();
                menu->close();
            });
        });
        stage.press();
        QTRY_VERIFY(!wasDown);
        QTRY_VERIFY(!menu->isVisible());
        QCOMPARE(stage.recorder.take(), u"press long"_s);
        stage.release();
        QCOMPARE(stage.recorder.take(), u"release"_s);
        QVERIFY(!stage.control->isMouseDown());
        stage.press();
        stage.release();
        QCOMPARE(stage.recorder.take(), u"press release clicked"_s);
    }

    void tapAfterTheLongPressMenuReachesAnotherControl()
    {
        Stage stage{PushButton};
        QVERIFY(stage.show());
        auto *menu = new QMenu;
        menu->addAction(u"One"_s);
        stage.control->style()->contextMenu = menu;
        bool closed = false;
        connect(menu, &QMenu::aboutToShow, this, [&] {
            QTimer::singleShot(50, menu, [&] {
                // The finger is lifted over the menu.
                menu->close();
                closed = true;
            });
        });
        stage.press();
        QTRY_VERIFY(closed);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        stage.tapOther();
        QCOMPARE(stage.recorder.take(), u"press long"_s);
        QCOMPARE(stage.otherRecorder.take(), u"press release clicked"_s);
    }

    void pressSurvives_data()
    {
        QTest::addColumn<Step>("before");
        QTest::addColumn<Step>("during");

        const Step nothing = [](Stage &) {};
        const auto popupOver = [](Stage &s) {
            s.cover = std::make_unique<QWidget>(nullptr, Qt::Popup);
            s.cover->show();
        };
        QTest::newRow("nothing happens") << nothing << nothing;
        QTest::newRow("popup open before") << Step(popupOver) << nothing;
        QTest::newRow("popup open before closes")
            << Step(popupOver) << Step([](Stage &s) { s.cover.reset(); });
        QTest::newRow("modal dialog open before")
            << Step([](Stage &s) { s.openModal(nullptr, Qt::ApplicationModal); }) << nothing;
        QTest::newRow("inside a popup") << Step([](Stage &s) {
            s.window.setWindowFlags(Qt::Popup);
            s.window.show();
        }) << nothing;
        QTest::newRow("inside a modal dialog") << Step([](Stage &s) {
            s.window.hide();
            s.window.setModal(true);
            s.window.show();
        }) << nothing;
        QTest::newRow("inside a popup, a popup over it closes") << Step([popupOver](Stage &s) {
            s.window.setWindowFlags(Qt::Popup);
            s.window.show();
            popupOver(s);
        }) << Step([](Stage &s) { s.cover.reset(); });
        QTest::newRow("inside a modal dialog, a dialog over it closes") << Step([](Stage &s) {
            s.window.hide();
            s.window.setModal(true);
            s.window.show();
            s.openModal(&s.window, Qt::ApplicationModal);
        }) << Step([](Stage &s) { s.cover.reset(); });
        QTest::newRow("window-modal dialog of another window opens")
            << Step([](Stage &s) { s.otherWindow.show(); })
            << Step([](Stage &s) { s.openModal(&s.otherWindow, Qt::WindowModal); });
        QTest::newRow("dialog that is not modal opens")
            << nothing << Step([](Stage &s) { s.openModal(&s.window, Qt::NonModal); });
        QTest::newRow("tool tip opens") << nothing << Step([](Stage &s) {
            QToolTip::showText(s.view->mapToGlobal(QPoint(70, 50)), u"Tip"_s, s.view);
        });
        QTest::newRow("tool window opens") << nothing << Step([](Stage &s) {
            s.cover = std::make_unique<QWidget>(&s.window, Qt::Tool);
            s.cover->show();
        });
        QTest::newRow("another control is disabled")
            << nothing << Step([](Stage &s) { s.other->setEnabled(false); });
        QTest::newRow("another control is hidden")
            << nothing << Step([](Stage &s) { s.other->hide(); });
        QTest::newRow("another view of the scene is hidden") << Step([](Stage &s) {
            s.cover = std::make_unique<QGraphicsView>(&s.view->ownScene);
            s.cover->show();
        }) << Step([](Stage &s) { s.cover->hide(); });
        QTest::newRow("another window closes") << Step([](Stage &s) { s.otherWindow.show(); })
                                               << Step([](Stage &s) { s.otherWindow.close(); });
        QTest::newRow("repainted") << nothing << Step([](Stage &s) { s.control->update(); });
    }

    void pressSurvives()
    {
        QFETCH(Step, before);
        QFETCH(Step, during);
        for (const ControlType type : {SelectableBase, PushButton}) {
            Stage stage{type};
            QVERIFY(stage.show());
            before(stage);
            QCoreApplication::processEvents();
            stage.press();
            during(stage);
            for (int i = 0; i < 5; ++i)
                QCoreApplication::processEvents();
            QVERIFY(stage.control->isMouseDown());
            QVERIFY(stage.control->style()->isMouseDown);
            // A slow machine is past the long press already.
            const bool isLong = stage.recorder.has("long");
            QVERIFY(isLong || hasTimer(stage.control));
            stage.release();
            QCOMPARE(stage.recorder.take(),
                     isLong ? u"press long release"_s : u"press release clicked"_s);
            QToolTip::hideText();
            const QWidgetList widgets = QApplication::topLevelWidgets();
            for (QWidget *widget : widgets) {
                if (widget->inherits("QTipLabel"))
                    delete widget;
            }
        }
    }

    void childInsideAButtonClicksTheButton_data()
    {
        QTest::addColumn<bool>("selectable");
        QTest::newRow("plain child") << false;
        QTest::newRow("selectable child") << true;
    }

    void childInsideAButtonClicksTheButton()
    {
        QFETCH(bool, selectable);
        Stage stage{PushButton};
        auto *child = new QGraphicsRectItem(40, 30, 60, 40, stage.control);
        child->setFlag(QGraphicsItem::ItemIsSelectable, selectable);
        QVERIFY(stage.show());
        stage.press();
        QVERIFY(stage.control->isMouseDown());
        stage.release();
        QCOMPARE(stage.recorder.take(), u"press release clicked"_s);
        stage.press();
        QTRY_VERIFY(stage.recorder.has("long"));
        QVERIFY(stage.control->isMouseDown());
        stage.release();
        QCOMPARE(stage.recorder.take(), u"press long release"_s);
    }
};

KEL_TEST_MAIN(tst_PointerLoss)

#include "tst_pointerloss.moc"
