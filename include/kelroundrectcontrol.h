// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELROUNDRECTCONTROL_H
#define KELROUNDRECTCONTROL_H

#include "kelgdicontrol_global.h"
#include "keliconfont.h"

#include <QtCore/QMarginsF>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtGui/QPixmap>
#include <QtWidgets/QGraphicsObject>

#include <cstddef>
#include <new>

QT_BEGIN_NAMESPACE
class QMenu;
QT_END_NAMESPACE

class KELControlPrivate;

/*!
 * \brief The style record: how a control looks, and its pointer state.
 *
 * Every control owns one record and returns it from KELRoundRectControl::style(). Edit it freely;
 * the change takes effect on the next paint. If the control is already visible, call
 * QGraphicsItem::update().
 *
 * \code
 * button->style()->backgroundBrush = QColor(0, 120, 215);
 * button->style()->borderWidth = 1;
 * button->update();
 * \endcode
 *
 * The record is plain data: copying it copies every field. The defaults given here are those of a
 * control. Controls that need more fields use a derived record, which appends them.
 *
 * \section stylebrushes Brushes
 * These gradients paint nothing, because Qt would crash with some of them:
 * - a gradient whose points, radii, angle or stops, or whose brush's transformation or its inverse,
 *   contain a value that is not finite or is greater than 100,000 in magnitude;
 * - a gradient whose transformation has no inverse;
 * - a radial gradient whose two circles touch internally, or come within a millionth of that.
 *
 * These limits also apply to the brushes of derived records.
 *
 * \section stylememory Memory
 * The destructor of a record is not virtual. A control deletes its record through a pointer to
 * KELRoundRectControlStyle, even if it is a derived record, so the fields that the derived record
 * adds are not destroyed. A derived record must therefore add only plain values, or values that the
 * derived control resets to their empty state in its own destructor. A control that replaces its
 * base class's record deletes the old one through a pointer to its own type.
 *
 * \section stylecompat Compatibility notes
 * \c borderWidth, \c textFlags, \c trimText, \c contextMenu and \c iconSize have no initialiser.
 * Value-initialise a record that you create yourself: <tt>KELRoundRectControlStyle()</tt>.
 */
struct KELGDI_EXPORT KELRoundRectControlStyle
{
    //! The control's rectangle in its own coordinates, in item px. The default is (100, 100, 100,
    //! 30). Change it with KELRoundRectControl::setboundRect(). A rectangle with a non-finite value
    //! draws nothing.
    QRectF boundRect = QRectF();
    //! The fill. With Qt::NoBrush the control is not filled. The default is RGBA (0, 0, 0, 20).
    QBrush backgroundBrush = QBrush(Qt::NoBrush);
    //! The brush of the 1 px pen for the caption and the glyph. With Qt::NoBrush no caption is
    //! drawn. The default is black.
    QBrush foregroundBrush = QBrush(Qt::NoBrush);
    //! The brush of the outline. With Qt::NoBrush no outline is drawn. The default is black.
    QBrush borderBrush = QBrush(Qt::NoBrush);
    //! The width of the outline in item px. With 0 or less no outline is drawn. The default is 0.5.
    float borderWidth;
    //! The corner radius along x in item px. 0 or less gives square corners. The default is 0.
    qreal xRadius = 0;
    //! The corner radius along y in item px. 0 or less gives square corners. The default is 0.
    qreal yRadius = 0;
    //! The caption. The default is null.
    QString text = QString();
    //! Qt::AlignmentFlag and Qt::TextFlag bits for the caption and the glyph. The default is
    //! 0x1084: Qt::AlignCenter and Qt::TextWordWrap.
    int textFlags;
    //! Whether caption lines that are too long end in an ellipsis. The default is true.
    bool trimText;
    //! The font of the caption. The default is QFont().
    QFont font = QFont();
    /*!
     * The menu that a long press or a context-menu event opens. If it is null, no menu is opened.
     * The default is null.
     *
     * The application owns the menu, but the control schedules it for deletion
     * (QObject::deleteLater()) when the control is destroyed. A menu may be deleted before the
     * control, for example by its parent: the control then no longer opens it. Do not share one
     * menu between controls with different lifetimes.
     */
    QMenu *contextMenu;
    //! The margins, in item px, between the control's rectangle and its content rectangle. They are
    //! 0 by default. Margins larger than the rectangle give a negative content size, for which Qt
    //! draws a pixmap at its own size.
    QMarginsF margins = QMarginsF();
    //! The picture, scaled to the content rectangle. If it is null, no picture is drawn. The
    //! default is null.
    QPixmap pixmap = QPixmap();
    //! The glyph of the icon font. If it is null, no glyph is drawn. The default is null.
    KELIconFont icon = KELIconFont();
    //! The pixel size of the glyph. Must be greater than 0. The default is 30.
    int iconSize;
    //! State: the pointer is pressed on the control. Written by the control.
    bool isMouseDown = false;
    //! State: the control is checked. Change it with KELRoundRectControl::setCheck().
    bool isCheck = false;

    /*!
     * Copies the look into \a dst: every field of this record except the two states, which become
     * false in \a dst. Does not touch fields that a derived record adds. \a dst must not be null.
     */
    void copy(KELRoundRectControlStyle *dst) const;

    /*!
     * Returns \a source with every line elided on the right to \a width px in \a sourceFont.
     *
     * Lines end at line feeds. Empty lines are dropped. \a width is truncated to a whole number and
     * clamped to -16,777,216 to 33,554,431 px; NaN counts as 0. A line too narrow even for the
     * ellipsis becomes the ellipsis or empty, as with QFontMetrics::elidedText().
     */
    QString getTrimmingText(const QString &source, double width, const QFont &sourceFont) const;

    // A control deletes derived records as this type. The unsized operator delete never passes a
    // wrong size to the allocator.
    //! Allocates a record of \a size bytes, of this or a derived type.
    static void *operator new(std::size_t size) { return ::operator new(size); }
    //! Allocates a record of \a size bytes. Returns null when out of memory.
    static void *operator new(std::size_t size, const std::nothrow_t &tag) noexcept
    {
        return ::operator new(size, tag);
    }
    //! Constructs a record in \a place.
    static void *operator new(std::size_t size, void *place) noexcept
    {
        return ::operator new(size, place);
    }
    //! Frees \a record, of this or a derived type.
    static void operator delete(void *record) noexcept { ::operator delete(record); }
    //! Matches the nothrow operator new.
    static void operator delete(void *record, const std::nothrow_t &tag) noexcept
    {
        ::operator delete(record, tag);
    }
    //! Matches placement new.
    static void operator delete(void *record, void *place) noexcept
    {
        ::operator delete(record, place);
    }
};

/*!
 * \brief The base of every control: a rounded rectangle with outline, picture, glyph and caption
 * that reports pointer input as signals.
 *
 * \image html states-round-rect.png
 *
 * \code
 * auto *control = new KELRoundRectControl;
 * control->setboundRect(0, 0, 200, 60);
 * control->setText(QObject::tr("Start"));
 * control->setFlag(QGraphicsItem::ItemIsSelectable); // otherwise it gets no release and no click
 * QObject::connect(control, &KELRoundRectControl::mouseClicked, [] { qInfo("tapped"); });
 * scene->addItem(control);
 * \endcode
 *
 * \section look Look
 * The control paints its style() in this order: rounded rectangle and outline, pixmap, glyph,
 * caption. The pixmap, the glyph and the caption share the content rectangle and overlap.
 *
 * \section gesture Gestures
 * All positions are in item px. If the control accepts the press, it emits
 * \code
 * press ---- release within 500 ms -------------> mousePress, mouseRelease, mouseClicked
 * press ---- moved by more than 10 px, release -> mousePress, mouseRelease
 * press ---- 500 ms, release -------------------> mousePress, mouseLongPress, mouseRelease
 * press, release, press again (double click) ---> mousePress, mouseRelease, mouseClicked,
 *                                                 mousePress, mouseDoubleClicked,
 *                                                 mouseRelease, mouseClicked
 * \endcode
 * The limit of 10 px is a Manhattan distance in item coordinates: in a view scaled by 2 it is 20 px
 * on the screen. Fast taps are never lost: each is a click, whether or not Qt calls it a double
 * click.
 *
 * Controls that are meant to be tapped set QGraphicsItem::ItemIsSelectable. A control gets moves
 * and the release only if it accepts the press:
 * - with QGraphicsItem::ItemIsSelectable it accepts a press of the left button or of a finger;
 * - with QGraphicsItem::ItemIsMovable it accepts a press of any button.
 *
 * The base class sets neither flag; \ref controlcompat describes the consequences.
 *
 * \anchor passive <b>Controls that are not meant to be tapped.</b> A control is a panel
 * (QGraphicsItem::ItemIsPanel), and panels block presses: only presses of buttons that are not in
 * acceptedMouseButtons() reach the items below. The item below gets no other press, unless the
 * control is a child of a KELPushButton, which takes the presses on its children. Call
 * <tt>setAcceptedMouseButtons(Qt::NoButton)</tt> to let all presses through.
 *
 * <b>Lost pointer.</b> A pressed control loses the pointer when
 * - the grab is taken away;
 * - the control is disabled, hidden or removed from the scene;
 * - its view is disabled, hidden or closed, or shows another scene;
 * - a popup or a modal dialog opens over it;
 * - the pressed button is no longer accepted.
 *
 * It then returns to the released look and emits neither mouseLongPress nor mouseClicked. A release
 * that still reaches it later emits only mouseRelease. A touch that the window system cancels (palm
 * rejection, a compositor gesture) ends with mouseRelease and without mouseClicked.
 *
 * While its context menu is open, a control emits no mouseLongPress and does not open the menu
 * again.
 *
 * \section fingers Multiple fingers
 * Qt synthesises mouse events from one finger at a time. The library delivers the presses of the
 * others, so that two thumbs can type on a keypad. While a finger is down on a control, each
 * additional finger sends its press, moves and release to the control on which it comes down, in
 * any QGraphicsView. That control emits the signals above. The fingers do not affect each other.
 *
 * Additional fingers differ from the first:
 * - They are tracked only if the finger from which Qt synthesises mouse events came down on a
 *   control. While that finger is on an empty part of the scene, on another kind of item or on a
 *   widget, Qt does not report the others.
 * - They press only controls, and only those that are neither movable nor already pressed.
 * - The second of two taps in a row is a press, not a double click.
 * - They do not close an open KELComboBox, KELNonModalDialog or KELNonModalhelper, send no hover
 *   events and do not move the keyboard focus.
 *
 * \section lifetime Lifetime
 * A slot connected to any signal of the library may delete any control, with \c delete or
 * QObject::deleteLater(): the sender or another control, even while its context menu is open.
 *
 * Qt itself still uses some objects after it has emitted its own signals. Use
 * QObject::deleteLater() there:
 * - for the view, its window and the scene, in any slot that runs during a gesture;
 * - in slots connected to QGraphicsScene::selectionChanged(), which a tap on a selectable control
 *   emits, for the items being selected and those under the pointer;
 * - in slots connected to visibleChanged() and enabledChanged(), for other items of the same tree,
 *   because Qt iterates over all children;
 * - in slots connected to parentChanged(), childrenChanged(), xChanged() and yChanged(), for the
 *   item, its parents and its children, unless KELNavigationTable::addItem() emits them;
 * - in slots connected to QGraphicsScene::changed() and QGraphicsScene::sceneRectChanged(), for the
 *   scene and the view;
 * - in slots connected to QMenu::aboutToShow() and QMenu::aboutToHide(), for that menu, in slots
 *   connected to QDialog::accepted() and QDialog::rejected(), for that dialog, and in a widget's
 *   own hide event handler, for that widget;
 * - in slots connected to destroyed(), for the object that the destroyed one is a part of: it is
 *   already being deleted.
 *
 * \section geometry Geometry
 * setboundRect() neither repaints nor notifies the scene. Set the rectangle first, then add the
 * control to the scene. If a rectangle must change while the scene is shown, the scene must use
 * QGraphicsScene::NoIndex, and the application must repaint it. The scenes of this library's views
 * use QGraphicsScene::NoIndex; see \ref viewscene.
 *
 * \ref placing explains where a child control appears, and which controls are drawn out of place
 * when the rectangle of their parent does not begin at (0, 0).
 *
 * \section outside Outside the rectangle
 * Some controls have parts of fixed size, or an outline around their rectangle. If the rectangle is
 * too small, they draw outside it. A control caches its picture, and the cache clips everything
 * more than one device px outside. Give the control the size that its class documents, or switch
 * the cache off with <tt>setCacheMode(QGraphicsItem::NoCache)</tt>. Without the cache such parts
 * are visible, but a control that moves or changes leaves traces of them until that area is
 * repainted.
 *
 * GUI thread only.
 *
 * \section controlcompat Compatibility notes
 * - A plain KELRoundRectControl has neither ItemIsSelectable nor ItemIsMovable. It emits mousePress
 *   and, 500 ms later, mouseLongPress, and stays in the pressed state. The same applies to a
 *   control of a derived class that calls the mousePressEvent() of this class and then ignores the
 *   event.
 * - If a selectable control also accepts the right button, a right press emits only mousePress. The
 *   pressed look and the long-press timer are cleared on the next event-loop iteration, unless a
 *   derived class accepts the event.
 * - boundingRect() of a child control is offset by the corner of its parent's rectangle.
 */
class KELGDI_EXPORT KELRoundRectControl : public QGraphicsObject
{
    Q_OBJECT

public:
    /*!
     * Creates a control as a child item of \a parent, or without a parent if it is null.
     *
     * The control caches its picture in device coordinates (QGraphicsItem::DeviceCoordinateCache)
     * and is a panel (QGraphicsItem::ItemIsPanel). Hover and touch events are off.
     */
    explicit KELRoundRectControl(QGraphicsObject *parent = nullptr);

    //! Destroys the control and its style record and schedules the context menu for deletion.
    ~KELRoundRectControl() override;

    //! Returns the control's style record, for editing. Never null. The control owns it.
    KELRoundRectControlStyle *style() const;

    //! Returns (0, 0, width, height) of the control's rectangle, in item px.
    QRectF rect() const;

    //! Returns true while the pointer is pressed on the control and has not been lost. The field
    //! KELRoundRectControlStyle::isMouseDown has the same value by the next event-loop iteration at
    //! the latest.
    bool isMouseDown() const;

    //! Returns true if the control is checked.
    bool isCheck() const;

    //! Returns the caption.
    QString text() const;

    /*!
     * Fills \a option, which must be a newly created record, with what the control shows.
     * \a styleOption is not used.
     *
     * The rectangle is boundingRect(). An outline is copied only if it has a brush and a width
     * greater than 0, a caption only if there is a foreground brush and text. The states stay
     * false. \a option must not be null.
     */
    void initStyleOption(KELRoundRectControlStyle *option,
                         const QStyleOptionGraphicsItem *styleOption) const;

    /*!
     * Returns the rectangle in item px. Without a parent item this is \c boundRect. With a parent
     * item it is \c boundRect offset by the top-left corner of the parent's boundingRect(). While
     * that parent computes its own rectangle from those of its children
     * (QGraphicsItem::childrenBoundingRect()), the children return \c boundRect without the offset.
     */
    QRectF boundingRect() const override;

    //! Stores \a rect (item px, any value) as the control's rectangle and does nothing else; see
    //! \ref geometry.
    virtual void setboundRect(const QRectF &rect);

    //! Stores the rectangle \a x, \a y, \a w, \a h (item px), as setboundRect(const QRectF&) does.
    virtual void setboundRect(qreal x, qreal y, qreal w, qreal h);

    //! Paints the style record with \a painter; \a styleOption and \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

public Q_SLOTS:
    //! Checks or unchecks the control: repaints it and calls onCheckedEvent(). Does nothing if
    //! \a check is the current state. This class emits no signal.
    void setCheck(bool check);

    //! Replaces the caption with \a text and repaints the control, even if the caption is
    //! unchanged.
    void setText(QString text);

Q_SIGNALS:
    //! The control was tapped: released within 500 ms without moving by more than 10 px. Emitted
    //! right after mouseRelease().
    void mouseClicked();
    //! The control was pressed for the second time within the system's double-click time. Emitted
    //! right after the mousePress() of that press.
    void mouseDoubleClicked();
    //! The control has been pressed for 500 ms. If the style has a context menu, it opens next.
    void mouseLongPress();
    //! The control was pressed at \a pos, in item px.
    void mousePress(const QPointF &pos);
    //! The pointer was released at \a pos, in item px, inside or outside the control.
    void mouseRelease(const QPointF &pos);
    //! The pointer entered the control. Emitted only while hover events are accepted.
    void mouseEnter();
    //! The pointer left the control. Emitted only while hover events are accepted, and before the
    //! mouseEnter() of the control that the pointer enters. If the pointer enters another kind of
    //! item, it is emitted on the next event-loop iteration.
    void mouseLeave();

protected:
    //! Handles the 500 ms long-press timer.
    void timerEvent(QTimerEvent *event) override;
    //! Begins a press and emits mousePress(). A press that the scene sends here by mistake, because
    //! a popup consumed the previous release, is delivered to the control under the pointer
    //! instead: connect to mousePress() rather than overriding this function.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    //! Handles the event as a press, then emits mouseDoubleClicked().
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    //! Ends a press. Emits mouseRelease() and, for a tap, mouseClicked().
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    //! Cancels the click and the long press once the pointer has moved by more than 10 px.
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    //! Emits mouseEnter().
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    //! Emits mouseLeave().
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;
    //! Opens the style's context menu at the event's screen position and accepts the event. Without
    //! a menu the event remains ignored.
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;

public: // again: the order of virtual functions is part of the ABI
    //! Called by setCheck() after the state has changed to \a check. Empty here; derived controls
    //! emit their signals from it.
    virtual void onCheckedEvent(bool check);

    /*!
     * Creates the control's style record with its defaults and returns it.
     *
     * For constructors only: each constructor in the chain calls its own class's version and stores
     * the result. A derived version copies the look of the current record with
     * KELRoundRectControlStyle::copy(), deletes that record through a pointer to its own type, and
     * returns the new one. The base version returns a new record that the caller owns.
     *
     * \warning The record of a class must derive from the record of its base class. A class derived
     * from KELCheckBox needs a record derived from KELCheckBoxStyle; the same applies to
     * KELPushButton and KELPushButtonStyle, KELNavigationTable and KELNavigationTableStyle, and
     * KELNavigationTableItem and KELNavigationTableItemStyle. These base classes read their own
     * fields whenever they paint, and would read past the end of a record without them. In its
     * destructor, the class that replaced the record must reset those fields it added that own
     * memory (brushes, strings).
     */
    virtual KELRoundRectControlStyle *initStyle();

protected:
    //! The style record, which the control owns. Constructors of derived classes store the result
    //! of their initStyle() here.
    KELRoundRectControlStyle *m_style;

    //! \cond
    // For the library's own controls with a larger record or private class: each is allocated only
    // once.
    Q_DECL_HIDDEN KELRoundRectControl(QGraphicsObject *parent, KELRoundRectControlStyle *newStyle,
                                      KELControlPrivate *newPrivate);
    //! \endcond

private:
    Q_DISABLE_COPY(KELRoundRectControl)
    friend class KELControlPrivate;

    KELControlPrivate *const d;
};

#endif
