// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELROW_H
#define KELROW_H

#include "kelpart.h"

#include <QtCore/QList>
#include <QtCore/QString>

QT_BEGIN_NAMESPACE
class QPixmap;
QT_END_NAMESPACE

class KELIconFont;
class KELRowPrivate;

/*!
 * \brief A row of a screen: a caption, a second line, a glyph, and a switch, radio mark, value or
 * arrow at its end. The whole row is the target.
 *
 * \code
 * auto *row = new KELRow(page);
 * row->setGlyph(KELIconFont(0xf186));
 * row->setCaption("Dark at night");
 * row->setDetail("From sunset to sunrise");
 * row->setEnd(KELRow::Switch);
 * QObject::connect(row, &KELRow::checkedChanged, model, &Model::setDark);
 * layout->addItem(row);
 * KELRow::formCard({brightness, row, textSize}); // with an outline and round corners
 * \endcode
 *
 * From its start to its end a row shows the picture or the glyph, the caption with the detail below
 * it, the value, and the mark of its end. All of them may be empty. In a layout from right to left
 * the row is mirrored, and the arrow with it.
 *
 * \section rowtext Text
 * Texts are plain and take one line. Any white space, line breaks included, is drawn as one blank.
 * A text that does not fit is elided. It is not drawn if not even the ellipsis fits, and neither is
 * a glyph or a mark that is wider than the room that is left. The value takes up to half of the
 * room for text, and more if the caption leaves more. A text is at the start of its room, and reads
 * in the direction of its first letter.
 *
 * \section rowtap A tap
 * A tap anywhere on the row, and the keys Space, Enter, Return and Select, emit
 * \code
 * checkedChanged, clicked     // Switch, and an unchecked Radio
 * clicked                     // everything else
 * \endcode
 * A tap turns a Switch on or off and checks a Radio. The ground shows a press at once; the knob of
 * a switch glides for KELMotion::switchMs, unless the row is not visible.
 *
 * \section rowradio Radio rows
 * Of the Radio rows with the same parent item, one at most is checked; without a parent item, of
 * those in the same scene. Checking one, by a tap or from code, unchecks the others. It emits
 * \code
 * other row checkedChanged(false), this row checkedChanged(true), this row clicked (after a tap)
 * \endcode
 * Both rows have their new state before the first signal. If a row is unchecked from code, none is
 * checked. A row that becomes a Radio, or gets another parent item, while it is checked stays
 * checked until another one is checked.
 *
 * \section rowstyle Style
 * backgroundBrush fills the row, pressedBrush a pressed one. foregroundBrush draws the caption,
 * mutedBrush the detail, the value, the arrow and an empty radio mark, accentBrush the glyph, a
 * switch that is on, a checked radio mark and the focus ring of 2 px. trackBrush, knobBrush and
 * accentForegroundBrush draw the switch. A disabled row draws text, glyph and mark with
 * disabledBrush, and a picture half transparent. font is that of the caption and the value,
 * secondaryFont that of the detail. The room between glyph, caption, value and mark is twice
 * \c spacing, that between the lines half of it. borderBrush and \c borderWidth draw the separator
 * and the outline of a card, whose corners have the radius \c radius. Without a card the row has
 * square corners and no outline.
 *
 * The row asks for \c rowHeight, at least KELTouch::leastSize(), and more if the lines and the
 * margins need it. A switch is 56 x 32 px, a radio mark 24 px across.
 */
class KELGDIPARTS_EXPORT KELRow : public KELPart
{
    Q_OBJECT
    //! The text of the row. The default is empty.
    Q_PROPERTY(QString caption READ caption WRITE setCaption)
    //! The second line. The default is empty: the row has one line.
    Q_PROPERTY(QString detail READ detail WRITE setDetail)
    //! The text before the mark of the end. The default is empty.
    Q_PROPERTY(QString value READ value WRITE setValue)
    //! What is at the end. The default is NoEnd.
    Q_PROPERTY(End end READ end WRITE setEnd)
    //! Whether the Switch is on or the Radio is checked. The default is false.
    Q_PROPERTY(bool checked READ isChecked WRITE setChecked NOTIFY checkedChanged)
    //! Whether a line is drawn at the bottom. The default is true.
    Q_PROPERTY(bool separator READ hasSeparator WRITE setSeparator)
    //! Which part of a card the row is. The default is NoCard.
    Q_PROPERTY(Card card READ card WRITE setCard)

public:
    //! What is at the end of a row.
    enum End : int {
        NoEnd, //!< Nothing.
        Switch, //!< A switch, which a tap turns on and off.
        Radio, //!< A radio mark, which a tap checks.
        Value, //!< The value alone.
        Arrow //!< An arrow: the row leads to another page.
    };
    Q_ENUM(End)

    //! Which part of a card a row is: a ground with an outline and round corners for one row or
    //! several below each other.
    enum Card : int {
        NoCard, //!< None: the row has square corners and no outline.
        CardTop, //!< The first row of a card.
        CardMiddle, //!< A row between others.
        CardBottom, //!< The last row.
        WholeCard //!< The only row.
    };
    Q_ENUM(Card)

    //! Creates an empty row as a child item of \a parent, or without a parent if it is null.
    explicit KELRow(QGraphicsItem *parent = nullptr);
    //! Destroys the row.
    ~KELRow() override;

    //! Returns the text of the row.
    QString caption() const;
    //! Sets the text of the row to \a caption.
    void setCaption(const QString &caption);

    //! Returns the second line.
    QString detail() const;
    //! Sets the second line to \a detail. With an empty text the row has one line.
    void setDetail(const QString &detail);

    //! Returns the text before the mark of the end.
    QString value() const;
    //! Sets the text before the mark of the end to \a value. It is drawn with every end.
    void setValue(const QString &value);

    //! Returns the glyph at the start. Its code is 0 when there is none.
    KELIconFont glyph() const;
    //! Sets the glyph at the start to \a glyph; code 0 removes it. It is drawn at \c iconSize px in
    //! the font that KELIconFont::installFont() has installed; the size of \a glyph is not used.
    void setGlyph(const KELIconFont &glyph);

    //! Returns the picture at the start.
    QPixmap picture() const;
    //! Sets the picture at the start to \a picture, which is drawn instead of the glyph; a null one
    //! removes it. A picture larger than \c iconSize px is drawn smaller.
    void setPicture(const QPixmap &picture);

    //! Returns what is at the end.
    End end() const;
    //! Sets what is at the end to \a end. A value that is not one of End counts as NoEnd.
    void setEnd(End end);

    //! Returns whether the Switch is on or the Radio is checked.
    bool isChecked() const;
    //! Turns the Switch on or off, or checks or unchecks the Radio, and emits checkedChanged() if
    //! that changes. A row with another end keeps the state but does not show it.
    void setChecked(bool checked);

    //! Returns whether a line is drawn at the bottom.
    bool hasSeparator() const;
    //! Draws a line of \c borderWidth px and \c borderBrush at the bottom, inside the row, if \a
    //! separator is true.
    void setSeparator(bool separator);

    //! Returns which part of a card the row is.
    Card card() const;
    //! Makes the row the part \a card of a card. A value that is not one of Card counts as NoCard.
    //! The last row of a card has no separator.
    void setCard(Card card);
    //! Makes \a rows one card, from the first to the last: calls setCard() of each. A null pointer
    //! is skipped. Place the rows below each other without space between them.
    static void formCard(const QList<KELRow *> &rows);

    //! Paints the row with \a painter; \a option and \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

Q_SIGNALS:
    //! The row is now on or checked if \a checked is true, else off or unchecked.
    void checkedChanged(bool checked);
    //! The row was tapped, or its key was pressed. Emitted after checkedChanged().
    void clicked();

protected:
    void releaseEvent(const QPointF &pos, bool isTap) override;
    void keyPressEvent(QKeyEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;

private:
    Q_DISABLE_COPY(KELRow)
    friend class KELRowPrivate;
    KELRowPrivate *const d;
};

#endif
