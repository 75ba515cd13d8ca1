// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PAGEREGISTRY_H
#define PAGEREGISTRY_H

#include <QtCore/QRectF>
#include <QtCore/QString>

#include <vector>

class KELPage;
class Page;
struct PageHost;

// A finished screen, or the page of a control.
struct PageEntry
{
    const char *name; // for the command line
    const char *title;
    ushort icon;
    KELPage *(*createScreen)(const PageHost &host); // null for the page of a control
    Page *(*create)(const PageHost &host, const QRectF &area);
};

// The finished screens come first.
const std::vector<PageEntry> &galleryPages();

// The index of the page called name, or -1.
int galleryPageIndex(const QString &name);

// A new page that shows the entry.
KELPage *newGalleryPage(const PageHost &host, const PageEntry &entry);

#endif
