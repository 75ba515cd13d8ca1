// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELOUTSIDEPRESS_P_H
#define KELOUTSIDEPRESS_P_H

#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QGraphicsItem;
class QPolygonF;
class QWidget;
QT_END_NAMESPACE

// While it exists: reports each press by mouse or touch that hits none of a control's items, on the
// bare scene, on another item, widget or window. A scene reports presses to its event filters only
// once an enabled item takes them; this filter of the application sees them all.
class KELOutsidePress : public QObject
{
public:
    class Client
    {
    public:
        // True when the pixel, in the scene of the control, is on one of the control's items.
        virtual bool isHit(const QPolygonF &pixel) const = 0;
        // May delete the filter.
        virtual void pressedOutside() = 0;

    protected:
        ~Client() = default;
    };

    KELOutsidePress(const QGraphicsItem *control, Client *client);
    ~KELOutsidePress() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(KELOutsidePress)

    bool isOutside(const QObject *receiver, const QEvent *event) const;
    bool isOutside(const QWidget *receiver, const QPoint &pos) const;

    const QGraphicsItem *const m_control;
    Client *const m_client;
};

#endif
