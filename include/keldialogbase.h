// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELDIALOGBASE_H
#define KELDIALOGBASE_H

#include "kelgdicontrol_global.h"

#include <QtCore/QString>
#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QPixmap;
QT_END_NAMESPACE

class KELContentView;
class KELDialogBasePrivate;

/*!
 * \brief A frameless, translucent dialog with a picture as its body and controls on top.
 *
 * \code
 * KELDialogBase dialog;
 * auto *ok = new KELPushButton;
 * ok->setboundRect(QRectF(150, 180, 100, 50));
 * dialog.view()->scene()->addItem(ok);
 * QObject::connect(ok, &KELPushButton::mouseClicked, &dialog, &QDialog::accept);
 * dialog.exec();
 * \endcode
 *
 * The body is the application's resource <tt>:res/ico/dialog.png</tt>, scaled to the size of the
 * view. Without this resource there is no body, and only what the application adds is visible. The
 * view has a fixed size: it does not follow a resize of the dialog.
 *
 * The dialog owns its view, and the view's scene owns the controls. Qt does not allow you to delete
 * a dialog in a slot connected to accepted() or rejected(): use finished() or
 * QObject::deleteLater().
 *
 * Without a compositor the corners of a translucent window are black, or show what was there
 * before. Use a body that fills its rectangle or, on a platform with only one window, put the
 * dialog's content into that window.
 *
 * GUI thread only.
 *
 * \section dialogparent Parent
 * The constructors replace the window flags with Qt::FramelessWindowHint. A dialog with a parent is
 * therefore not a window but a child widget: it is clipped at the edges of its parent, its position
 * is in the parent's coordinates, and exec() blocks other windows but not the parent's own. To make
 * the dialog a window above its parent, call
 * <tt>setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint)</tt> before showing it.
 *
 * \section dialogcompat Compatibility notes
 * - The constructor that takes text uses it only to choose the size.
 * - setBackgroundPixmap() puts the new body above the items with z-value 0 that were added earlier.
 */
class KELGDI_EXPORT KELDialogBase : public QDialog
{
    Q_OBJECT

public:
    //! Creates a dialog of 400 x 250 px at (200, 186).
    explicit KELDialogBase(QWidget *parent = nullptr);

    /*!
     * Creates a dialog for a message: 430 x 290 px at (185, 155) if \a text is not empty and
     * \a size is greater than 2.2, otherwise 430 x 180 px at (185, 210). The text is neither shown
     * nor stored.
     */
    KELDialogBase(QString text, double size, QWidget *parent = nullptr);

    //! Destroys the dialog, its view and all items in the view's scene.
    ~KELDialogBase() override;

    //! Returns the view whose scene holds the controls, or null if other code has deleted it. The
    //! dialog owns the view. QGraphicsScene::items() is not sorted there; see \ref viewscene.
    KELContentView *view() const;

    /*!
     * Deletes the body and shows \a pixmap instead, at its own size, at the origin of the scene and
     * with z-value 0. It covers the items with z-value 0 that were added earlier, but presses pass
     * through it to them. Set it before adding controls.
     *
     * The body may already be gone, for example after KELContentView::setContent(). A null pixmap
     * makes an empty body. Slots that run during the call, connected to signals of items on the old
     * body or of the scene, may delete the dialog, the view or the scene.
     */
    void setBackgroundPixmap(const QPixmap &pixmap);

    /*!
     * Shakes the dialog from side to side for 300 ms, for example to show that the input was
     * rejected.
     *
     * It moves \a distance px to the left first, or to the right if \a distance is negative.
     * Distances greater than 16,777,215 px are clamped to that value. The dialog returns to the
     * position and size that it had at the time of the call. A shake that is already running is
     * stopped where it is, and that position becomes the centre of the new one.
     */
    void dialogShake(int distance);

private:
    Q_DISABLE_COPY(KELDialogBase)

    KELDialogBasePrivate *const d;
};

#endif
