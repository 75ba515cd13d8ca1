// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef TITLEBUTTON_H
#define TITLEBUTTON_H

#include <KELPart>

class KELScreen;

// The title of a page, which leads back to the page below it, if there is one.
class TitleButton : public KELPart
{
    Q_OBJECT

public:
    explicit TitleButton(const QString &title, const QFont &font);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

protected:
    bool pressEvent(const QPointF &pos) override;
    void releaseEvent(const QPointF &pos, bool isTap) override;
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;

private:
    Q_DISABLE_COPY(TitleButton)
    KELScreen *screenBelow() const;

    const QString m_title;
};

#endif
