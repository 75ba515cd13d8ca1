// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef WINDOW_H
#define WINDOW_H

#include "page.h"

#include <KELContentView>
#include <QtCore/QHash>
#include <QtCore/QPointer>

class Navigation;

// The gallery: navigation, one page and the log, laid out for the window's size.
class Window : public KELContentView
{
    Q_OBJECT

public:
    Window(const QSize &size, EventLog *log, const IconSet *icons, int page);
    ~Window() override;

    void showPage(int page);

    // Where the control of that object name is, in window pixels; null when there is none. The
    // other views, menus, dialogs and panels, are searched, too, shown or not.
    QRect geometryOf(const QString &name) const;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    Q_DISABLE_COPY(Window)

    void build();
    void fillStage();

    QHash<QString, int> m_memory;
    const PageHost m_host;
    int m_page;
    QSize m_builtSize;
    QRectF m_pageArea;
    KELRoundRectControl *m_stage = nullptr; // scaled; the controls are on it
    Navigation *m_navigation = nullptr;
    QPointer<Page> m_shownPage;
};

#endif
