// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "picturebook.h"

#include <kelroundrectcontrol.h>

#include <QtCore/QDir>
#include <QtWidgets/QGraphicsSimpleTextItem>

namespace {

constexpr qreal widestCellPx = 560;
constexpr qreal twoColumnsFromPx = 800;
constexpr qreal namePx = 13;
constexpr qreal nameHeightPx = 20;
constexpr qreal gapPx = 16;

qreal edgeOf(const QSize &size)
{
    return qMin(size.width(), size.height()) < 300 ? 12 : 24;
}

int columnsOf(const QSize &size)
{
    return size.width() >= twoColumnsFromPx ? 2 : 1;
}

qreal cellWidthOf(const QSize &size)
{
    const int columns = columnsOf(size);
    return qMin(widestCellPx, (size.width() - 2 * edgeOf(size) - (columns - 1) * gapPx) / columns);
}

bool isPlain(const QImage &picture)
{
    const QRgb first = picture.pixel(0, 0);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != first)
                return false;
        }
    }
    return true;
}

} // namespace

QString Variant::name() const
{
    const char *const schemes[] = {"light", "dark", "contrast"};
    return QStringLiteral("%1-%2x%3-%4")
        .arg(QLatin1String(schemes[scheme]))
        .arg(size.width())
        .arg(size.height())
        .arg(QLatin1String(isMirrored ? "rtl" : "ltr"));
}

PictureBook::PictureBook(const Variant &newVariant, const QString &newFolder) :
    m_variant(newVariant), m_folder(newFolder)
{
    QGuiApplication::setLayoutDirection(m_variant.isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
    m_theme.applyTo(m_screen.scene());
    m_theme.setScheme(m_variant.scheme);
    m_screen.push(new KELPage);
    m_screen.resize(m_variant.size);
    m_screen.show();
    m_screen.activateWindow();
    if (!QTest::qWaitForWindowActive(&m_screen))
        m_faults += QStringLiteral("the screen is not active");
}

PictureBook::~PictureBook() = default;

void PictureBook::begin(const QString &sheet)
{
    m_sheet = sheet;
    m_pageNumber = 0;
    m_seen.clear();
    startPage();
}

void PictureBook::end()
{
    finishPage();
}

void PictureBook::add(const QString &state, QGraphicsWidget *part, const Act &act, qreal height)
{
    const qreal wanted = part->effectiveSizeHint(Qt::PreferredSize).height();
    const QRectF area = place(state, height > 0 ? height : wanted, act);
    part->setParentItem(m_page);
    part->setGeometry(area);
}

void PictureBook::add(const QString &state, KELRoundRectControl *control, const QSizeF &size,
                      const Act &act)
{
    QRectF area = place(state, size.height(), act);
    area.setWidth(qMin(size.width(), area.width()));
    control->setboundRect(area);
    control->setParentItem(m_page);
}

void PictureBook::addPage(const QString &state, QGraphicsWidget *part, const Act &act)
{
    finishPage();
    startPage();
    const qreal edge = edgeOf(m_variant.size);
    const QRectF area = QRectF(QPointF(), m_variant.size).adjusted(edge, edge, -edge, -edge);
    m_cells = {{state, area.toRect(), {}}};
    m_act = act;
    part->setParentItem(m_page);
    part->setGeometry(area);
}

void PictureBook::addPage(const QString &state, const Act &act)
{
    finishPage();
    startPage();
    m_cells = {{state, QRect(QPoint(), m_variant.size), {}}};
    m_act = act;
}

QPoint PictureBook::middleOf(const QGraphicsItem *item) const
{
    return item->mapToScene(item->boundingRect().center()).toPoint();
}

// Goes to the next column, or to the next page, if the cell has no room below the others.
QRectF PictureBook::place(const QString &state, qreal height, const Act &act)
{
    const qreal edge = edgeOf(m_variant.size);
    const qreal width = cellWidthOf(m_variant.size);
    const qreal bottom = m_variant.size.height() - edge;
    if (act && m_act) {
        finishPage();
        startPage();
    }
    if (m_next.y() + nameHeightPx + height > bottom && m_next.y() > edge)
        m_next = QPointF(m_next.x() + width + gapPx, edge);
    if (m_next.x() + width > m_variant.size.width()) {
        finishPage();
        startPage();
    }
    if (act)
        m_act = act;
    auto *const name = new QGraphicsSimpleTextItem(state, m_page);
    QFont font;
    font.setPixelSize(int(namePx));
    name->setFont(font);
    name->setBrush(m_theme.color(KELTheme::Muted));
    name->setPos(m_next);
    const QRectF area(m_next + QPointF(0, nameHeightPx), QSizeF(width, height));
    m_next.setY(area.bottom() + gapPx);
    m_cells.append({state, area.toRect(), {}});
    return area;
}

void PictureBook::startPage()
{
    m_page = new KELPage;
    m_screen.push(m_page);
    m_cells.clear();
    m_act = Act();
    m_next = QPointF(edgeOf(m_variant.size), edgeOf(m_variant.size));
}

// What is pressed is deleted, rather than tapped.
void PictureBook::finishPage()
{
    Hand hand(m_screen.viewport());
    if (!m_cells.isEmpty()) {
        QCoreApplication::processEvents();
        if (m_act)
            m_act(&hand);
        QCoreApplication::processEvents();
        look(m_screen.grab().toImage().convertToFormat(QImage::Format_RGB32));
    }
    delete m_page;
    QVector<QGraphicsItem *> opened;
    const QList<QGraphicsItem *> items = m_screen.scene()->items();
    for (QGraphicsItem *item : items) {
        if (!item->parentItem() && !qobject_cast<KELPage *>(item->toGraphicsObject()))
            opened.append(item);
    }
    qDeleteAll(opened);
    hand.release();
}

void PictureBook::look(const QImage &picture)
{
    ++m_pageNumber;
    ++m_pictureCount;
    const QString name
        = QStringLiteral("%1-%2-%3").arg(m_sheet, m_variant.name()).arg(m_pageNumber);
    if (!m_folder.isEmpty()) {
        const QString path = QDir(m_folder).filePath(name + QStringLiteral(".png"));
        if (!picture.save(path))
            m_faults += QStringLiteral("%1 cannot be written").arg(path);
    }
    for (Cell &cell : m_cells) {
        cell.picture = picture.copy(cell.area);
        const QString where = QStringLiteral("%1: '%2'").arg(name, cell.state);
        if (isPlain(cell.picture))
            m_faults += where + QStringLiteral(" is blank");
        for (const Cell &other : qAsConst(m_seen)) {
            if (other.picture == cell.picture)
                m_faults += where + QStringLiteral(" looks like '%1'").arg(other.state);
        }
        m_seen.append(cell);
    }
}
