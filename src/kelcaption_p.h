// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELCAPTION_P_H
#define KELCAPTION_P_H

#include <QtCore/QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QPainter;
class QRectF;
QT_END_NAMESPACE

struct KELRoundRectControlStyle;

/*
 * What is worth keeping of a control's caption from one paint to the next: the elided text and, once the same
 * caption is drawn a second time, its layout. Nobody sees it: a kept thing is used only when all that it was
 * made from is the same.
 */
class KELCaption
{
public:
    KELCaption();
    ~KELCaption();

    // As QPainter::drawText(), with the painter's pen and font.
    void draw(QPainter *painter, const QRectF &rect, int flags, const QString &text);

    // The same with the record's caption, after KELRoundRectControlStyle::getTrimmingText() in its font.
    void drawTrimmed(QPainter *painter, const QRectF &rect, const KELRoundRectControlStyle &option,
                     qreal width);

private:
    Q_DISABLE_COPY(KELCaption)

    struct Kept;

    bool isTrimmed(const KELRoundRectControlStyle &option, qreal width) const;
    void keepTrimmed(const KELRoundRectControlStyle &option, qreal width, const QString &text);
    bool drawWhole(QPainter *painter, const QRectF &rect, const KELRoundRectControlStyle &option,
                   qreal width);

    std::unique_ptr<Kept> m_kept; // once there was something to draw
};

#endif
