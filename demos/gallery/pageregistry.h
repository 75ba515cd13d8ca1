// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PAGEREGISTRY_H
#define PAGEREGISTRY_H

#include <QtCore/QRectF>
#include <QtCore/QString>

#include <vector>

class Page;
struct PageHost;

struct PageEntry
{
    const char *name; // for the command line
    const char *title; // for the navigation
    ushort icon;
    Page *(*create)(const PageHost &host, const QRectF &area);
};

const std::vector<PageEntry> &galleryPages();

// The index of the page called name, or -1.
int galleryPageIndex(const QString &name);

#endif
