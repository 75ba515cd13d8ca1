// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "window.h"

#include "logstrip.h"
#include "navigation.h"
#include "pageregistry.h"
#include "theme.h"

#include <QtGui/QPixmapCache>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QShortcut>

namespace {

// The layout is made for a short side of this many pixels, and scaled outside that range.
constexpr qreal minShortSidePx = 480;
constexpr qreal maxShortSidePx = 800;

constexpr qreal columnWidthPx = 152;
constexpr qreal rowHeightPx = 72;
constexpr qreal logHeightPx = 96;
constexpr int bytesPerPixel = 4;

qreal scaleFor(const QSize &size)
{
    const qreal shortSide = qMin(size.width(), size.height());
    return shortSide / qBound(minShortSidePx, shortSide, maxShortSidePx);
}

const QGraphicsItem *visibleItem(const QGraphicsView &view, const QString &name)
{
    const QList<QGraphicsItem *> items = view.scene()->items();
    for (const QGraphicsItem *item : items) {
        const QGraphicsObject *object = item->toGraphicsObject();
        if (object && object->objectName() == name && item->isVisible())
            return item;
    }
    return nullptr;
}

} // namespace

Window::Window(const QSize &size, EventLog *log, const IconSet *icons, int page) :
    m_host{this, log, icons, &m_memory}, m_page(page)
{
    // A desktop may give the window a frame; without a window manager nothing changes.
    setWindowFlags(Qt::Window);
    setWindowTitle(QStringLiteral("KELGdiControl Gallery"));
    setFrameShape(NoFrame);
    connect(new QShortcut(QKeySequence::Quit, this), &QShortcut::activated, this, &QWidget::close);
    resize(size);
    build();
}

Window::~Window()
{
    // Before the widgets below this one: controls point to menus, and pages to embedded views.
    delete content();
}

void Window::showPage(int page)
{
    m_page = page;
    delete m_shownPage;
    Page *shown = galleryPages().at(size_t(page)).create(m_host, m_pageArea);
    m_shownPage = shown;
    shown->setParentItem(m_stage);
    m_navigation->setCurrent(page);
    shown->attached();
    viewport()->update();
}

QRect Window::geometryOf(const QString &name) const
{
    if (const QGraphicsItem *item = visibleItem(*this, name))
        return mapFromScene(item->sceneBoundingRect()).boundingRect();
    const auto views = findChildren<QGraphicsView *>();
    for (const QGraphicsView *view : views) {
        // Not with mapFromScene(): a view that is not shown yet has no layout.
        if (const QGraphicsItem *item = visibleItem(*view, name)) {
            return view->transform()
                .mapRect(item->sceneBoundingRect())
                .toRect()
                .translated(mapFromGlobal(view->mapToGlobal(QPoint())));
        }
    }
    return QRect();
}

void Window::resizeEvent(QResizeEvent *event)
{
    KELContentView::resizeEvent(event);
    // Fitting leaves an empty frame of 2 px and blurs what is drawn to whole pixels.
    resetTransform();
    if (m_stage && size() != m_builtSize)
        build();
}

void Window::build()
{
    m_builtSize = size();
    // Room for a few layers of controls over the whole window.
    QPixmapCache::setCacheLimit(
        qMax(10240, 4 * m_builtSize.width() * m_builtSize.height() * bytesPerPixel / 1024));

    auto *root = new KELRoundRectControl;
    root->setboundRect(QRectF(QPointF(), m_builtSize));
    root->setCacheMode(
        QGraphicsItem::NoCache); // a plain colour is painted faster than it is copied
    root->setAcceptedMouseButtons(Qt::NoButton);
    root->style()->backgroundBrush = QColor(Theme::canvas);
    root->style()->borderBrush = QBrush(Qt::NoBrush);

    const qreal scale = scaleFor(m_builtSize);
    m_stage = new KELRoundRectControl(root);
    m_stage->setboundRect(QRectF(QPointF(), QSizeF(m_builtSize) / scale));
    m_stage->setCacheMode(QGraphicsItem::NoCache);
    m_stage->setAcceptedMouseButtons(Qt::NoButton);
    m_stage->setScale(scale);
    m_stage->style()->backgroundBrush = QBrush(Qt::NoBrush);
    m_stage->style()->borderBrush = QBrush(Qt::NoBrush);
    fillStage();
    setContent(root);
    scene()->setSceneRect(root->boundingRect());
    resetTransform();
    showPage(m_page);
}

void Window::fillStage()
{
    const QSizeF size = m_stage->rect().size();
    QRectF bar;
    QRectF log;
    if (size.width() < size.height()) {
        bar = QRectF(0, size.height() - rowHeightPx, size.width(), rowHeightPx);
        log = QRectF(0, bar.top() - logHeightPx, size.width(), logHeightPx);
        m_pageArea = QRectF(0, 0, size.width(), log.top());
    } else {
        bar = QRectF(0, 0, columnWidthPx, size.height());
        log = QRectF(bar.right(), size.height() - logHeightPx, size.width() - bar.right(),
                     logHeightPx);
        m_pageArea = QRectF(bar.right(), 0, log.width(), log.top());
    }
    new LogStrip(m_host.log, log, m_stage);
    m_navigation = new Navigation(m_host.icons, galleryPages(), bar, m_stage, this);
    connect(m_navigation, &Navigation::chosen, this, &Window::showPage);
}
