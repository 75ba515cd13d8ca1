// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef TEXTPIXMAPPAGE_H
#define TEXTPIXMAPPAGE_H

#include "page.h"

#include <QtCore/QVector>

class KELPushButton;

// KELTextPixmap: captions as pictures.
class TextPixmapPage : public Page
{
    Q_OBJECT

public:
    TextPixmapPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(TextPixmapPage)

    void addSample(const QRectF &cell, const QString &caption);
    void refresh();

    QVector<KELRoundRectControl *> m_samples;
    KELPushButton *m_sizeButton;
};

#endif
