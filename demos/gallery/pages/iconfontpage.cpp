// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "iconfontpage.h"

#include "eventlog.h"
#include "iconset.h"
#include "parts.h"

namespace {

constexpr qreal minCellWidthPx = 64;
constexpr qreal minCellHeightPx = 56;
constexpr int maxCells = 1000; // across and down
constexpr qreal turnWidthPx = 64;
constexpr qreal positionWidthPx = 96;

QString hex(ushort code)
{
    return QStringLiteral("%1").arg(code, 4, 16, QLatin1Char('0')).toUpper();
}

QString aboutFont(const IconSet &icons)
{
    return icons.isInstalled() ? icons.path() : QStringLiteral("No icon font is installed");
}

} // namespace

IconFontPage::IconFontPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Icon font"), aboutFont(*pageHost.icons))
{
    if (!host.icons->isInstalled()) {
        explainMissingFont();
        return;
    }
    m_codes = host.icons->codePoints();
    const QRectF room = body();
    addTurnButtons({room.x(), room.y(), room.width(), Theme::touch});
    addCells(room.adjusted(0, Theme::touch + Theme::gap, 0, 0));
    turnTo(remembered(QStringLiteral("code")) / m_cells.size());
}

void IconFontPage::explainMissingFont()
{
    KELRoundRectControl *card = Parts::addCard(this, body());
    card->style()->text = QStringLiteral(
        "The default icon font is missing.\n\nInstall the package fonts-font-awesome, "
        "or start the gallery with --icon-font and the path of a font file.");
    card->style()->trimText = false;
    card->style()->margins = QMarginsF(24, 24, 24, 24);
}

void IconFontPage::addTurnButtons(const QRectF &area)
{
    const qreal right = area.right();
    const auto addTurn = [this](const QRectF &rect, ushort icon, const QString &text, int step) {
        KELPushButton *button = Parts::addButton(this, rect, QString());
        button->setObjectName(step < 0 ? QStringLiteral("glyphs-back")
                                       : QStringLiteral("glyphs-forth"));
        button->style()->icon = host.icons->glyph(icon);
        if (button->style()->icon.isNull())
            button->style()->text = text;
        connect(button, &KELPushButton::mouseClicked, this,
                [this, step] { turnTo(m_first / m_cells.size() + step); });
        return button;
    };
    m_forth = addTurn({right - turnWidthPx, area.y(), turnWidthPx, area.height()}, Icon::right,
                      QStringLiteral(">"), 1);
    const qreal positionLeft = right - turnWidthPx - positionWidthPx;
    m_position = Parts::addLabel(this, {positionLeft, area.y(), positionWidthPx, area.height()},
                                 QString(), Theme::font(Theme::bodyPx), Theme::ink,
                                 Qt::AlignCenter);
    m_back = addTurn({positionLeft - turnWidthPx, area.y(), turnWidthPx, area.height()}, Icon::left,
                     QStringLiteral("<"), -1);
    Parts::addLabel(
        this,
        {area.x(), area.y(), m_back->style()->boundRect.x() - area.x() - Theme::gap, area.height()},
        QStringLiteral("%1\n%2 glyphs").arg(KELIconFont::fontFamily()).arg(m_codes.size()),
        Theme::font(Theme::bodyPx, true));
}

void IconFontPage::addCells(const QRectF &area)
{
    const int columns = Parts::fitting(area.width(), minCellWidthPx, maxCells);
    const int rows = Parts::fitting(area.height(), minCellHeightPx, maxCells);
    const QVector<QRectF> cells = Parts::grid(area, columns, rows);
    for (int i = 0; i < cells.size(); ++i) {
        KELPushButton *cell = Parts::addButton(this, cells.at(i), QString());
        auto *style = static_cast<KELPushButtonStyle *>(cell->style());
        style->font = Theme::font(Theme::smallPx);
        style->iconSize = 24;
        style->margins = QMarginsF(0, 1, 0, 2);
        style->iconMargins = QMarginsF(0, 6, 0, 0);
        connect(cell, &KELPushButton::mouseClicked, this, [this, i] {
            host.log->add(QStringLiteral("U+") + hex(m_codes.at(m_first + i)),
                          QStringLiteral("mouseClicked"));
        });
        m_cells.append(cell);
    }
}

void IconFontPage::turnTo(int leaf)
{
    const int leaves = qMax(1, (m_codes.size() + m_cells.size() - 1) / m_cells.size());
    const int shown = qBound(0, leaf, leaves - 1);
    m_first = shown * m_cells.size();
    remembered(QStringLiteral("code")) = m_first;
    for (int i = 0; i < m_cells.size(); ++i) {
        KELPushButton *cell = m_cells.at(i);
        const bool isUsed = m_first + i < m_codes.size();
        cell->setVisible(isUsed);
        if (!isUsed)
            continue;
        cell->style()->icon = KELIconFont(m_codes.at(m_first + i));
        cell->setText(hex(m_codes.at(m_first + i)));
    }
    m_position->setText(QStringLiteral("%1 / %2").arg(shown + 1).arg(leaves));
    m_back->setEnabled(shown > 0);
    m_forth->setEnabled(shown < leaves - 1);
}
