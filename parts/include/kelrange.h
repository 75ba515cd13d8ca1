// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELRANGE_H
#define KELRANGE_H

#include "kelpart.h"

#include <QtCore/QString>

class KELRangePrivate;

/*!
 * \brief A slider: a track with a round knob that follows the finger.
 *
 * \code
 * auto *brightness = new KELRange;
 * brightness->setRange(10, 100);
 * brightness->setStep(5);
 * brightness->setSuffix(" %");
 * brightness->setBubbleShown(true);
 * QObject::connect(brightness, &KELRange::valueChanged, &backlight, &Backlight::setPercent);
 * layout->addItem(brightness);
 * \endcode
 *
 * A horizontal range has more on the right or, in a right-to-left layout, on the left. A vertical
 * one has more at the top.
 *
 * \section rangevalue Value and step
 * The value is a double from minimum() to maximum(), default 0 from 0 to 100. With a step() it is
 * the minimum, a whole number of steps above it, or the maximum, which may be less than a step
 * above the value before it. Each value goes to the nearest of these, one exactly between two steps
 * to the upper one. A value outside the bounds becomes the nearest bound. All setters ignore NaN
 * and infinities.
 *
 * Set the bounds before the value: a new bound changes a value that lies outside it.
 *
 * A setter emits a signal only for a change. So two ranges, or a range and a model, may set each
 * other in their slots.
 *
 * \section rangepress Presses
 * The whole part is the target. A press on the knob, or beside it across the track, takes hold of
 * it where it is: the knob stays until the finger moves. A press anywhere else brings the knob
 * there first. Then the knob follows the finger along the track; what the finger does across the
 * track has no effect, even outside the part.
 * \code
 * press on the knob, drag, release --> pressed, valueChanged for each change, released
 * press elsewhere, release ----------> pressed, valueChanged, released
 * \endcode
 * A range takes every press. If an item around it takes the press over, to scroll for example, the
 * press is lost. The value stays as it is then.
 *
 * \section rangekeys Keys and wheel
 * | key, without a modifier             | effect                                                |
 * | ----------------------------------- | ----------------------------------------------------- |
 * | right, up                           | one step more; mirrored, right is a step less         |
 * | left, down                          | one step less; mirrored, left is a step more          |
 * | page up, page down                  | ten steps more, ten steps less                        |
 * | home, end                           | the minimum, the maximum                              |
 *
 * Without a step(), a hundredth of the range counts as one. A notch of the wheel is one step. The
 * range takes the wheel even at its ends, where nothing changes. While the range is pressed, the
 * wheel does nothing.
 *
 * \section rangelook Look and size
 * The track is 8 px wide and 4 px away from the ends of the part. The knob is a circle of 28 px; in
 * a part less than 36 px long or wide it shrinks, and with it the track. Both lie in the middle of
 * the part across the track, or as far below as the bubble needs. Ticks are 6 px long, on the side
 * away from the bubble.
 *
 * The value bubble appears while the range is pressed: above the knob of a horizontal range, and
 * before the knob of a vertical one. It stays inside the part, and the size hints have room for it.
 *
 * These fields of partStyle() are used: \c trackBrush; \c accentBrush for the filled part of the
 * track, the knob while it is pressed, the ground of the bubble and the focus ring around the knob;
 * \c knobBrush; \c mutedBrush for the ticks; \c accentForegroundBrush and \c font for the text of
 * the bubble; \c disabledBrush for the filled part, the knob and the ticks of a disabled range.
 *
 * The size hints ask for KELTouch::leastSize() across the track, or for more if the bubble needs
 * it, and along it for at least 2 and preferably 4 times that size. There is no largest size.
 */
class KELGDIPARTS_EXPORT KELRange : public KELPart
{
    Q_OBJECT
    //! The value. The default is 0.
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY valueChanged)
    //! The lower bound. The default is 0.
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum)
    //! The upper bound. The default is 100.
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum)
    //! The step. 0, the default, means that the value is continuous.
    Q_PROPERTY(double step READ step WRITE setStep)
    //! The distance of the ticks, in units of the value. 0, the default, means that there are none.
    Q_PROPERTY(double tickInterval READ tickInterval WRITE setTickInterval)
    //! The direction of the track. The default is Qt::Horizontal.
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation)
    //! Whether a bubble shows the value while the range is pressed. The default is false.
    Q_PROPERTY(bool bubbleShown READ isBubbleShown WRITE setBubbleShown)
    //! The number of decimals in the bubble. The default is 0.
    Q_PROPERTY(int decimals READ decimals WRITE setDecimals)
    //! What follows the number in the bubble. The default is empty.
    Q_PROPERTY(QString suffix READ suffix WRITE setSuffix)

public:
    //! Creates a horizontal range from 0 to 100 with value 0, as a child item of \a parent, or
    //! without a parent if it is null.
    explicit KELRange(QGraphicsItem *parent = nullptr);
    //! Destroys the range. No signal is emitted.
    ~KELRange() override;

    //! Returns the value. The default is 0.
    double value() const;
    //! Returns the lower bound. The default is 0.
    double minimum() const;
    //! Returns the upper bound. The default is 100.
    double maximum() const;
    //! Returns the step, or 0, the default, if the value is continuous.
    double step() const;
    //! Returns the distance of the ticks, or 0, the default, if there are none.
    double tickInterval() const;
    //! Returns the direction of the track. The default is Qt::Horizontal.
    Qt::Orientation orientation() const;
    //! Returns whether a bubble shows the value while the range is pressed. The default is false.
    bool isBubbleShown() const;
    //! Returns the number of decimals in the bubble. The default is 0.
    int decimals() const;
    //! Returns what follows the number in the bubble. The default is empty.
    QString suffix() const;

    //! Sets both bounds. If \a maximum is less than \a minimum, it counts as \a minimum: the value
    //! cannot change. Bounds beyond 1e300 and -1e300 count as these. The value goes to the nearest
    //! allowed one, with valueChanged() if it is another. Does nothing if a bound is NaN or
    //! infinite.
    void setRange(double minimum, double maximum);
    //! Sets the lower bound as setRange() does. A maximum below it is raised to it.
    void setMinimum(double minimum);
    //! Sets the upper bound as setRange() does. A minimum above it is lowered to it.
    void setMaximum(double maximum);
    //! Sets the step. A negative one counts as 0: the value is continuous. A step of less than the
    //! range / 1e15 has no effect. The value goes to the nearest allowed one, with valueChanged()
    //! if it is another.
    void setStep(double step);
    //! Sets the distance of the ticks from the minimum on. A negative one counts as 0: none. Ticks
    //! that would be less than 4 px apart are not drawn.
    void setTickInterval(double interval);
    //! Sets the direction of the track. Horizontal and vertical size policies are exchanged.
    void setOrientation(Qt::Orientation orientation);
    //! Sets whether a bubble shows the value while the range is pressed.
    void setBubbleShown(bool shown);
    //! Sets the number of decimals in the bubble, limited to 0 to 15.
    void setDecimals(int decimals);
    //! Sets what follows the number in the bubble, such as a unit with a space before it.
    void setSuffix(const QString &suffix);

    //! Returns the text of the bubble for \a value: the number in the default QLocale with
    //! decimals(), and suffix(). Override it for another text. It is called whenever the bubble is
    //! painted, and for both bounds when the size hints are computed. It must not delete the range.
    virtual QString textOf(double value) const;

    //! Paints the range with \a painter; \a option and \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

public Q_SLOTS:
    //! Sets the value to \a value by the rules of \ref rangevalue and emits valueChanged() if it
    //! changes, also while the range is pressed: the next move of the finger sets it again.
    void setValue(double value);

Q_SIGNALS:
    //! The value changed to \a value, by whatever means.
    void valueChanged(double value);
    //! The range was pressed. isPressed() is true. Emitted before the valueChanged() of the press.
    void pressed();
    //! The press has ended: it was released, after the last valueChanged(), or lost. For a lost
    //! press the signal comes in a later iteration of the event loop.
    void released();

protected:
    //! Takes hold of the knob; see \ref rangepress.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void dragEvent(const QPointF &pos, bool isDrag) override;
    void releaseEvent(const QPointF &pos, bool isTap) override;
    void pressLostEvent() override;
    //! Moves by a step for each notch; see \ref rangekeys.
    void wheelEvent(QGraphicsSceneWheelEvent *event) override;
    //! Handles the keys of \ref rangekeys and leaves others to the items around.
    void keyPressEvent(QKeyEvent *event) override;
    //! Returns the size hints of \ref rangelook. \a constraint is not used.
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;

private:
    Q_DISABLE_COPY(KELRange)
    friend class KELRangePrivate;

    KELRangePrivate *const d;
};

#endif
