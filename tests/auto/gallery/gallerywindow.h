// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef GALLERYWINDOW_H
#define GALLERYWINDOW_H

#include "eventlog.h"
#include "hand.h"
#include "homepage.h"
#include "iconset.h"
#include "pageregistry.h"
#include "scrollarea.h"
#include "window.h"

#include <KELList>
#include <QtCore/QBuffer>

// The items of the view and of the views inside it.
inline QList<QGraphicsItem *> itemsOf(const QGraphicsView &view)
{
    QList<QGraphicsItem *> items = view.scene()->items();
    const auto inner = view.findChildren<QGraphicsView *>();
    for (const QGraphicsView *child : inner)
        items += child->scene()->items();
    return items;
}

template <typename Type>
Type *findIn(const QGraphicsView &view, const QString &name)
{
    const QList<QGraphicsItem *> items = itemsOf(view);
    for (QGraphicsItem *item : items) {
        auto *found = dynamic_cast<Type *>(item);
        if (found && found->objectName() == name)
            return found;
    }
    return nullptr;
}

// Outlives the window that logs into it.
struct GalleryLog
{
    GalleryLog() : log(&file) { file.open(QIODevice::WriteOnly); }

    QBuffer file;
    EventLog log;
};

// The gallery in the process of the test, shown with a page.
class GalleryWindow : private GalleryLog, public Window
{
public:
    GalleryWindow(const IconSet &icons, const QString &page, const QSize &size = QSize(800, 480)) :
        Window(size, &log, &icons)
    {
        showPage(galleryPageIndex(page));
        show();
        if (!QTest::qWaitForWindowExposed(this))
            qFatal("the window has not been exposed");
    }

    // With a finger, the middle of a control, which is scrolled to.
    void tap(const QString &name)
    {
        reveal(name);
        tapAt(geometryOf(name).center());
    }
    // Scrolls the page until the control is in the middle of it.
    void reveal(const QString &name)
    {
        const auto *control = find<QGraphicsObject>(name);
        for (QGraphicsItem *item = control ? control->parentItem() : nullptr; item;
             item = item->parentItem()) {
            if (auto *area = dynamic_cast<ScrollArea *>(item)) {
                const QRectF place = control->mapRectToItem(area, control->boundingRect());
                area->setPosition(area->position() + place.center().y()
                                  - area->size().height() / 2);
            }
        }
    }
    void tapAt(const QPoint &pos) { m_hand.tap(pos); }
    // Of the list of pages.
    void tapRow(int row)
    {
        const auto *list = find<KELList>("pages");
        tapAt(mapFromScene(list->mapToScene(list->rowRect(row).center())));
        QCoreApplication::processEvents(); // the direction comes later
    }
    void click(const QPoint &pos)
    {
        QTest::mouseClick(viewport(), Qt::LeftButton, Qt::NoModifier, pos);
    }
    void click(const QString &name)
    {
        reveal(name);
        click(geometryOf(name).center());
    }
    void go(const QString &page) { showPage(galleryPageIndex(page)); }
    void resizeTo(const QSize &newSize)
    {
        resize(newSize);
        QCoreApplication::processEvents();
    }
    void turnUpright() { resizeTo(QSize(480, 800)); }

    template <typename Type>
    Type *find(const QString &name) const
    {
        return findIn<Type>(*this, name);
    }

    const EventLog &eventLog() const { return log; }
    // The lines without their time. A finger may count as hovering, too.
    QStringList gestures() const
    {
        QStringList found;
        const QStringList logged = QString::fromUtf8(file.data()).split('\n', Qt::SkipEmptyParts);
        for (const QString &line : logged) {
            if (!line.endsWith(u"mouseEnter"_s) && !line.endsWith(u"mouseLeave"_s))
                found.append(line.section(' ', 1));
        }
        return found;
    }

private:
    Q_DISABLE_COPY(GalleryWindow)

    Hand m_hand{viewport(), Input::Touch};
};

// The sizes that the pages are laid out for.
inline void addSizes()
{
    QTest::addColumn<QSize>("size");
    for (const QSize &size : {QSize(480, 272), QSize(480, 800), QSize(800, 480), QSize(1280, 800)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

#endif
