// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CAPTIONSCENE_H
#define CAPTIONSCENE_H

#include <QtCore/QMarginsF>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtGui/QImage>

#include <functional>

class KELLabel;

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

// Everything that a caption may depend on.
struct CaptionScene
{
    QString text = QStringLiteral("A caption & more");
    QFont font = QFont(QStringLiteral("DejaVu Sans"), 11);
    QRectF rect = QRectF(7, 5, 120, 40);
    QMarginsF margins = QMarginsF(2, 1, 4, 3);
    int flags = Qt::AlignCenter | Qt::TextWordWrap;
    bool trimText = true;
    QBrush brush = QColor(20, 30, 160);
    QFont painterFont = QFont(QStringLiteral("DejaVu Serif"), 15);
    Qt::LayoutDirection direction = Qt::LayoutDirectionAuto;
    int dotsPerInch = 96;
    qreal scale = 1;
    qreal angle = 0;
    QSize pictureSize = QSize(300, 200);
};

QImage picture(const CaptionScene &scene, const std::function<void(QPainter *)> &draw);

// The lines of text, elided one by one, with the width in whole pixels.
QString elidedByHand(const QString &text, qreal width, const QFont &font);

// The caption in the scene: by hand, and by a label to which the scene was applied.
QImage drawnByHand(const CaptionScene &scene);
void apply(const CaptionScene &scene, KELLabel *label);
QImage painted(const CaptionScene &scene, KELLabel *label);

#endif
