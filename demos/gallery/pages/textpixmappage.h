// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef TEXTPIXMAPPAGE_H
#define TEXTPIXMAPPAGE_H

#include "cardpage.h"

#include <QtCore/QVector>

class KELPushButton;

// KELTextPixmap: captions drawn into pictures, in several sizes.
class TextPixmapPage : public CardPage
{
    Q_OBJECT

public:
    TextPixmapPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(TextPixmapPage)

    void refresh();

    QVector<KELRoundRectControl *> m_samples;
    KELPushButton *m_sizeButton;
};

#endif
