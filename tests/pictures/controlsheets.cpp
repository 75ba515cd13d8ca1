// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "sheets.h"

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kellabel.h>
#include <kellayout.h>
#include <kellineitem.h>
#include <kelnavigationtable.h>
#include <kelprocessbar.h>
#include <kelpushbutton.h>
#include <kelradiobox.h>
#include <kelslidecontrol.h>

#include <QtWidgets/QGraphicsGridLayout>
#include <QtWidgets/QGraphicsLayoutItem>
#include <QtWidgets/QGraphicsLinearLayout>

namespace {

constexpr QSizeF buttonSize(160, 56);

template <class Control>
Control *titled(Control *control, const QString &text)
{
    control->setText(text);
    return control;
}

template <class Control>
Control *checked(Control *control)
{
    control->setCheck(true);
    return control;
}

template <class Control>
Control *disabled(Control *control)
{
    control->setEnabled(false);
    return control;
}

// For controls that want their rectangle to begin at (0, 0).
QGraphicsWidget *laidOut(KELRoundRectControl *control)
{
    auto *const place = new QGraphicsWidget;
    auto *const layout = new QGraphicsLinearLayout(place);
    layout->setContentsMargins(0, 0, 0, 0);
    KELLayout::add(layout, control);
    return place;
}

KELPushButton *newButton(PictureBook *book)
{
    return titled(new KELPushButton, book->say(u"Start"_s, u"ابدأ"_s));
}

void addButtons(PictureBook *book)
{
    book->add(u"button"_s, newButton(book), buttonSize);
    book->add(u"button, checked"_s, checked(newButton(book)), buttonSize);
    book->add(u"button, disabled"_s, disabled(newButton(book)), buttonSize);
    auto *const button = newButton(book);
    book->add(u"button, pressed"_s, button, buttonSize,
              [book, button](Hand *hand) { hand->press(book->middleOf(button)); });
}

void addBoxes(PictureBook *book)
{
    constexpr QSizeF checkSize(84, 34);
    constexpr QSizeF radioSize(40, 40);
    book->add(u"check box, off"_s, new KELCheckBox, checkSize);
    book->add(u"check box, on"_s, checked(new KELCheckBox), checkSize);
    book->add(u"radio box, off"_s, new KELRadioBox, radioSize);
    book->add(u"radio box, on"_s, checked(new KELRadioBox), radioSize);
}

void addBars(PictureBook *book)
{
    for (const int value : {0, 50, 100}) {
        auto *const bar = new KELProcessBar;
        book->add(u"progress %1"_s.arg(value), bar, QSizeF(320, 30));
        bar->setValue(value);
    }
    for (const float value : {0.0F, 70.0F}) {
        auto *const slider = new KELSlideControl;
        book->add(u"slider %1"_s.arg(double(value)), slider, QSizeF(320, 40));
        slider->setValue(value);
    }
    auto *const slider = disabled(new KELSlideControl);
    book->add(u"slider, disabled"_s, slider, QSizeF(320, 40));
    slider->setValue(30);
    book->add(u"line"_s, laidOut(new KELLineItem), PictureBook::Act(), 10);
}

KELNavigationTable *newTable(PictureBook *book)
{
    auto *const table = new KELNavigationTable;
    for (const QString &title :
         {book->say(u"Home"_s, u"الرئيسية"_s), book->say(u"Settings"_s, u"الإعدادات"_s)}) {
        auto *const page = new KELNavigationTableItem;
        page->setText(title);
        table->addItem(page);
    }
    return table;
}

void addCombo(PictureBook *book)
{
    auto *const combo = new KELComboBox;
    for (const char16_t *name : {u"Slow", u"Fast", u"Automatic"})
        combo->addItem(0, QString::fromUtf16(name));
    combo->setSelectIndex(1);
    book->add(u"combo box"_s, combo, QSizeF(200, 50));
}

QGraphicsWidget *newKeypad()
{
    auto *const page = new QGraphicsWidget;
    auto *const grid = new QGraphicsGridLayout(page);
    auto *const display = titled(new KELRoundRectControl, u"1,234.5"_s);
    KELLayout::add(grid, display, 0, 0, 1, 4);
    KELLayout::item(display)->setMinimumHeight(48);
    page->setLayoutDirection(Qt::LeftToRight); // numbers are not mirrored
    for (const QChar key : u"789/456*123-0.=+"_s)
        KELLayout::addCell(grid, titled(new KELPushButton, key), 4);
    return page;
}

QGraphicsWidget *newForm(PictureBook *book)
{
    auto *const page = new QGraphicsWidget;
    auto *const grid = new QGraphicsGridLayout(page);
    KELLayout::addRow(grid, book->say(u"DISPLAY"_s, u"العرض"_s), nullptr);
    auto *const slider = new KELSlideControl;
    KELLayout::addRow(grid, book->say(u"Brightness"_s, u"السطوع"_s), slider);
    slider->setValue(70);
    KELLayout::addRow(grid, book->say(u"Dark at night"_s, u"داكن ليلاً"_s),
                      checked(new KELCheckBox));
    KELLayout::addRow(grid, book->say(u"Economical"_s, u"اقتصادي"_s), new KELRadioBox);
    auto *const bar = new KELProcessBar;
    KELLayout::addRow(grid, book->say(u"Memory"_s, u"الذاكرة"_s), bar);
    bar->setValue(40);
    return page;
}

} // namespace

void fillControls(PictureBook *book)
{
    const QString text = book->say(u"Living room"_s, u"غرفة المعيشة"_s);
    book->add(u"label"_s, titled(new KELLabel, text), buttonSize);
    book->add(u"card"_s, titled(new KELRoundRectControl, text), buttonSize);
    addButtons(book);
    addBoxes(book);
    addBars(book);
    addCombo(book);
    book->add(u"navigation table"_s, laidOut(newTable(book)), PictureBook::Act(), 200);
}

void fillLayouts(PictureBook *book)
{
    book->addPage(u"keypad"_s, newKeypad());
    book->addPage(u"form"_s, newForm(book));
}
