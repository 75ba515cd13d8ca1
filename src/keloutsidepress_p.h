// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELOUTSIDEPRESS_P_H
#define KELOUTSIDEPRESS_P_H

#include <QtCore/QObject>

#include <functional>

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
    // isHit() decides on a pixel, in the scene of control. report() may delete the filter.
    KELOutsidePress(const QGraphicsItem *control, std::function<bool(const QPolygonF &)> isHit,
                    std::function<void()> report);
    ~KELOutsidePress() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(KELOutsidePress)

    bool isOutside(const QObject *receiver, const QEvent *event) const;
    bool isOutside(const QWidget *receiver, const QPoint &pos) const;

    const QGraphicsItem *const m_control;
    const std::function<bool(const QPolygonF &)> m_isHit;
    const std::function<void()> m_report;
};

#endif
