// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"

#include "checks.h"
#include "filtercount.h"
#include "virtualtime.h"

#include <kelcontentview.h>
#include <keldialogbase.h>
#include <kelsidemenu.h>

#include <QtCore/QCoreApplication>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>

using namespace Monkey;

namespace {

constexpr QSize viewSize(240, 160);
constexpr int maxSlotDepth = 4;

class PlainViewWidget : public QGraphicsView
{
public:
    explicit PlainViewWidget(QWidget *parent) : QGraphicsView(parent)
    {
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        resize(viewSize);
    }
};

} // namespace

Stage::Stage(VirtualTime *clock) : time(clock), m_filtersBefore(applicationFilterCount())
{
    desk = new QWidget;
    desk->setWindowFlags(Qt::FramelessWindowHint);
    desk->resize(2 * viewSize);
    m_scene = new QGraphicsScene(desk);
    m_scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    m_scene->setSceneRect(QRectF(QPointF(), viewSize));
    makeView(PlainView);
    popup = new QWidget(desk);
    popup->setGeometry(10, 10, 40, 40);
    popup->hide();
    for (QPointer<Model> &model : models)
        model = new Model(desk);
    for (Group &group : groups)
        group.group = new KELRadioBoxGroup;
    hands.setFallback(desk);
    desk->show();
    desk->activateWindow();
    turn();
}

Stage::~Stage()
{
    dropEverything();
}

void Stage::fail(const QString &what)
{
    if (m_failure.isEmpty())
        m_failure = what;
}

void Stage::run(const Step &step)
{
    const Verb &verb = step.kind();
    if ((verb.reach == Reach::OutermostLoop && isNested())
        || (verb.reach == Reach::NotInSlots && isInSlot()))
        return;
    verb.run(*this, step);
    for (Witness *witness : qAsConst(m_witnesses))
        witness->look();
}

void Stage::react(const Step &step)
{
    if (m_slotDepth >= maxSlotDepth || !m_failure.isEmpty())
        return;
    ++m_slotDepth;
    run(step);
    --m_slotDepth;
}

// No slot runs while the event loop waits.
void Stage::runNested(const Step &step)
{
    const int slotDepth = std::exchange(m_slotDepth, 0);
    ++m_loopDepth;
    run(step);
    --m_loopDepth;
    m_slotDepth = slotDepth;
}

void Stage::closePopups() const
{
    if (QWidget *const open = QApplication::activePopupWidget())
        open->close();
    else if (QWidget *const modal = QApplication::activeModalWidget())
        modal->close();
}

void Stage::turn()
{
    constexpr int maxRounds = 40;
    paintsInTurn = 0;
    int rounds = 0;
    do {
        if (!isNested())
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        time->processEvents(QEventLoop::AllEvents);
    } while (!isNested() && time->hasPendingEvents() && ++rounds < maxRounds);
    if (rounds == maxRounds)
        fail(QStringLiteral("the event loop does not come to rest"));
    if (!isNested())
        checkAfterTurn(this);
}

void Stage::watch(KELRoundRectControl *control)
{
    if (!m_witnesses.contains(control))
        m_witnesses.insert(control, new Witness(this, control));
}

void Stage::setItem(int index, KELRoundRectControl *control)
{
    m_items.at(wrap(index, itemCount)) = control;
    watch(control);
}

QGraphicsScene *Stage::sceneOf(int index) const
{
    const QGraphicsView *const shown = view(index);
    return shown ? shown->scene() : nullptr;
}

void Stage::add(int index, KELRoundRectControl *control)
{
    QGraphicsScene *const scene = sceneOf(index);
    if (scene && control->scene() != scene)
        scene->addItem(control);
}

void Stage::makeView(int index)
{
    const int name = int(wrap(index, viewCount));
    QPointer<QGraphicsView> &place = m_views.at(std::size_t(name));
    if (place)
        return;
    switch (name) {
    case ContentView:
        place = new KELContentView(desk);
        break;
    case SideMenu:
        place = new KELSideMenu(desk);
        break;
    case WindowPanel:
        place = new KELNonModalDialog;
        break;
    case ChildPanel:
        place = new KELNonModalDialog(desk);
        break;
    case DialogView:
        dialog = new KELDialogBase;
        place = dialog->view();
        break;
    default:
        place = new PlainViewWidget(desk);
        place->setScene(m_scene);
        break;
    }
    if (name == SecondView)
        place->scale(0.5, 0.5);
    if (name != WindowPanel && name != DialogView)
        place->move(name == PlainView ? 0 : viewSize.width(), (name % 3) * viewSize.height() / 2);
    if (name == DialogView)
        dialog->show();
    else
        place->show();
}

void Stage::dropView(int index)
{
    const std::size_t name = wrap(index, viewCount);
    if (name == DialogView)
        delete dialog;
    else if (name != PlainView)
        delete m_views.at(name);
}

// Deleting in an order in which an application may do it: bindings first, the desk last.
void Stage::dropEverything()
{
    for (const QPointer<KELDataBind> &binding : bindings)
        delete binding;
    for (const QPointer<KELNonModalhelper> &helper : helpers)
        delete helper;
    for (int name = 1; name < viewCount; ++name)
        dropView(name);
    for (const QPointer<KELRoundRectControl> &control : m_items)
        delete control;
    for (const Group &group : groups)
        delete group.group;
    delete desk;
}

void Stage::finish()
{
    while (QApplication::activePopupWidget())
        QApplication::activePopupWidget()->close();
    hands.releaseAll();
    turn();
    if (m_failure.isEmpty())
        checkPaintingOf(this);
    dropEverything();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (qobject_cast<QMenu *>(window))
            window->deleteLater();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    turn();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (applicationFilterCount() != m_filtersBefore)
        fail(QStringLiteral("an event filter of the application is left"));
    if (!QApplication::topLevelWidgets().isEmpty())
        fail(QStringLiteral("a window is left"));
}

KELRadioBoxGroup *Stage::groupOf(const Stage *stage, int index)
{
    return stage->groups.at(wrap(index, groupCount)).group;
}

Stage::Group *Stage::groupOf(const KELRoundRectControl *box)
{
    for (Group &group : groups) {
        for (const QPointer<KELRadioBox> &member : group.boxes) {
            if (member && member == box)
                return &group;
        }
    }
    return nullptr;
}
