// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "contentstage.h"

#include <keldialogbase.h>
#include <kelnonmodaldialog.h>
#include <kelsidemenu.h>

#include <algorithm>
#include <iterator>
#include <memory>

namespace {

struct Overlay
{
    const char *name;
    std::function<QWidget *(QWidget *)> make;
    const QMetaObject &meta;
    const QMetaObject &base;
    int methods; // of its own
};

const std::vector<Overlay> overlays = {
    {"KELContentView", [](QWidget *parent) { return new KELContentView(parent); },
     KELContentView::staticMetaObject, QGraphicsView::staticMetaObject, 0},
    {"KELSideMenu", [](QWidget *parent) { return new KELSideMenu(parent); },
     KELSideMenu::staticMetaObject, QGraphicsView::staticMetaObject, 0},
    {"KELNonModalDialog", [](QWidget *parent) { return new KELNonModalDialog(parent); },
     KELNonModalDialog::staticMetaObject, KELContentView::staticMetaObject, 1},
    {"KELDialogBase", [](QWidget *parent) { return new KELDialogBase(parent); },
     KELDialogBase::staticMetaObject, QDialog::staticMetaObject, 0},
    {"KELDialogBase, short message",
     [](QWidget *parent) { return new KELDialogBase(u"text"_s, 1, parent); },
     KELDialogBase::staticMetaObject, QDialog::staticMetaObject, 0},
    {"KELDialogBase, long message",
     [](QWidget *parent) { return new KELDialogBase(u"text"_s, 3, parent); },
     KELDialogBase::staticMetaObject, QDialog::staticMetaObject, 0},
};

const Overlay &overlay()
{
    return overlays[fetch<size_t>("overlay")];
}

// The overlay itself, or the one in it.
QGraphicsView *viewIn(QWidget *widget)
{
    auto *const dialog = qobject_cast<KELDialogBase *>(widget);
    return dialog ? dialog->view() : qobject_cast<QGraphicsView *>(widget);
}

} // namespace

// What the views and the dialog share.
class tst_KELContentViewOverlays : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isSetUpAsAnOverlay_data()
    {
        addRows({{"overlay", namesOf(overlays)},
                 {"hasParent", {{"window", false}, {"child widget", true}}}});
    }

    void isSetUpAsAnOverlay()
    {
        const bool hasParent = fetch<bool>("hasParent");
        QWidget parent;
        const std::unique_ptr<QWidget> widget(overlay().make(hasParent ? &parent : nullptr));
        QCOMPARE(widget->parentWidget(), hasParent ? &parent : nullptr);
        QCOMPARE(widget->isWindow(), !hasParent);
        QCOMPARE(widget->windowFlags() & ~Qt::WindowFlags(Qt::Window), Qt::FramelessWindowHint);
        QCOMPARE(widget->isHidden(), !hasParent);
        QVERIFY(!widget->isModal());
        QCOMPARE(widget->styleSheet(), u"background: transparent;"_s);
        QVERIFY(widget->testAttribute(Qt::WA_TranslucentBackground));
        const QGraphicsView *view = viewIn(widget.get());
        QCOMPARE(view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    }

    void isTransparentBeforeItIsShown_data() { addRows({{"overlay", namesOf(overlays)}}); }

    void isTransparentBeforeItIsShown()
    {
        const std::unique_ptr<QWidget> widget(overlay().make(nullptr));
        QCOMPARE(widget->palette().color(QPalette::Window), QColor(Qt::transparent));
    }

    void ownsItsScene_data() { addRows({{"overlay", namesOf(overlays)}}); }

    void ownsItsScene()
    {
        std::unique_ptr<QWidget> widget(overlay().make(nullptr));
        const QGraphicsView *view = viewIn(widget.get());
        const QPointer<QGraphicsScene> scene(view->scene());
        QVERIFY(scene);
        QCOMPARE(scene->parent(), view);
        QCOMPARE(scene->views().size(), 1);
        QCOMPARE(scene->itemIndexMethod(), QGraphicsScene::NoIndex);
        // The dialog has its body.
        QCOMPARE(scene->items().size(), view == widget.get() ? 0 : 1);
        widget.reset();
        QVERIFY(!scene);
    }

    void declaresItsInterface_data() { addRows({{"overlay", namesOf(overlays)}}); }

    void declaresItsInterface()
    {
        const QMetaObject &meta = overlay().meta;
        QVERIFY(QByteArray(overlay().name).startsWith(meta.className()));
        QCOMPARE(meta.superClass(), &overlay().base);
        QCOMPARE(meta.methodCount(), meta.methodOffset() + overlay().methods);
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void panelDeclaresOneSignal()
    {
        const QMetaObject &meta = KELNonModalDialog::staticMetaObject;
        QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("disappeared()"));
        QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    }

    void itemsOfARectangleAreSorted_data() { addRows({{"overlay", namesOf(overlays)}}); }

    void itemsOfARectangleAreSorted()
    {
        const std::unique_ptr<QWidget> widget(overlay().make(nullptr));
        QGraphicsScene *scene = viewIn(widget.get())->scene();
        scene->clear();
        QList<QGraphicsItem *> items;
        for (const qreal z : {0.0, 5.0, -1.0, 0.0}) {
            KELRoundRectControl *control = newControl(60, 40);
            control->setZValue(z);
            scene->addItem(control);
            items.append(control);
        }
        // In the coordinates of its parent's rectangle.
        items.append(newControl(10, 10, static_cast<KELRoundRectControl *>(items.first())));

        const QList<QGraphicsItem *> sorted = {items.at(1), items.at(3), items.at(4), items.at(0),
                                               items.at(2)};
        QCOMPARE(scene->items(QRectF(0, 0, 200, 200)), sorted);
        QCOMPARE(scene->items(QPointF(15, 19)), sorted);
        QList<QGraphicsItem *> ascending;
        std::reverse_copy(sorted.cbegin(), sorted.cend(), std::back_inserter(ascending));
        QCOMPARE(scene->items(QRectF(0, 0, 200, 200), Qt::IntersectsItemShape, Qt::AscendingOrder),
                 ascending);
    }
};

KEL_TEST_MAIN(tst_KELContentViewOverlays)
#include "tst_kelcontentviewoverlays.moc"
