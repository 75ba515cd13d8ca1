// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CONTENTVIEWPAGE_H
#define CONTENTVIEWPAGE_H

#include "page.h"

#include <QtCore/QPointer>

class KELContentView;
class KELPushButton;

// KELContentView: a second view, as a child widget above this page.
class ContentViewPage : public Page
{
    Q_OBJECT

public:
    ContentViewPage(const PageHost &host, const QRectF &area);
    ~ContentViewPage() override;

    void attached() override;

private:
    Q_DISABLE_COPY(ContentViewPage)

    KELPushButton *addCycle(const QRectF &rect, const QString &key, int choices);
    void refresh();
    QSizeF contentSize(const QSizeF &room) const;
    KELRoundRectControl *makeContent(const QSizeF &size) const;

    KELRoundRectControl *m_frame;
    KELPushButton *m_contentButton;
    KELPushButton *m_sizeButton;
    KELPushButton *m_enabledButton;
    QPointer<KELContentView> m_embedded;
};

#endif
