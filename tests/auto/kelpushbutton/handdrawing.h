// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HANDDRAWING_H
#define HANDDRAWING_H

#include <kelpushbutton.h>

#include <QtCore/QStringList>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

#include <cmath>

// A push button drawn by hand, step by step. It shares no code with the
// library, so that a mistake there shows up as a difference.
class HandDrawing
{
public:
    // What the button should show: the fields that a state changed are already in look.
    KELPushButtonStyle look = KELPushButtonStyle();
    QString iconFamily;

    void draw(QPainter *painter) const
    {
        painter->setRenderHint(QPainter::Antialiasing, true);
        painter->setRenderHint(QPainter::TextAntialiasing, true);
        painter->setBrushOrigin(look.boundRect.topLeft());
        drawShape(painter);

        const bool hasCaptionPen = look.foregroundBrush.style() != Qt::NoBrush;
        if (!look.pixmap.isNull() && hasCaptionPen) {
            drawPixmap(painter, aboveTheStrip());
            drawStripCaption(painter);
        } else if (!look.pixmap.isNull()) {
            drawPixmap(painter, look.boundRect);
        } else if (!look.icon.isNull() && !look.text.isEmpty()) {
            drawGlyph(painter, aboveTheStrip());
            drawStripCaption(painter);
        } else if (!look.icon.isNull()) {
            const QRectF &r = look.boundRect;
            const QMarginsF &m = look.iconMargins;
            drawGlyph(painter,
                      QRectF(r.x() + m.left(), r.y() + m.top(), r.width() - m.right() - m.left(),
                             r.height() - m.bottom() - m.top()));
        } else if (hasCaptionPen) {
            const QRectF &r = look.boundRect;
            const QMarginsF &m = look.margins;
            const QRectF content(r.x() + m.left(), r.y() + m.top(),
                                 r.width() - m.right() - m.left(),
                                 r.height() - m.bottom() - m.top());
            drawCaption(painter, content, look.trimText ? elided(int(content.width())) : look.text);
        }
    }

    float stripHeight() const
    {
        const double height = QFontMetrics(look.font).height();
        return float(height + look.margins.top() + (look.margins.top() + look.margins.bottom()));
    }

private:
    static QPen roundedPen(const QBrush &brush, qreal width)
    {
        QPen pen(brush, width);
        pen.setStyle(Qt::SolidLine);
        pen.setCapStyle(Qt::SquareCap);
        pen.setJoinStyle(Qt::BevelJoin);
        return pen;
    }

    void drawShape(QPainter *painter) const
    {
        const bool isFilled = look.backgroundBrush.style() != Qt::NoBrush;
        const bool isOutlined = look.borderBrush.style() != Qt::NoBrush && look.borderWidth > 0.0F;
        painter->setPen(Qt::NoPen);
        painter->setBrush(isFilled ? look.backgroundBrush : QBrush(Qt::NoBrush));
        if (!isOutlined && !isFilled)
            return;
        QRectF shape = look.boundRect;
        if (isOutlined) {
            painter->setPen(roundedPen(look.borderBrush, double(look.borderWidth)));
            const double half = double(look.borderWidth * 0.5F);
            shape.adjust(half, half, -half, -half);
        }
        painter->drawRoundedRect(shape, look.xRadius, look.yRadius, Qt::AbsoluteSize);
    }

    QRectF aboveTheStrip() const
    {
        const QRectF &r = look.boundRect;
        const QMarginsF &m = look.iconMargins;
        return QRectF(r.x() + m.left(), r.y() + m.top(), r.width() - m.right() - m.left(),
                      r.height() - double(stripHeight()) - m.bottom() - m.top());
    }

    // Halves go upwards.
    static int nearest(double value) { return int(std::floor(value + 0.5)); }

    void drawPixmap(QPainter *painter, const QRectF &r) const
    {
        painter->drawPixmap(nearest(r.x()), nearest(r.y()), nearest(r.width()), nearest(r.height()),
                            look.pixmap);
    }

    void drawGlyph(QPainter *painter, const QRectF &r) const
    {
        QFont font(iconFamily);
        font.setPixelSize(look.iconSize);
        painter->setPen(roundedPen(look.foregroundBrush, 1));
        painter->setFont(font);
        painter->drawText(r, look.textFlags, QString(1, look.icon.getIcon()));
    }

    void drawStripCaption(QPainter *painter) const
    {
        const QRectF &r = look.boundRect;
        const QMarginsF &m = look.margins;
        const double strip = double(stripHeight());
        drawCaption(painter,
                    QRectF(r.x() + m.left(), r.y() + r.height() - strip + m.top(),
                           r.width() - m.right() - m.left(), strip - m.top() - m.bottom()),
                    elided(int(r.width())));
    }

    void drawCaption(QPainter *painter, const QRectF &r, const QString &caption) const
    {
        painter->setFont(look.font);
        painter->setPen(roundedPen(look.foregroundBrush, 1));
        painter->drawText(r, look.textFlags, caption);
    }

    QString elided(int width) const
    {
        QString result;
        const QFontMetrics metrics(look.font);
        for (const QString &line : look.text.split(QLatin1Char('\n'))) {
            if (line.isEmpty())
                continue;
            if (!result.isEmpty())
                result += QLatin1Char('\n');
            result += metrics.elidedText(line, Qt::ElideRight, width, Qt::TextShowMnemonic);
        }
        return result;
    }
};

#endif
