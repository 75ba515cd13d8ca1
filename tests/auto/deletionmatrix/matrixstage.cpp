// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "matrixstage.h"

#include "controlclasses.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaProperty>
#include <QtCore/QTimer>
#include <QtWidgets/QAction>
#include <QtWidgets/QMenu>

namespace {

constexpr QSize viewSize(200, 150);

bool isOfTheLibrary(const QObject *object)
{
    return QByteArray(object->metaObject()->className()).startsWith("KEL");
}

template <class Control>
Control *addAt(const QRectF &rect, MatrixStage *stage, const char *name,
               QGraphicsObject *parent = nullptr)
{
    Control *const control = stage->add(name, new Own<Control>(parent));
    control->setboundRect(rect);
    return control;
}

// Makes them those that the actions use.
void setView(MatrixStage *stage, QGraphicsView *view, KELRoundRectControl *subject)
{
    stage->view = view;
    stage->scene = view->scene();
    stage->subject = subject;
}

void addViewAndScene(MatrixStage *stage)
{
    auto *const scene = stage->add("scene", new Own<QGraphicsScene>);
    auto *const view = stage->add("view", new Own<QGraphicsView>(stage->desk));
    scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    scene->setSceneRect(QRectF(QPointF(), viewSize));
    view->setFrameShape(QFrame::NoFrame);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setScene(scene);
    view->resize(viewSize);
    view->show();
    setView(stage, view, nullptr);
}

// The control on a wrapper, above a button and beside another one.
void addControl(MatrixStage *stage, KELRoundRectControl *control)
{
    addViewAndScene(stage);
    stage->scene->addItem(addAt<KELPushButton>({50, 30, 100, 60}, stage, "button below"));
    stage->scene->addItem(addAt<KELPushButton>({140, 40, 50, 40}, stage, "neighbour"));
    auto *const wrapper = stage->add("wrapper", new Own<PlainItem>);
    stage->scene->addItem(wrapper);
    stage->scene->addItem(stage->add("other wrapper", new Own<PlainItem>));

    stage->subject = stage->add("control", control);
    control->setAcceptHoverEvents(true);
    control->setAcceptTouchEvents(true);
    control->setboundRect(60, 40, 80, 40);
    addAt<KELLabel>({0, 0, 10, 10}, stage, "label on it", control);
    control->setParentItem(wrapper);
    stage->addSpot("it", stage->view, control);
}

const QMetaProperty propertyWithNotify(const QObject *object)
{
    const QMetaObject *const meta = object->metaObject();
    for (int i = meta->propertyCount() - 1; i >= 0; --i) {
        if (meta->property(i).hasNotifySignal()
            && QByteArray(meta->property(i).enclosingMetaObject()->className()).startsWith("KEL"))
            return meta->property(i);
    }
    return {};
}

void bindToAModel(MatrixStage *stage, QObject *object)
{
    const QMetaProperty property = propertyWithNotify(object);
    if (!property.isValid())
        return;
    auto *const model = stage->add("model", new Own<Model>);
    auto *const holder = stage->add("holder", new Own<ConverterHolder>);
    holder->binding = stage->add("binding", new Own<KELDataBind>);
    holder->binding->setBind(object, property.name(), model, "number", KELDataBind::TwoWay, holder);
}

template <class Control>
Control *addSelectableControl(MatrixStage *stage)
{
    auto *const made = new Own<Control>;
    addControl(stage, made);
    made->setFlag(QGraphicsItem::ItemIsSelectable);
    return made;
}

template <class Control>
void buildControl(MatrixStage *stage)
{
    bindToAModel(stage, addSelectableControl<Control>(stage));
}

template <class Control>
void buildMovableControl(MatrixStage *stage)
{
    addSelectableControl<Control>(stage)->setFlag(QGraphicsItem::ItemIsMovable);
}

template <class Control>
void buildControlWithMenu(MatrixStage *stage)
{
    auto *const made = addSelectableControl<Control>(stage);
    const QPointer<QMenu> menu(stage->add("menu", new Own<QMenu>));
    const QPointer<QAction> action(stage->add("menu entry", menu->addAction(u"Stop"_s)));
    made->KELRoundRectControl::style()->contextMenu = menu;
    QObject::connect(menu, &QMenu::aboutToShow, stage->desk, [stage, menu, action] {
        QTimer::singleShot(0, stage->desk, [menu, action] {
            if (action)
                action->trigger();
            if (menu)
                menu->close();
        });
    });
}

void buildPlainBase(MatrixStage *stage)
{
    addControl(stage, new Own<KELRoundRectControl>);
}

void buildPart(MatrixStage *stage)
{
    auto *const label = new Own<KELLabel>;
    addControl(stage, label);
    auto *const button = addAt<KELPushButton>({0, 0, 160, 100}, stage, "button around it");
    stage->scene->addItem(button);
    label->setParentItem(button);
}

void addComboBox(MatrixStage *stage)
{
    auto *const box = new Own<KELComboBox>;
    addControl(stage, box);
    box->setboundRect(10, 10, 80, 20);
    for (const char *text : {"one", "two", "three"})
        box->addItem(QString::fromLatin1(text), QString());
    stage->spots.clear();
    stage->addSpot("the button", stage->view, buttonOf(box));
}

void buildComboBox(MatrixStage *stage)
{
    addComboBox(stage);
    stage->addSpot("the button below", stage->view, stage->find<KELPushButton>("button below"));
}

void buildOpenComboBox(MatrixStage *stage)
{
    addComboBox(stage);
    auto *const box = stage->find<KELComboBox>();
    box->setSelectIndex(0);
    Q_EMIT buttonOf(box)->mouseClicked();
    stage->addSpot("the second entry", stage->view, box->items().at(1));
    // Beside the list, on the button below all of it.
    stage->addSpot("the neighbour", stage->view, stage->find<KELPushButton>("neighbour"));
}

void buildRadioGroup(MatrixStage *stage)
{
    addControl(stage, new Own<KELRadioBox>);
    auto *const group = stage->add("group", new Own<KELRadioBoxGroup>);
    auto *const second = addAt<KELRadioBox>({0, 100, 40, 40}, stage, "second box");
    auto *const third = addAt<KELRadioBox>({60, 100, 40, 40}, stage, "third box");
    auto *const wrapper = stage->find<QGraphicsObject>("wrapper");
    second->setParentItem(wrapper);
    third->setParentItem(wrapper);
    group->addRadioBox(qobject_cast<KELRadioBox *>(stage->subject), 0);
    group->addRadioBox(second, 1);
    group->addRadioBox(third, 2);
    bindToAModel(stage, second);
    stage->addSpot("the second box", stage->view, second);
}

void buildNavigationTable(MatrixStage *stage)
{
    auto *const table = new Own<KELNavigationTable>;
    addControl(stage, table);
    table->style()->boundRect = QRectF(0, 0, 120, 120);
    static_cast<KELNavigationTableStyle *>(table->style())->tabHeight = 30;
    for (const char *name : {"first page", "second page", "third page"}) {
        auto *const page = stage->add(name, new Own<KELNavigationTableItem>);
        table->addItem(page);
        addAt<KELPushButton>({40, 20, 40, 40}, stage, "button on it", page);
    }
    stage->spots.clear();
    stage->addSpot("the page", stage->view, stage->find<KELPushButton>("button on it"));
    stage->spots.append({"the second tab", stage->view->viewport(), QPoint(60, 105)});
    stage->spots.append({"the first tab", stage->view->viewport(), QPoint(20, 105)});
}

void buildTwoTables(MatrixStage *stage)
{
    auto *const table = new Own<KELNavigationTable>;
    addControl(stage, table);
    table->style()->boundRect = QRectF(0, 0, 60, 120);
    auto *const other = stage->add("other table", new Own<KELNavigationTable>);
    other->style()->boundRect = QRectF(60, 0, 60, 120);
    stage->scene->addItem(other);
    auto *const page = stage->add("page of the other", new Own<KELNavigationTableItem>);
    addAt<KELPushButton>({0, 0, 40, 40}, stage, "button on it", page);
    other->addItem(page);
    other->addItem(stage->add("its second page", new Own<KELNavigationTableItem>));
    stage->spots.clear();
}

template <class View>
View *addContentView(MatrixStage *stage, const char *name, QWidget *parent)
{
    auto *const view = stage->add(name, new Own<View>(parent));
    stage->add("scene", view->scene());
    auto *const content = addAt<KELPushButton>({0, 0, 100, 60}, stage, "content");
    addAt<KELPushButton>({10, 10, 20, 20}, stage, "button on the content", content);
    view->setContent(content);
    view->show();
    return view;
}

void buildContentView(MatrixStage *stage)
{
    auto *const view = addContentView<KELContentView>(stage, "view", stage->desk);
    setView(stage, view, view->content());
    stage->scene->addItem(addAt<KELPushButton>({0, 60, 40, 30}, stage, "another item"));
    auto *const next = addAt<KELPushButton>({0, 0, 80, 50}, stage, "next content");
    addAt<KELPushButton>({0, 0, 20, 20}, stage, "button on the next", next);
    stage->addSpot("the content", view, view->content());
}

void buildSideMenu(MatrixStage *stage)
{
    auto *const menu = stage->add("side menu", new Own<KELSideMenu>(stage->desk));
    stage->add("scene", menu->scene());
    menu->setSpace(2);
    for (const char *name : {"first button", "second button"}) {
        auto *const button = stage->add(name, new Own<KELPushButton>);
        button->setboundRect(0, 0, 40, 40);
        menu->addItem(button);
    }
    menu->show();
    setView(stage, menu, stage->find<KELPushButton>());
    addAt<KELPushButton>({0, 0, 40, 60}, stage, "next button");
    stage->addSpot("the first button", menu, stage->subject);
}

QWidget *addRoom(MatrixStage *stage)
{
    auto *const room = stage->add("room", new Own<QWidget>(stage->desk));
    room->resize(viewSize);
    room->show();
    return room;
}

void buildHelper(MatrixStage *stage)
{
    QWidget *const room = addRoom(stage);
    auto *const panel = stage->add("panel", new Own<QWidget>(room));
    panel->setGeometry(10, 10, 50, 50);
    stage->add("panel's child", new Own<QWidget>(panel));
    panel->show();
    stage->add("helper", new Own<KELNonModalhelper>(panel));
    stage->spots.append({"the room", room, QPoint(150, 100)});
}

void buildPanels(MatrixStage *stage)
{
    QWidget *const room = addRoom(stage);
    auto *const panel = addContentView<KELNonModalDialog>(stage, "first panel", room);
    setView(stage, panel, panel->content());
    auto *const second = addContentView<KELNonModalDialog>(stage, "second panel", room);
    second->hide();
    stage->addSpot("the content", panel, panel->content());
    stage->spots.append({"the room", room, QPoint(190, 140)});
}

void buildTellingPanels(MatrixStage *stage)
{
    auto *const panel = addContentView<KELNonModalDialog>(stage, "first panel", stage->desk);
    setView(stage, panel, panel->content());
    addContentView<TellingPanel>(stage, "telling panel", stage->desk);
    addContentView<KELNonModalDialog>(stage, "third panel", stage->desk);
}

void buildDialog(MatrixStage *stage)
{
    auto *const dialog = stage->add("dialog", new Own<KELDialogBase>(stage->desk));
    dialog->setBackgroundPixmap(QPixmap(20, 20));
    auto *const view = stage->add("view", dialog->view());
    stage->add("scene", view->scene());
    auto *const button = addAt<KELPushButton>({20, 20, 60, 40}, stage, "button");
    view->scene()->addItem(button);
    const QList<QGraphicsItem *> items = view->scene()->items();
    for (QGraphicsItem *item : items) {
        if (item->type() == QGraphicsPixmapItem::Type)
            stage->add("label on the body", new Own<KELLabel>)->setParentItem(item);
    }
    dialog->show();
    setView(stage, view, button);
    stage->addSpot("the button", view, button);
}

void buildNotify(MatrixStage *stage)
{
    addControl(stage, new Own<KELPushButton>);
    for (const char *name : {"notifier", "second notifier"}) {
        auto *const notify = stage->add(
            name, new Own<KELApplicationNotify>(nullptr, QEvent::MouseButtonPress));
        qApp->installEventFilter(notify);
    }
    stage->add("target", new Own<QObject>);
}

void buildNotifyOfAScene(MatrixStage *stage)
{
    addControl(stage, new Own<KELPushButton>);
    auto *const notify = stage->add(
        "notifier", new Own<KELApplicationNotify>(nullptr, QEvent::GraphicsSceneMousePress));
    stage->scene->installEventFilter(notify);
    stage->add("target", new Own<QObject>);
}

void buildBinding(MatrixStage *stage)
{
    auto *const source = stage->add("source", new Own<Model>);
    auto *const destination = stage->add("destination", new Own<Model>);
    auto *const holder = stage->add("holder", new Own<ConverterHolder>);
    holder->binding = stage->add("binding", new Own<KELDataBind>);
    holder->binding->setBind(source, "number", destination, "number", KELDataBind::TwoWay, holder);
    auto *const third = stage->add("third model", new Own<Model>);
    stage->add("binding of the source",
               KELDataBind::bind(source, "number", third, "number", KELDataBind::TwoWay));
}

} // namespace

MatrixStage::~MatrixStage()
{
    for (int i = 0; i < m_objects.size(); ++i)
        delete m_objects.at(i).object;
}

void MatrixStage::addSpot(const char *name, QGraphicsView *shownIn, const QGraphicsItem *item)
{
    const QPointF centre = item->mapToScene(item->boundingRect().center());
    spots.append({name, shownIn->viewport(), shownIn->mapFromScene(centre)});
}

void MatrixStage::addObject(const QString &name, QObject *object)
{
    m_objects.append({name, object, object->metaObject()});
}

// Objects that the library has made are named by their class.
void MatrixStage::addFound(QObject *object)
{
    const QString className = QString::fromLatin1(object->metaObject()->className());
    int found = 1;
    for (const Entry &entry : qAsConst(m_objects)) {
        if (entry.object == object)
            return;
        if (entry.name.startsWith(className))
            ++found;
    }
    addObject(className + QLatin1Char(' ') + QString::number(found), object);
}

void MatrixStage::walkItem(const QGraphicsItem *item)
{
    const QList<QGraphicsItem *> children = item->childItems();
    for (QGraphicsItem *child : children) {
        if (child->toGraphicsObject())
            addFound(child->toGraphicsObject());
        else
            walkItem(child);
    }
}

void MatrixStage::walk()
{
    for (int i = 0; i < m_objects.size(); ++i) {
        QObject *const object = m_objects.at(i).object;
        const QObjectList children = object->children();
        for (QObject *child : children) {
            if (isOfTheLibrary(child))
                addFound(child);
        }
        if (const auto *item = qobject_cast<QGraphicsObject *>(object))
            walkItem(item);
        if (const auto *found = qobject_cast<QGraphicsScene *>(object)) {
            const QList<QGraphicsItem *> items = found->items(Qt::AscendingOrder);
            for (QGraphicsItem *item : items) {
                if (item->toGraphicsObject())
                    addFound(item->toGraphicsObject());
            }
        }
    }
}

QObject *MatrixStage::at(int index) const
{
    const Entry &entry = m_objects.at(index);
    QObject *const object = entry.object;
    // Once its own destructor has ended an object is one of a base class.
    if (!object || object->metaObject() != entry.meta || Dying::contains(object))
        return nullptr;
    // A view that dies has its own way to end its scene.
    if (qobject_cast<QGraphicsScene *>(object) && Dying::contains(object->parent()))
        return nullptr;
    return object;
}

KELPushButton *buttonOf(const KELComboBox *box)
{
    const QList<QGraphicsItem *> children = box->childItems();
    for (QGraphicsItem *child : children) {
        if (auto *const button = qobject_cast<KELPushButton *>(child->toGraphicsObject()))
            return button;
    }
    return nullptr;
}

const QVector<StageKind> &stageKinds()
{
    static const QVector<StageKind> special = {
        {"plain base", buildPlainBase},
        {"movable button", buildMovableControl<KELPushButton>},
        {"movable slider", buildMovableControl<KELSlideControl>},
        {"button with a menu", buildControlWithMenu<KELPushButton>},
        {"check box with a menu", buildControlWithMenu<KELCheckBox>},
        {"table with a menu", buildControlWithMenu<KELNavigationTable>},
        {"label on a button", buildPart},
        {"combo box", buildComboBox},
        {"open combo box", buildOpenComboBox},
        {"radio boxes in a group", buildRadioGroup},
        {"navigation table", buildNavigationTable},
        {"two tables", buildTwoTables},
        {"content view", buildContentView},
        {"side menu", buildSideMenu},
        {"helper", buildHelper},
        {"panels", buildPanels},
        {"telling panels", buildTellingPanels},
        {"dialog", buildDialog},
        {"notifiers of the application", buildNotify},
        {"notifier of a scene", buildNotifyOfAScene},
        {"bindings", buildBinding},
    };
    static const QVector<StageKind> kinds = [] {
        QVector<StageKind> all;
        forEachControl([&all](auto tag) {
            using Control = typename decltype(tag)::Type;
            // Empty ones do not bear the actions.
            if (std::is_same_v<Control, KELComboBox> || std::is_same_v<Control, KELNavigationTable>)
                return;
            all.append({Control::staticMetaObject.className(), buildControl<Control>});
        });
        return all + special;
    }();
    return kinds;
}
