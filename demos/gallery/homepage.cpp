// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "homepage.h"

#include "iconset.h"
#include "pageregistry.h"
#include "screens/screenkit.h"
#include "window.h"

#include <KELList>
#include <QtCore/QCoreApplication>
#include <QtWidgets/QGraphicsLinearLayout>

namespace {

constexpr int pageRole = Qt::UserRole;
constexpr int lookRow = -1;
constexpr int languageRow = -2;

} // namespace

HomePage::HomePage(const PageHost &host) : FinishedScreen(host.theme), m_host(host) { }

int HomePage::rowsAbovePages()
{
    return Window::isTranslated() ? 2 : 1;
}

void HomePage::build(QGraphicsWidget *content)
{
    fill();
    QGraphicsLinearLayout *column = Kit::newColumn(content);
    Kit::addTitleLine(column, *theme(), tr("Gallery"), QStringLiteral("KELGdiControl"));
    auto *list = new KELList;
    list->setObjectName(QStringLiteral("pages"));
    list->setSectionsShown(true);
    list->setModel(&m_rows);
    column->addItem(list);
    column->activate();
    list->setPosition(m_position);
    connect(list, &KELList::positionChanged, this, [this, list] { m_position = list->position(); });
    connect(list, &KELList::clicked, this, &HomePage::choose);
}

void HomePage::fill()
{
    m_rows.clear();
    addRow(tr("Appearance"), tr("Look"), Icon::bulb, lookRow)
        ->setData(m_host.view->lookName(), KELList::ValueRole);
    if (Window::isTranslated())
        addRow(tr("Appearance"), tr("Language"), Icon::flag, languageRow)
            ->setData(m_host.view->languageName(), KELList::ValueRole);
    const std::vector<PageEntry> &pages = galleryPages();
    for (size_t i = 0; i < pages.size(); ++i) {
        const PageEntry &entry = pages[i];
        addRow(entry.createScreen ? tr("Screens") : tr("Controls"),
               entry.createScreen ? QCoreApplication::translate("Screens", entry.title)
                                  : QLatin1String(entry.title),
               entry.icon, int(i));
    }
}

QStandardItem *HomePage::addRow(const QString &section, const QString &caption, ushort icon,
                                int page)
{
    auto *row = new QStandardItem(caption);
    row->setData(section, KELList::SectionRole);
    row->setData(page, pageRole);
    row->setEditable(false);
    if (m_host.icons->has(icon))
        row->setData(QString(QChar(icon)), Qt::DecorationRole);
    m_rows.appendRow(row);
    return row;
}

void HomePage::choose(const QModelIndex &index)
{
    const int page = index.data(pageRole).toInt();
    if (page == lookRow)
        Q_EMIT nextLookAsked();
    else if (page == languageRow)
        Q_EMIT nextLanguageAsked();
    else
        Q_EMIT chosen(page);
}
