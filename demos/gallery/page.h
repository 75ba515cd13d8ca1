// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PAGE_H
#define PAGE_H

#include <KELRoundRectControl>
#include <QtCore/QHash>
#include <QtCore/QPointer>

class EventLog;
class IconSet;
class KELTheme;
class Window;

// What a page may use of the gallery around it. Everything outlives the page.
struct PageHost
{
    Window *view;
    KELTheme *theme;
    EventLog *log;
    const IconSet *icons;
    QHash<QString, int> *memory; // what pages remember while they are not shown
};

/*
 * What a page shows of a control: one line about it, and the room below.
 *
 * It is made anew whenever the page comes up, or changes its size or its look, so all of its layout
 * happens in the constructor. A new one is a .h/.cpp pair and one line each in CMakeLists.txt and
 * pageregistry.cpp.
 */
class Page : public KELRoundRectControl
{
    Q_OBJECT

public:
    Page(const PageHost &host, const QRectF &area, const QString &title, const QString &about);

    // Called once, after the page came into the view's scene.
    virtual void attached();

protected:
    // The room below that line, relative to the page.
    QRectF body() const;

    // Whether that is high enough to stack what is side by side otherwise.
    bool isUpright() const;

    // A number kept under key for the next time this page is made; initial the first time.
    int &remembered(const QString &key, int initial = 0) const;

    const PageHost host;

private:
    Q_DISABLE_COPY(Page)

    const QString m_title;
};

#endif
