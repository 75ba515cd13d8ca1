// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "sheets.h"

#include <keliconfont.h>
#include <kelpicker.h>
#include <kelpindialog.h>
#include <kelpushbutton.h>

#include <QtWidgets/QGraphicsLinearLayout>

namespace {

constexpr ushort moon = 0xf186;
constexpr ushort clock = 0xf017;
constexpr ushort lock = 0xf023;

KELRow *newRow(PictureBook *book, KELRow::End end, bool isChecked = false)
{
    auto *const row = new KELRow;
    row->setGlyph(KELIconFont(moon));
    row->setCaption(book->say(u"Dark at night"_s, u"داكن ليلاً"_s));
    row->setDetail(book->say(u"From sunset to sunrise"_s, u"من الغروب إلى الشروق"_s));
    if (end == KELRow::Value || end == KELRow::Arrow)
        row->setValue(book->say(u"5 minutes"_s, u"٥ دقائق"_s));
    row->setEnd(end);
    row->setChecked(isChecked);
    return row;
}

template <class Part>
Part *disabled(Part *part)
{
    part->setEnabled(false);
    return part;
}

PictureBook::Act pressOn(PictureBook *book, const QGraphicsItem *item)
{
    return [book, item](Hand *hand) { hand->press(book->middleOf(item)); };
}

PictureBook::Act focusOn(QGraphicsWidget *part)
{
    return [part](Hand * /*hand*/) { part->setFocus(Qt::TabFocusReason); };
}

void fillEnds(PictureBook *book)
{
    book->add(u"no end"_s, newRow(book, KELRow::NoEnd));
    book->add(u"switch, off"_s, newRow(book, KELRow::Switch));
    book->add(u"switch, on"_s, newRow(book, KELRow::Switch, true));
    book->add(u"radio, off"_s, newRow(book, KELRow::Radio));
    book->add(u"radio, on"_s, newRow(book, KELRow::Radio, true));
    book->add(u"value"_s, newRow(book, KELRow::Value));
    book->add(u"arrow"_s, newRow(book, KELRow::Arrow));
    book->add(u"switch, off, disabled"_s, disabled(newRow(book, KELRow::Switch)));
    book->add(u"switch, on, disabled"_s, disabled(newRow(book, KELRow::Switch, true)));
    book->add(u"radio, on, disabled"_s, disabled(newRow(book, KELRow::Radio, true)));
    book->add(u"arrow, disabled"_s, disabled(newRow(book, KELRow::Arrow)));
}

// Rows below each other, which form a card.
QGraphicsWidget *newCard(PictureBook *book, KELRow **middle)
{
    auto *const card = new QGraphicsWidget;
    auto *const layout = new QGraphicsLinearLayout(Qt::Vertical, card);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    KELRow *const rows[] = {newRow(book, KELRow::Switch, true), newRow(book, KELRow::Arrow),
                            newRow(book, KELRow::Arrow)};
    rows[1]->setGlyph(KELIconFont(lock));
    rows[1]->setCaption(book->say(u"PIN"_s, u"رمز PIN"_s));
    rows[1]->setDetail(QString());
    rows[2]->setGlyph(KELIconFont(clock));
    rows[2]->setCaption(book->say(u"Lock after"_s, u"القفل بعد"_s));
    rows[2]->setDetail(QString());
    for (KELRow *row : rows)
        layout->addItem(row);
    KELRow::formCard({rows[0], rows[1], rows[2]});
    *middle = rows[1];
    return card;
}

void fillPickerRows(PictureBook *book, KELPicker *picker)
{
    QStringList items;
    for (int i = 1; i <= 30; ++i)
        items += book->say(u"%1 minutes"_s, u"%1 دقيقة"_s).arg(i);
    picker->setGlyph(KELIconFont(clock));
    picker->setCaption(book->say(u"Lock after"_s, u"القفل بعد"_s));
    picker->setPlaceholder(book->say(u"Not set"_s, u"غير محدد"_s));
    picker->setItems(items);
    picker->setCurrentIndex(4);
}

KELPicker *newPicker(PictureBook *book)
{
    auto *const picker = new KELPicker;
    fillPickerRows(book, picker);
    return picker;
}

void addOpenPicker(PictureBook *book, const QString &state, qreal place)
{
    book->addPage(state, [book, place](Hand *hand) {
        auto *const picker = new KELPicker(book->screen()->currentPage());
        fillPickerRows(book, picker);
        const QSizeF size = book->screen()->size();
        const qreal height = picker->effectiveSizeHint(Qt::PreferredSize).height();
        picker->setGeometry(24, 24 + place * (size.height() - 48 - height),
                            qMin(480.0, size.width() - 48), height);
        QCoreApplication::processEvents();
        hand->tap(book->middleOf(picker));
    });
}

QGraphicsItem *keyOf(const KELPinDialog *dialog, const QString &text)
{
    const QList<QGraphicsItem *> items = dialog->scene()->items();
    for (QGraphicsItem *item : items) {
        auto *const key = qobject_cast<KELPushButton *>(item->toGraphicsObject());
        if (key && key->text() == text)
            return key;
    }
    return nullptr;
}

void addPinDialog(PictureBook *book, const QString &state, int digits, const QString &pressedKey)
{
    book->addPage(state, [book, digits, pressedKey](Hand *hand) {
        auto *const below = new KELRow(book->screen()->currentPage());
        below->setCaption(book->say(u"Behind the dialog"_s, u"خلف النافذة"_s));
        below->setGeometry(24, 24, book->screen()->width() - 48, 64);
        auto *const dialog = new KELPinDialog;
        dialog->setCaption(book->say(u"Enter your PIN"_s, u"أدخل رمز PIN"_s));
        dialog->open(book->screen()->scene());
        QCoreApplication::processEvents();
        for (int i = 0; i < digits; ++i)
            QTest::keyClick(book->screen()->viewport(), Qt::Key_1);
        if (!pressedKey.isEmpty())
            hand->press(book->middleOf(keyOf(dialog, pressedKey)));
    });
}

} // namespace

void fillRows(PictureBook *book)
{
    fillEnds(book);
    KELRow *row = newRow(book, KELRow::Switch, true);
    book->add(u"pressed"_s, row, pressOn(book, row));
    row = newRow(book, KELRow::Radio);
    book->add(u"focused"_s, row, focusOn(row));

    row = new KELRow;
    row->setCaption(book->say(u"Brightness"_s, u"السطوع"_s));
    book->add(u"caption alone"_s, row);
    row = newRow(book, KELRow::Arrow);
    row->setCaption(row->caption() + u" "_s + row->detail() + u" "_s + row->detail());
    row->setDetail(row->caption() + u" "_s + row->caption());
    book->add(u"elided"_s, row);
    row = newRow(book, KELRow::Switch);
    row->partStyle()->font.setPixelSize(40);
    row->partStyle()->secondaryFont.setPixelSize(30);
    row->styleChanged();
    book->add(u"large fonts"_s, row);
    row = newRow(book, KELRow::Arrow);
    row->setCard(KELRow::WholeCard);
    book->add(u"a card of one row"_s, row);

    KELRow *middle = nullptr;
    QGraphicsWidget *card = newCard(book, &middle);
    book->add(u"card"_s, card);
    card = newCard(book, &middle);
    book->add(u"card, a row pressed"_s, card, pressOn(book, middle));
    card = newCard(book, &middle);
    book->add(u"card, a row focused"_s, card, focusOn(middle));
}

void fillPickers(PictureBook *book)
{
    book->add(u"closed"_s, newPicker(book));
    KELPicker *picker = newPicker(book);
    picker->setCurrentIndex(-1);
    book->add(u"without a current entry"_s, picker);
    book->add(u"disabled"_s, disabled(newPicker(book)));
    picker = newPicker(book);
    book->add(u"pressed"_s, picker, pressOn(book, picker));
    picker = newPicker(book);
    book->add(u"focused"_s, picker, focusOn(picker));
    addOpenPicker(book, u"open, at the top"_s, 0);
    addOpenPicker(book, u"open, in the middle"_s, 0.5);
    addOpenPicker(book, u"open, at the bottom"_s, 1);
}

void fillPinDialogs(PictureBook *book)
{
    addPinDialog(book, u"open"_s, 0, QString());
    addPinDialog(book, u"two digits"_s, 2, QString());
    addPinDialog(book, u"a key pressed"_s, 0, u"5"_s);
}
