// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELROUNDRECTCONTROL_P_H
#define KELROUNDRECTCONTROL_P_H

#include "kelcaptioncache_p.h"
#include "kelpress_p.h"
#include "kelroundrectcontrol.h"

#include <QtCore/QPointer>
#include <QtWidgets/QMenu>

#include <memory>

class KELControlPrivate
{
public:
    explicit KELControlPrivate(KELRoundRectControl *control) : q(control) { }
    virtual ~KELControlPrivate();

    static KELControlPrivate *get(const KELRoundRectControl *control) { return control->d; }

    // What the base's initStyle() returns, and what it makes of a new record.
    static KELRoundRectControlStyle *newStyle();
    static void setDefaults(KELRoundRectControlStyle *style);

    // For the sceneEventFilter() of controls that take the presses on their children: true for any
    // button but the left one.
    static bool isEventOfOtherButton(QEvent *event);

    // The record's context menu; or null if it was deleted; the record's raw pointer cannot tell.
    QMenu *liveContextMenu();
    // Runs it, unless it is open already. The control may be gone afterwards.
    void openContextMenu(const QPoint &pos);
    // Starts tracking the record's context menu, so that the field is cleared when the menu dies.
    void trackContextMenu()
    {
        const QMenu *const menu = q->style()->contextMenu;
        if (menu && (!trackedMenu || trackedMenu->address != menu || !trackedMenu->menu))
            findContextMenu();
    }

    // All of the base's paint() but the state of the painter.
    void drawContents(QPainter *painter, const KELRoundRectControlStyle &option);

    KELRoundRectControl *const q;
    KELPress press{q};
    KELCaptionCache caption;

private:
    Q_DISABLE_COPY(KELControlPrivate)

    struct TrackedMenu
    {
        TrackedMenu(const QMenu *menuAddress, QMenu *liveMenu) :
            address(menuAddress), menu(liveMenu)
        { }
        ~TrackedMenu() { QObject::disconnect(destroyed); }

        const QMenu *const address;
        QPointer<QMenu> menu;
        QMetaObject::Connection destroyed;
    };

    void findContextMenu();

    std::unique_ptr<TrackedMenu> trackedMenu; // once there was one
};

/*
 * The record that a class of the library made, with fields behind those of the base. A control
 * deletes its record as the base's type, which does not destroy those fields: the class resets them
 * before. A class that derives from it may have stored a record without them, of which nobody can
 * tell.
 */
template <class Style>
class KELOwnStyle
{
public:
    // What the class passes to the constructor of the base.
    static Style *create(void (*setDefaults)(Style *))
    {
        auto *const style = new Style();
        KELControlPrivate::setDefaults(style);
        setDefaults(style);
        return style;
    }

    explicit KELOwnStyle(KELRoundRectControlStyle *created) : m_own(static_cast<Style *>(created))
    { }

    // Null when current is not the record that the class made.
    Style *get(const KELRoundRectControlStyle *current) const
    {
        return current == m_own ? m_own : nullptr;
    }

    // For initStyle(): carries the look of the current record over and deletes it.
    Style *replace(KELRoundRectControlStyle *current, void (*setDefaults)(Style *))
    {
        auto *const style = new Style();
        current->copy(style);
        if (current == m_own)
            delete m_own;
        else
            delete current;
        m_own = style;
        setDefaults(style);
        return style;
    }

private:
    Style *m_own;
};

#endif
