// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keldialogbase.h"

#include "kelcontentview.h"
#include "kelitemmove_p.h"
#include "kelitempointer_p.h"
#include "kelsceneview_p.h"

#include <QtCore/QEasingCurve>
#include <QtCore/QPointer>
#include <QtCore/QPropertyAnimation>
#include <QtGui/QPixmap>
#include <QtWidgets/QGraphicsPixmapItem>
#include <QtWidgets/QGraphicsScene>

#include <utility>

namespace {

constexpr QRect inputGeometry(200, 186, 400, 250);
constexpr QRect messageGeometry(185, 210, 430, 180);
constexpr QRect longMessageGeometry(185, 155, 430, 290);
constexpr double shortMessageSize = 2.2;

constexpr int shakeMs = 300;
constexpr int shakeSteps = 10;

// The body of a dialog, from the resources of the application.
QPixmap scaledBody(const QSize &size)
{
    const QPixmap body(QStringLiteral(":res/ico/dialog.png"));
    return body.isNull() ? body : body.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

} // namespace

class KELDialogBasePrivate
{
public:
    explicit KELDialogBasePrivate(KELDialogBase *dialog) : q(dialog) { }
    void replaceBackground(const QPixmap &pixmap);

    KELDialogBase *const q;
    QPointer<KELContentView> view;
    KELItemPointer<QGraphicsPixmapItem> background;
};

void KELDialogBasePrivate::replaceBackground(const QPixmap &pixmap)
{
    // Items on the old one are destroyed with it; their slots may set another one or delete the
    // dialog.
    const QPointer<KELDialogBase> alive(q);
    while (alive) {
        QGraphicsPixmapItem *const old = background.get();
        if (!old)
            break;
        KELItemMove::erase(old);
    }
    if (!alive || !view || !view->scene())
        return;
    KELItemMove::into(view->scene(), background.create(pixmap)).report();
}

KELDialogBase::KELDialogBase(QWidget *parent) : QDialog(parent), d(new KELDialogBasePrivate(this))
{
    setGeometry(inputGeometry);
    KELSceneView::setWindowLook(this);
    d->view = new KELContentView(this);
    d->view->setGeometry(QRect(QPoint(0, 0), inputGeometry.size()));
    d->view->resize(inputGeometry.size());
    d->replaceBackground(scaledBody(inputGeometry.size()));
}

// Compat: the text decides about the size only
// NOLINTNEXTLINE(performance-unnecessary-value-param): part of the binary interface
KELDialogBase::KELDialogBase(QString text, double size, QWidget *parent) :
    QDialog(parent), d(new KELDialogBasePrivate(this))
{
    KELSceneView::setWindowLook(this);
    d->view = new KELContentView(this);
    const bool isLong = !text.isEmpty() && size > shortMessageSize;
    const QRect geometry = isLong ? longMessageGeometry : messageGeometry;
    setGeometry(geometry);
    d->view->setGeometry(QRect(QPoint(0, 0), geometry.size()));
    d->replaceBackground(scaledBody(geometry.size()));
}

KELDialogBase::~KELDialogBase()
{
    // The view would die with the other children, but its items have slots that may still call
    // here.
    const QPointer<KELContentView> view = std::exchange(d->view, nullptr);
    if (view && view->parent() == this)
        delete view;
    delete d;
}

KELContentView *KELDialogBase::view() const
{
    return d->view;
}

void KELDialogBase::setBackgroundPixmap(const QPixmap &pixmap)
{
    d->replaceBackground(pixmap);
}

void KELDialogBase::dialogShake(int distance)
{
    const QRect start(pos(), geometry().size());
    auto *const shake = new QPropertyAnimation(this, "geometry");
    shake->setEasingCurve(QEasingCurve::InOutSine);
    shake->setDuration(shakeMs);
    shake->setStartValue(start);
    // Larger offsets would overflow; no widget is larger.
    int offset = qBound(-QWIDGETSIZE_MAX, distance, QWIDGETSIZE_MAX);
    for (int step = 1; step < shakeSteps; ++step) {
        // Compat: two steps at each side
        if (step % 2 != 0)
            offset = -offset;
        shake->setKeyValueAt(step * 0.1, start.translated(offset, 0));
    }
    shake->setEndValue(start);
    // At exit no further frame comes, and the animation would leak.
    connect(this, &QObject::destroyed, shake, [shake] { delete shake; });
    shake->start(QAbstractAnimation::DeleteWhenStopped);
}
