// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELPUSHBUTTON_H
#define KELPUSHBUTTON_H

#include "kelroundrectcontrol.h"

#include <functional>

/*!
 * \brief The style record of a push button.
 */
struct KELGDI_EXPORT KELPushButtonStyle : public KELRoundRectControlStyle
{
    //! The margins of the picture inside the button when it stands above a caption or is a glyph
    //! alone, in item px. Default (5, 1, 5, 1).
    QMarginsF iconMargins = QMarginsF();
};

/*!
 * \brief A button with a picture or an icon glyph above its caption.
 *
 * The button takes the left mouse button, touch and hover. It declares no signals of its own: connect
 * mouseClicked(), mouseLongPress() and the others of KELRoundRectControl.
 *
 * \section layouts Layouts
 * | picture | caption strip | what is drawn |
 * |---------|---------------|---------------|
 * | pixmap  | foreground brush set | the pixmap above, the caption in a strip at the bottom; the strip is kept free also when the caption is empty |
 * | pixmap  | no foreground brush  | the pixmap over the whole button, margins ignored |
 * | glyph   | caption not empty    | the glyph above, the caption in a strip at the bottom |
 * | glyph   | caption empty        | the glyph inside \c iconMargins |
 * | none    | foreground brush set | the caption inside \c margins |
 * | none    | no foreground brush  | nothing but the rectangle |
 *
 * The strip is as high as a line of the font plus twice the top margin plus the bottom margin. Above a
 * strip the caption is elided to the width of the whole button, whatever \c trimText says.
 *
 * \section states States
 * The look of a state is a function that edits a copy of the style record at every paint:
 * \code
 * button->setIsMouseDownTemplate([](KELPushButtonStyle &look) {
 *     look.backgroundBrush = QColor(0, 120, 215);
 * });
 * \endcode
 * A disabled button shows the disabled look alone. Otherwise the checked look is applied and then the
 * pressed look, which so wins where both write the same field. A state function that sets a border brush
 * on a button without an outline must set \c borderWidth as well, and one that sets a foreground brush where
 * there is none changes the layout of a button with a pixmap, as the default disabled look does. A state function must not replace the
 * functions of the button it runs for.
 */
class KELGDI_EXPORT KELPushButton : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates a button as a child item of \a parent, or without parent when it is null.
    explicit KELPushButton(QGraphicsObject *parent = nullptr);
    //! Destroys the button.
    ~KELPushButton() override;

    //! Sets the look while pressed; an empty function leaves it unchanged. Default: background RGBA
    //! (50, 70, 100, 200). Does not repaint the button.
    void setIsMouseDownTemplate(const std::function<void(KELPushButtonStyle &)> &look);

    //! Sets the look while checked; an empty function, the default, leaves it unchanged. Does not
    //! repaint the button.
    void setIsCheckedTemplate(const std::function<void(KELPushButtonStyle &)> &look);

    //! Sets the look while disabled; an empty function leaves it unchanged. Default: caption and
    //! outline RGBA (150, 150, 150, 100). Does not repaint the button.
    void setIsDisableTemplate(const std::function<void(KELPushButtonStyle &)> &look);

    /*!
     * Fills \a option, a fresh record, with what the button shows in its present state; \a styleOption
     * is not read. Beyond KELRoundRectControl::initStyleOption() it takes over \c iconMargins and the two
     * states and applies the state functions. \a option must not be null.
     */
    void initStyleOption(KELPushButtonStyle *option,
                         const QStyleOptionGraphicsItem *styleOption) const;

    //! Paints the button with \a painter; \a styleOption and \a widget are not read.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Makes the button's record: the present look, background RGBA (0, 0, 0, 20), outline 2 px.
    //! For constructors only, see KELRoundRectControl::initStyle().
    KELPushButtonStyle *initStyle() override;

protected:
    //! Swallows presses, releases and double clicks on child items by another button than the left
    //! one; \a watched is not read.
    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(KELPushButton)

    Q_DECL_HIDDEN const KELPushButtonStyle *buttonStyle() const;

    // kept: named without m_
    std::function<void(KELPushButtonStyle &)> isMouseDownTemplate;
    std::function<void(KELPushButtonStyle &)> isCheckedTemplate;
    std::function<void(KELPushButtonStyle &)> isDisableTemplate;
};

#endif
