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
    //! The margins, in item px, around the picture above a caption, or around a glyph without a
    //! caption. The default is (5, 1, 5, 1).
    QMarginsF iconMargins = QMarginsF();
};

/*!
 * \brief A button with a picture or an icon glyph above its caption.
 *
 * \image html states-push-button.png
 *
 * \code
 * auto *button = new KELPushButton;
 * button->setboundRect(20, 20, 120, 60);
 * button->setText(QObject::tr("Start"));
 * QObject::connect(button, &KELPushButton::mouseClicked, [] { qInfo("started"); });
 * scene->addItem(button);
 * \endcode
 *
 * The button accepts the left mouse button, touch and hover. It declares no signals of its own:
 * connect to mouseClicked(), mouseLongPress() and the other signals of KELRoundRectControl; see
 * \ref gesture for their order.
 *
 * \section layouts Layouts
 * | picture | condition            | what is drawn                                            |
 * | ------- | -------------------- | -------------------------------------------------------- |
 * | pixmap  | foreground brush set | pixmap above, caption in a strip below it, even if empty |
 * | pixmap  | no foreground brush  | pixmap over the whole button, margins ignored            |
 * | glyph   | caption not empty    | glyph above, caption in a strip below it                 |
 * | glyph   | caption empty        | glyph inside \c iconMargins                              |
 * | none    | foreground brush set | caption inside \c margins                                |
 * | none    | no foreground brush  | only the rectangle                                       |
 *
 * The strip is at the bottom of the button. Its height is one line of the font plus twice the top
 * margin plus the bottom margin.
 *
 * \section states States
 * The look of a state is a function that edits a copy of the style record on every paint:
 * \code
 * button->setIsMouseDownTemplate([](KELPushButtonStyle &look) {
 *     look.backgroundBrush = QColor(0, 120, 215);
 * });
 * \endcode
 * A disabled button shows only the disabled look. Otherwise the checked look is applied first, then
 * the pressed look, which takes precedence where both write the same field.
 *
 * A state function that sets a border brush on a button without an outline must also set
 * \c borderWidth. It must not replace the state functions of the button for which it is called.
 *
 * \section pushbuttoncompat Compatibility notes
 * - A caption in a strip is always elided, to the width of the whole button, whatever the value of
 *   \c trimText.
 * - A state function that sets a foreground brush where there is none changes the layout of a
 *   button with a pixmap. The default disabled look does so.
 */
class KELGDI_EXPORT KELPushButton : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates a button as a child item of \a parent, or without a parent if it is null.
    explicit KELPushButton(QGraphicsObject *parent = nullptr);
    //! Destroys the button.
    ~KELPushButton() override;

    //! Sets the look while pressed. An empty function leaves the look unchanged. The default sets
    //! the background to RGBA (50, 70, 100, 200). Does not repaint the button.
    void setIsMouseDownTemplate(const std::function<void(KELPushButtonStyle &)> &look);

    //! Sets the look while checked. An empty function, the default, leaves the look unchanged. Does
    //! not repaint the button.
    void setIsCheckedTemplate(const std::function<void(KELPushButtonStyle &)> &look);

    //! Sets the look while disabled. An empty function leaves the look unchanged. The default sets
    //! the caption and the outline to RGBA (150, 150, 150, 100). Does not repaint the button.
    void setIsDisableTemplate(const std::function<void(KELPushButtonStyle &)> &look);

    /*!
     * Fills \a option, which must be a newly created record, with what the button shows in its
     * current state. \a styleOption is not used. In addition to
     * KELRoundRectControl::initStyleOption() it copies \c iconMargins and the two states and
     * applies the state functions. \a option must not be null.
     */
    void initStyleOption(KELPushButtonStyle *option,
                         const QStyleOptionGraphicsItem *styleOption) const;

    //! Paints the button with \a painter; \a styleOption and \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Creates the button's record: the current look, but with the background RGBA (0, 0, 0, 20)
    //! and a 2 px outline. For constructors only; see KELRoundRectControl::initStyle().
    KELPushButtonStyle *initStyle() override;

protected:
    //! Consumes presses, releases and double clicks of any button but the left one on child items.
    //! While the button handles the events of its children, as it does by default, it ignores the
    //! start of a touch there, so that Qt turns it into a press. \a watched is not used.
    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(KELPushButton)

    Q_DECL_HIDDEN const KELPushButtonStyle *buttonStyle() const;

    // Compat: the names without m_.
    std::function<void(KELPushButtonStyle &)> isMouseDownTemplate;
    std::function<void(KELPushButtonStyle &)> isCheckedTemplate;
    std::function<void(KELPushButtonStyle &)> isDisableTemplate;
};

#endif
