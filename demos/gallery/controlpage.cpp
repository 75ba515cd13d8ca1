// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controlpage.h"

#include "drawer.h"
#include "eventlog.h"
#include "parts.h"
#include "screens/screenkit.h"
#include "screens/titlebutton.h"
#include "window.h"

#include <KELLayout>
#include <QtCore/QFile>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QGraphicsLinearLayout>

namespace {

constexpr qreal titlePx = 56;
constexpr qreal drawerShare = 0.55;
constexpr qreal tallestDrawerPx = 320;
constexpr int loggedLines = 64;

enum DrawerKind { NoDrawer, LogDrawer, CodeDrawer };

// Without the lines about its licence.
QString sourceOf(const char *page)
{
    QFile file(QStringLiteral(":/code/%1.cpp").arg(QLatin1String(page)));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    const QString text = QString::fromUtf8(file.readAll());
    return text.mid(text.indexOf(QLatin1String("\n\n")) + 2);
}

} // namespace

ControlPage::ControlPage(const PageHost &host, const PageEntry &entry) :
    FinishedScreen(host.theme), m_host(host), m_entry(entry)
{
    connect(host.log, &EventLog::added, this, [this](const QString &line) {
        if (m_log)
            m_log->append(line);
    });
}

ControlPage::~ControlPage()
{
    // What a page shows beside its items, views and dialogs, goes before they do.
    delete m_page;
}

void ControlPage::build(QGraphicsWidget *content)
{
    delete m_page;
    Theme::follow(*m_host.theme);
    addTitle(content);
    const QRectF area(0, titlePx, content->size().width(), content->size().height() - titlePx);
    m_page = m_entry.create(m_host, area);
    m_page->setParentItem(content);
    addDrawers(content);
    m_page->attached();
    showDrawer(openDrawer());
}

void ControlPage::addTitle(QGraphicsWidget *content)
{
    auto *bar = new QGraphicsWidget(content);
    bar->setGeometry(0, 0, content->size().width(), titlePx);
    auto *line = new QGraphicsLinearLayout(Qt::Horizontal, bar);
    const qreal edge = Theme::pageMargin;
    line->setContentsMargins(edge, Theme::gap / 2, edge, Theme::gap / 2);
    line->setSpacing(Theme::gap);
    auto *title = new TitleButton(QLatin1String(m_entry.title),
                                  Kit::font(Kit::titlePx, QFont::Medium));
    line->addItem(title);
    line->setStretchFactor(title, 1);
    if (!sourceOf(m_entry.name).isEmpty()) {
        KELLayout::add(line, addToggle(tr("Show code"), QStringLiteral("show-code"), CodeDrawer));
    }
    KELLayout::add(line, addToggle(tr("Signals"), QStringLiteral("show-log"), LogDrawer));
    line->activate();
}

KELPushButton *ControlPage::addToggle(const QString &text, const QString &name, int drawer)
{
    KELPushButton *button = Parts::addButton(nullptr, {0, 0, 104, Theme::touch}, text);
    button->setObjectName(name);
    connect(button, &KELPushButton::mouseClicked, this,
            [this, drawer] { showDrawer(openDrawer() == drawer ? NoDrawer : drawer); });
    return button;
}

void ControlPage::addDrawers(QGraphicsObject *parent)
{
    const qreal height = qMin(tallestDrawerPx, size().height() * drawerShare);
    const QRectF place(0, size().height() - height, size().width(), height);
    m_log = new Drawer(m_host.view->viewport(), place, tr("Signals, as they come"), parent);
    const QStringList lines = m_host.log->tail(loggedLines);
    for (const QString &line : lines)
        m_log->append(line);
    m_code = new Drawer(m_host.view->viewport(), place, tr("The sample"), parent);
    const QString source = sourceOf(m_entry.name);
    m_code->setText(source);
    KELPushButton *copy = m_code->addButton(tr("Copy"), QStringLiteral("copy-code"));
    connect(copy, &KELPushButton::mouseClicked, this,
            [source] { QGuiApplication::clipboard()->setText(source); });
    for (Drawer *drawer : {m_log, m_code})
        connect(drawer, &Drawer::closed, this, [this] { showDrawer(NoDrawer); });
}

void ControlPage::showDrawer(int drawer)
{
    openDrawer() = drawer;
    m_log->setOpen(drawer == LogDrawer);
    m_code->setOpen(drawer == CodeDrawer);
}

// Stays open from page to page.
int &ControlPage::openDrawer() const
{
    return (*m_host.memory)[QStringLiteral("drawer")];
}
