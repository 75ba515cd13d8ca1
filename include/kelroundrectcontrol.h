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
 * \brief The style record: how a control looks and which pointer state it is in.
 *
 * Every control owns one record and hands it out with KELRoundRectControl::style(). Edit it as you
 * like; the change shows at the next paint, so call QGraphicsItem::update() when the control is
 * shown already. Controls with more to say inherit this record and add fields behind it.
 *
 * The record is plain data: copying it copies every field. The defaults named here are those of a
 * control; a record that an application makes itself should be value-initialised
 * (<tt>KELRoundRectControlStyle()</tt>), because five fields have no initialiser of their own.
 *
 * \section stylebrushes Brushes
 * A gradient with a number that is not finite or beyond 100,000 (in its points, radii, angle or stops, in the
 * transformation of the brush or in the inverse of that) paints nothing, and so does one whose transformation has
 * no inverse, and a radial gradient whose two circles touch from inside, or nearly: within a millionth. With some of
 * these Qt would crash. It holds for the brushes that derived records add, too.
 *
 * \section stylememory Memory
 * A record on the heap is freed as the record type that the \c delete expression names. A control
 * deletes its record as a KELRoundRectControlStyle, whatever was derived from it, and then the fields of a
 * derived record are not destroyed. A derived record must therefore add only plain values, or values
 * that the derived control resets to their empty state in its own destructor. A control that replaces the
 * record of the class it derives from deletes the old one as the type it has.
 */
struct KELGDI_EXPORT KELRoundRectControlStyle
{
    //! The control's rectangle in its own coordinates, in item px. Default (100, 100, 100, 30).
    //! Change it with KELRoundRectControl::setboundRect(). A rectangle with a value that is not finite
    //! draws nothing.
    QRectF boundRect = QRectF();
    //! The fill; a brush of style Qt::NoBrush draws none. Default RGBA (0, 0, 0, 20).
    QBrush backgroundBrush = QBrush(Qt::NoBrush);
    //! The brush of the 1 px pen for caption and glyph; Qt::NoBrush draws no caption. Default black.
    QBrush foregroundBrush = QBrush(Qt::NoBrush);
    //! The brush of the outline; Qt::NoBrush draws none. Default black.
    QBrush borderBrush = QBrush(Qt::NoBrush);
    //! The width of the outline in item px; 0 or less draws none. Default 0.5.
    float borderWidth;
    //! The corner radius along x in item px; 0 or less gives square corners. Default 0.
    qreal xRadius = 0;
    //! The corner radius along y in item px; 0 or less gives square corners. Default 0.
    qreal yRadius = 0;
    //! The caption. Default null.
    QString text = QString();
    //! Qt::AlignmentFlag and Qt::TextFlag bits for caption and glyph. Default 0x1084: Qt::AlignCenter
    //! and Qt::TextWordWrap.
    int textFlags;
    //! Whether lines of the caption that are too long end in an ellipsis. Default true.
    bool trimText;
    //! The font of the caption. Default QFont().
    QFont font = QFont();
    //! The menu that a long press and a context-menu event open; null opens none. Default null.
    //! The application owns the menu and the control schedules it for deletion (QObject::deleteLater())
    //! when it is destroyed. A menu may die before the control, with its parent for example: it is not
    //! opened any more. Do not let two controls with different lifetimes share one menu.
    QMenu *contextMenu;
    //! The content rectangle is the control's rectangle less these margins, in item px. Default 0.
    //! Margins larger than the rectangle give a negative content size, with which Qt draws a pixmap in
    //! its own size.
    QMarginsF margins = QMarginsF();
    //! The picture, scaled into the content rectangle; a null pixmap draws none. Default null.
    QPixmap pixmap = QPixmap();
    //! The glyph of the icon font; a null glyph draws none. Default null.
    KELIconFont icon = KELIconFont();
    //! The pixel size in which the glyph is drawn; must be greater than 0. Default 30.
    int iconSize;
    //! State: the pointer is pressed on the control. The control writes it.
    bool isMouseDown = false;
    //! State: the control is checked. Change it with KELRoundRectControl::setCheck().
    bool isCheck = false;

    /*!
     * Copies the look into \a dst: every field of this record except the two states, which become
     * false in \a dst. Fields that a derived record adds are not touched. \a dst must not be null.
     */
    void copy(KELRoundRectControlStyle *dst) const;

    /*!
     * Returns \a source with every line elided on the right to \a width px in \a sourceFont.
     *
     * Lines end at line feeds; empty lines vanish. \a width is cut to a whole number towards zero and is
     * limited to -16,777,216 to 33,554,431 px; a width that is not a number counts as 0. A line that cannot even
     * hold the ellipsis becomes the ellipsis or nothing, as QFontMetrics::elidedText() does.
     */
    QString getTrimmingText(const QString &source, double width, const QFont &sourceFont) const;

    // A control deletes derived records as this type: with the unsized form of operator delete the
    // allocator is never told a wrong size.
    //! Allocates a record of \a size bytes, of this type or derived.
    static void *operator new(std::size_t size) { return ::operator new(size); }
    //! Allocates a record of \a size bytes; null when there is no memory.
    static void *operator new(std::size_t size, const std::nothrow_t &tag) noexcept
    {
        return ::operator new(size, tag);
    }
    //! Constructs a record in \a place.
    static void *operator new(std::size_t size, void *place) noexcept
    {
        return ::operator new(size, place);
    }
    //! Frees \a record, of this type or derived.
    static void operator delete(void *record) noexcept { ::operator delete(record); }
    //! Counterpart of the new that answers null.
    static void operator delete(void *record, const std::nothrow_t &tag) noexcept
    {
        ::operator delete(record, tag);
    }
    //! Counterpart of placement new.
    static void operator delete(void *record, void *place) noexcept
    {
        ::operator delete(record, place);
    }
};

/*!
 * \brief The base of every control: a rounded rectangle with outline, picture, glyph and caption that
 * turns the pointer into signals.
 *
 * \section look Look
 * The control paints its style() in this order: rounded rectangle and outline, pixmap, glyph, caption.
 * Pixmap, glyph and caption share the content rectangle and are drawn over each other.
 *
 * \section gesture Gestures
 * All positions are in item px. With the pointer held, one press gives
 * \code
 * press ---- release within 500 ms -------------> mousePress, mouseRelease, mouseClicked
 * press ---- moved by more than 10 px, release -> mousePress, mouseRelease
 * press ---- 500 ms, release -------------------> mousePress, mouseLongPress, mouseRelease
 * press, release, press again (double click) ---> mousePress, mouseRelease, mouseClicked,
 *                                                 mousePress, mouseDoubleClicked,
 *                                                 mouseRelease, mouseClicked
 * \endcode
 * The 10 px are Manhattan distance in item coordinates: in a view scaled by 2 they are 20 px on the
 * screen. Fast taps are never lost: each is a click, whether or not Qt calls it a double click.
 *
 * A control gets moves and the release only if it keeps the press. It keeps a press of the left button, or
 * of a finger, when QGraphicsItem::ItemIsSelectable is set, and a press of any button when
 * QGraphicsItem::ItemIsMovable is set. The base sets neither: a plain KELRoundRectControl reports
 * mousePress and, 500 ms later, mouseLongPress, and stays in the pressed state. So does a control of a derived
 * class that calls the base's mousePressEvent() and then ignores the event. Controls that are meant to be
 * tapped set ItemIsSelectable. Where they accept the right button as well, a right press is reported with
 * mousePress alone: look and timer are gone when the event loop has gone round once, unless a derived class
 * accepts the event.
 *
 * \anchor passive <b>Controls that are not meant to be tapped.</b> Panels block presses; only buttons missing
 * from acceptedMouseButtons() reach the items below, and a control is a panel. The item below gets nothing, unless
 * the control is a child of a KELPushButton, which takes the presses on its children. Call
 * <tt>setAcceptedMouseButtons(Qt::NoButton)</tt> to let all presses pass.
 *
 * A pressed control that loses the pointer (the grab is taken away, it is disabled, hidden or taken
 * out of the scene, its view is disabled, hidden or closed or shows another scene, a popup or a modal
 * dialog opens over it, the pressed button is no longer accepted) returns to the released look and sends
 * neither mouseLongPress nor mouseClicked. A release that reaches it later all the same is reported with
 * mouseRelease only. A touch that the window system cancels (palm rejection, a gesture of the compositor) ends
 * with mouseRelease and without mouseClicked.
 *
 * While the context menu of a control is open, the control sends no mouseLongPress and does not open the menu
 * again.
 *
 * \section fingers Several fingers
 * Qt makes a mouse of one finger at a time. The library makes presses of the others, so that two thumbs can type on
 * a keypad: while a finger is down on a control, each further finger presses, moves and releases the control
 * on which it comes down, with the signals above, in any QGraphicsView. Neither disturbs the other.
 *
 * A further finger differs from the first one in this:
 * - It is followed only while a finger that Qt made a mouse of came down on a control. While the first one rests on the
 *   bare scene, on another kind of item or on a widget, Qt tells nobody of the others.
 * - It presses controls only, and of these no control that is pressed already and none that is movable.
 * - Its second tap in a row is a press, not a double click.
 * - It does not close an open KELComboBox, KELNonModalDialog or KELNonModalhelper, sends no hover events and moves no
 *   keyboard focus.
 *
 * \section lifetime Lifetime
 * A control may be deleted, with \c delete or QObject::deleteLater(), in any slot of any signal of the library, its
 * own or that of another control, also while its context menu is open.
 *
 * Qt itself goes on with some objects after its own signals. Use QObject::deleteLater() there:
 * - for the view, its window and the scene, in any slot that runs inside a gesture;
 * - in slots of QGraphicsScene::selectionChanged(), which a tap on a selectable control fires, for the items that
 *   are being selected and those under the pointer;
 * - in slots of visibleChanged() and enabledChanged(), for other items of the same tree: Qt goes through all children;
 * - in slots of parentChanged(), childrenChanged(), xChanged() and yChanged(), for the item, its parents and its
 *   children, unless KELNavigationTable::addItem() emits them;
 * - in slots of QGraphicsScene::changed() and QGraphicsScene::sceneRectChanged(), for the scene and the view;
 * - in slots of QMenu::aboutToShow() and QMenu::aboutToHide() for that menu, of QDialog::accepted() and
 *   QDialog::rejected() for that dialog, and in a widget's own hide event;
 * - in slots of destroyed(), for what the destroyed object is a part of: that is being deleted already.
 *
 * \section geometry Geometry
 * setboundRect() neither repaints nor tells the scene. Set the rectangle first and add the control to
 * the scene afterwards; where a rectangle must change in a shown scene, the scene must use
 * QGraphicsScene::NoIndex and the application repaints it. The scenes of this library's views do:
 * see \ref viewscene.
 *
 * Where a child control is, and which ones are drawn beside their place when the rectangle of their
 * parent does not begin at (0, 0), is in \ref placing.
 *
 * \section outside Outside the rectangle
 * Some controls have parts of fixed size, or an outline around their rectangle, and draw outside a rectangle that is
 * too small for them. A control caches its picture, and the cache cuts off what lies more than one device px outside:
 * give the control the size that its class names, or switch the cache off with
 * <tt>setCacheMode(QGraphicsItem::NoCache)</tt>. Without cache such parts show, but a control that moves or
 * changes leaves them behind until something else repaints there.
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELRoundRectControl : public QGraphicsObject
{
    Q_OBJECT

public:
    /*!
     * Creates a control as a child item of \a parent, or without parent when it is null.
     *
     * The control caches its picture in device coordinates (QGraphicsItem::DeviceCoordinateCache) and
     * is a panel (QGraphicsItem::ItemIsPanel). Hover and touch events are off.
     */
    explicit KELRoundRectControl(QGraphicsObject *parent = nullptr);

    //! Destroys the control and its style record and schedules the context menu for deletion.
    ~KELRoundRectControl() override;

    //! Returns the control's style record, for editing. The control owns it. Never null.
    KELRoundRectControlStyle *style() const;

    //! Returns (0, 0, width, height) of the control's rectangle, in item px.
    QRectF rect() const;

    //! Returns true while the pointer is pressed on the control and has not been lost. The field of the style
    //! record says the same, at the latest when the event loop has gone round once.
    bool isMouseDown() const;

    //! Returns true when the control is checked.
    bool isCheck() const;

    //! Returns the caption.
    QString text() const;

    /*!
     * Fills \a option, a fresh record, with what the control shows; \a styleOption is not read.
     *
     * The rectangle is boundingRect(). An outline is taken over only when there is a brush for it and
     * its width is greater than 0; a caption only when there is a foreground brush and a text. The
     * states stay false. \a option must not be null.
     */
    void initStyleOption(KELRoundRectControlStyle *option,
                         const QStyleOptionGraphicsItem *styleOption) const;

    /*!
     * Returns the rectangle in item px: \c boundRect as it stands, or, with a parent item,
     * \c boundRect moved by the top-left corner of the parent's boundingRect(). While that parent derives its
     * own rectangle from those of its children (QGraphicsItem::childrenBoundingRect()), the children answer with
     * \c boundRect as it stands.
     */
    QRectF boundingRect() const override;

    //! Stores \a rect (item px, any value) as the control's rectangle, and nothing else: see \ref geometry.
    virtual void setboundRect(const QRectF &rect);

    //! Stores the rectangle \a x, \a y, \a w, \a h (item px), as setboundRect(const QRectF&) does.
    virtual void setboundRect(qreal x, qreal y, qreal w, qreal h);

    //! Paints the style record with \a painter; \a styleOption and \a widget are not read.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

public Q_SLOTS:
    //! Checks or unchecks the control: repaints it and calls onCheckedEvent(). Does nothing when
    //! \a check is the present state. The base emits no signal.
    void setCheck(bool check);

    //! Replaces the caption by \a text and repaints the control, also when nothing changed.
    void setText(QString text);

Q_SIGNALS:
    //! The control was tapped: released within 500 ms without moving by more than 10 px. Comes right
    //! after mouseRelease().
    void mouseClicked();
    //! The control was pressed for the second time within the system's double-click time. Comes right
    //! after the mousePress() of that press.
    void mouseDoubleClicked();
    //! The control has been pressed for 500 ms. When the style has a context menu, it opens next.
    void mouseLongPress();
    //! The control was pressed at \a pos, in item px.
    void mousePress(const QPointF &pos);
    //! The pointer was released at \a pos, in item px, wherever that is.
    void mouseRelease(const QPointF &pos);
    //! The pointer entered the control; only while hover events are accepted.
    void mouseEnter();
    //! The pointer left the control; only while hover events are accepted. Comes before the mouseEnter() of the
    //! control that the pointer enters; on the next event-loop iteration where an item of another kind is entered.
    void mouseLeave();

protected:
    //! Counts the 500 ms of a long press.
    void timerEvent(QTimerEvent *event) override;
    //! Begins a press; emits mousePress(). A press that the scene sent here by mistake, because a popup ate the
    //! release before it, goes to the control below the pointer instead: act in a slot of mousePress()
    //! rather than in an override.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    //! Presses again, then emits mouseDoubleClicked().
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    //! Ends a press; emits mouseRelease() and, for a tap, mouseClicked().
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    //! Gives up the click and the long press once the pointer has moved by more than 10 px.
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    //! Emits mouseEnter().
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    //! Emits mouseLeave().
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;
    //! Opens the style's context menu at the event's screen position and accepts the event; without a
    //! menu the event stays ignored.
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;

public:
    //! Called by setCheck() after the state changed to \a check. Empty here; derived controls emit
    //! their signals from it.
    virtual void onCheckedEvent(bool check);

    /*!
     * Makes the control's style record with its defaults and returns it.
     *
     * For constructors only: each constructor in the chain calls its own class's version and stores
     * the result. A derived version carries the look of the present record over with
     * KELRoundRectControlStyle::copy(), deletes that record, as the type it has, and returns the new one.
     * The base version returns a new record that the caller owns.
     *
     * \warning The record of a class must derive from the record of its base class: that of a class derived from
     * KELCheckBox from KELCheckBoxStyle, from KELPushButton from KELPushButtonStyle, from KELNavigationTable from
     * KELNavigationTableStyle, from KELNavigationTableItem from KELNavigationTableItemStyle. Those classes read
     * their fields whenever they paint, and a record without them is too short. Fields of a replaced record
     * that own memory (brushes, strings) are reset by the class that replaced it, in its destructor.
     */
    virtual KELRoundRectControlStyle *initStyle();

protected:
    //! The style record, owned; derived constructors store the result of their initStyle() here.
    KELRoundRectControlStyle *m_style;

    //! \cond
    // For the library's own controls that have a larger record or private class: each is made once then.
    Q_DECL_HIDDEN KELRoundRectControl(QGraphicsObject *parent, KELRoundRectControlStyle *newStyle,
                                      KELControlPrivate *newPrivate);
    //! \endcond

private:
    Q_DISABLE_COPY(KELRoundRectControl)
    friend class KELControlPrivate;

    KELControlPrivate *const d;
};

#endif
