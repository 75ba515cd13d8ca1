// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "textpixmappage.h"

#include "eventlog.h"
#include "parts.h"

#include <KELTextPixmap>
#include <QtGui/QLinearGradient>

namespace {

constexpr int fontSizesPx[] = {24, 32, 40, 16};
constexpr qreal captionPx = 20;
constexpr qreal minSampleWidthPx = 176;

QBrush rainbow(const QSize &size)
{
    QLinearGradient gradient(size.width() * 0.2, 0, size.width() * 0.8, 0);
    gradient.setColorAt(0, QColor(0xd6, 0x2e, 0x6c));
    gradient.setColorAt(0.5, QColor(0xe0, 0x7b, 0x1a));
    gradient.setColorAt(1, QColor(0x0b, 0x63, 0xce));
    return gradient;
}

struct Sample
{
    const char *caption;
    KELTextPixmap (*draw)(const QSize &size, const QFont &font);
};

const Sample samples[] = {
    {"Transparent",
     [](const QSize &size, const QFont &font) {
         return KELTextPixmap(QStringLiteral("Glass"), size, QColor(Theme::onAccent),
                              QBrush(Qt::NoBrush), font);
     }},
    {"Solid",
     [](const QSize &size, const QFont &font) {
         return KELTextPixmap(QStringLiteral("Solid"), size, QColor(Theme::onAccent),
                              QColor(Theme::leaf), font);
     }},
    {"Gradient text brush",
     [](const QSize &size, const QFont &font) {
         return KELTextPixmap(QStringLiteral("Rainbow"), size, rainbow(size), QColor(Theme::card),
                              font);
     }},
    {"Wrapped",
     [](const QSize &size, const QFont &font) {
         return KELTextPixmap(QStringLiteral("A caption of several words"), size,
                              QColor(Theme::ink), QColor(Theme::accentTint), font);
     }},
    {"Clipped",
     [](const QSize &size, const QFont &font) {
         return KELTextPixmap(QStringLiteral("Antidisestablishmentarianism"), size,
                              QColor(Theme::ink), QColor(0xfd, 0xec, 0xdc), font);
     }},
};

} // namespace

TextPixmapPage::TextPixmapPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Text pixmap"),
         QStringLiteral("Captions drawn into pictures, shown by base controls"))
{
    const QRectF room = body();
    const int count = int(std::size(samples));
    const int columns = Parts::fitting(room.width(), minSampleWidthPx, 3, Theme::pageMargin);
    const int rows = count / columns + 1;
    const QVector<QRectF> cells = Parts::grid(room, columns, rows, Theme::pageMargin);
    for (int i = 0; i < count; ++i)
        addSample(cells.at(i), QLatin1String(samples[i].caption));
    // The transparent picture lets this through.
    QLinearGradient backdrop(m_samples.first()->boundingRect().topLeft(),
                             m_samples.first()->boundingRect().bottomRight());
    backdrop.setColorAt(0, QColor(0x57, 0x8f, 0xf7));
    backdrop.setColorAt(1, QColor(0x9b, 0x51, 0xe0));
    m_samples.first()->style()->backgroundBrush = backdrop;

    const QRectF &last = cells.at(count);
    const qreal height = qMax(0.0, last.height() - captionPx);
    m_sizeButton = Parts::addButton(this, {last.x(), last.y(), last.width(), height}, QString());
    Parts::dressAsPrimary(m_sizeButton);
    m_sizeButton->setObjectName(QStringLiteral("font-size"));
    connect(m_sizeButton, &KELPushButton::mouseClicked, this, [this] {
        int &index = remembered(QStringLiteral("font"));
        index = (index + 1) % int(std::size(fontSizesPx));
        refresh();
        host.log->add(QStringLiteral("Text pixmap"), m_sizeButton->text());
    });
    refresh();
}

void TextPixmapPage::addSample(const QRectF &cell, const QString &caption)
{
    const qreal height = qMax(0.0, cell.height() - captionPx);
    KELRoundRectControl *sample = Parts::addCard(this, {cell.x(), cell.y(), cell.width(), height});
    sample->style()->xRadius = sample->style()->yRadius = 0;
    sample->style()->margins = QMarginsF(1, 1, 1, 1);
    Parts::addLabel(this, {cell.x(), cell.y() + height, cell.width(), captionPx}, caption,
                    Theme::font(Theme::smallPx), Theme::muted, Qt::AlignCenter);
    m_samples.append(sample);
}

void TextPixmapPage::refresh()
{
    const int fontPx = fontSizesPx[remembered(QStringLiteral("font"))];
    for (int i = 0; i < m_samples.size(); ++i) {
        KELRoundRectControl *sample = m_samples.at(i);
        const QSize size = (sample->rect().size() - QSizeF(2, 2)).toSize();
        sample->style()->pixmap = samples[i].draw(size, Theme::font(fontPx, true));
        sample->update();
    }
    m_sizeButton->setText(QStringLiteral("Font size: %1 px").arg(fontPx));
}
