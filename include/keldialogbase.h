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
 * \brief A frameless, translucent dialog whose body is a picture in a scene, with the controls on it.
 *
 * \image html dialog-base.png
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
 * The body is the resource <tt>:res/ico/dialog.png</tt> of the application, scaled to the size of the view.
 * Without such a resource there is no body, and only what the application adds is seen. The view has a
 * fixed size: it does not follow the dialog when that is resized.
 *
 * Without a compositor the corners of a translucent window are black, or show what was there before: choose
 * a body that fills its rectangle, or on a platform with one window put the dialog's content into that
 * window.
 *
 * \section dialogparent Parent
 * The constructors replace the window flags by Qt::FramelessWindowHint. So a dialog with a parent is no
 * window but a child widget: it is cut at the edges of its parent, its position is in the parent's
 * coordinates, and exec() blocks other windows but not the parent's own. For a dialog above its parent,
 * call <tt>setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint)</tt> before showing it.
 *
 * GUI thread only.
 *
 * Do not delete a dialog in a slot of accepted() or rejected(), which Qt does not allow: use finished() or
 * QObject::deleteLater().
 */
class KELGDI_EXPORT KELDialogBase : public QDialog
{
    Q_OBJECT

public:
    //! Creates a dialog of 400 x 250 px at (200, 186).
    explicit KELDialogBase(QWidget *parent = nullptr);

    /*!
     * Creates a dialog for a message: of 430 x 290 px at (185, 155) when \a text is not empty and \a size is
     * greater than 2.2, otherwise of 430 x 180 px at (185, 210). The text is neither shown nor kept.
     */
    KELDialogBase(QString text, double size, QWidget *parent = nullptr);

    //! Destroys the dialog, its view and all items in the view's scene.
    ~KELDialogBase() override;

    //! Returns the view, for whose scene the controls are; QGraphicsScene::items() is not sorted
    //! there, see \ref viewscene. It belongs to the dialog. Null once somebody else has deleted it.
    KELContentView *view() const;

    /*!
     * Deletes the body and shows \a pixmap instead, in its own size, at the origin of the scene and with
     * z-value 0: it lies above the items with z-value 0 that were added earlier and hides them,
     * though presses pass it and reach them. Set it before adding controls.
     *
     * The body may be gone already, for example by KELContentView::setContent(). A null pixmap makes
     * an empty body. Slots that run meanwhile, of items on the old body or of the scene, may delete the dialog, the
     * view or the scene.
     */
    void setBackgroundPixmap(const QPixmap &pixmap);

    /*!
     * Shakes the dialog to both sides once, for 300 ms, to reject an input.
     *
     * It goes \a distance px to the left first, with a negative distance to the right; more than 16,777,215 px
     * count as so many. Position and size are those at the call. A shake that runs already is stopped where it is,
     * and that place is the middle of the new one.
     */
    void dialogShake(int distance);

private:
    Q_DISABLE_COPY(KELDialogBase)

    KELDialogBasePrivate *const d;
};

#endif
