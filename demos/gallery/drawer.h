// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef DRAWER_H
#define DRAWER_H

#include <KELRoundRectControl>
#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QPlainTextEdit;
class QWidget;
QT_END_NAMESPACE
class KELPushButton;

/*
 * A card over the lower part of a page, with text that a finger scrolls: the log, or the source of
 * a sample. It is closed at first.
 */
class Drawer : public KELRoundRectControl
{
    Q_OBJECT

public:
    // viewport is where the text is; it outlives the drawer.
    Drawer(QWidget *viewport, const QRectF &rect, const QString &title, QGraphicsObject *parent);
    ~Drawer() override;

    void setText(const QString &text);
    // Shows the end of the text, as it grows.
    void append(const QString &line);
    KELPushButton *addButton(const QString &text, const QString &name);

    void setOpen(bool open);
    bool isOpen() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void closed();

private:
    Q_DISABLE_COPY(Drawer)

    QPointer<QPlainTextEdit> m_text;
    QElapsedTimer m_clock;
    qreal m_buttonRight;
};

#endif
