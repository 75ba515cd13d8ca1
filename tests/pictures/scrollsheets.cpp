// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "sheets.h"

#include <kellist.h>
#include <kelrange.h>

#include <QtGui/QStandardItemModel>

namespace {

KELRange *newRange(double value)
{
    auto *const range = new KELRange;
    range->setValue(value);
    range->setSuffix(u" %"_s);
    return range;
}

PictureBook::Act pressOn(PictureBook *book, const QGraphicsItem *item)
{
    return [book, item](Hand *hand) { hand->press(book->middleOf(item)); };
}

QStandardItem *newEntry(PictureBook *book, int number)
{
    auto *const entry = new QStandardItem(book->say(u"Sensor %1"_s, u"مستشعر %1"_s).arg(number));
    entry->setData(QString(QChar(0xf0e4)), Qt::DecorationRole);
    if (number % 2 == 0)
        entry->setData(book->say(u"Cellar"_s, u"القبو"_s), KELList::DetailRole);
    if (number % 3 == 0)
        entry->setData(number % 2 == 0 ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    else
        entry->setData(u"%1 °C"_s.arg(17 + number), KELList::ValueRole);
    entry->setData(number < 4 ? book->say(u"GROUND FLOOR"_s, u"الطابق الأرضي"_s)
                              : book->say(u"FIRST FLOOR"_s, u"الطابق الأول"_s),
                   KELList::SectionRole);
    entry->setEnabled(number != 5);
    return entry;
}

KELList *newList(PictureBook *book)
{
    auto *const list = new KELList;
    auto *const model = new QStandardItemModel(list);
    for (int i = 1; i <= 40; ++i)
        model->appendRow(newEntry(book, i));
    list->setModel(model);
    return list;
}

QPoint rowOf(const KELList *list, int row)
{
    return list->mapToScene(list->rowRect(row).center()).toPoint();
}

// Held, so that the list stays where it was pulled to.
PictureBook::Act pullFrom(PictureBook *book, const KELList *list, int distance)
{
    return [book, list, distance](Hand *hand) {
        const QPoint middle = book->middleOf(list);
        hand->press(middle);
        for (int i = 1; i <= 8; ++i)
            hand->move(middle + QPoint(0, distance * i / 8));
    };
}

} // namespace

void fillRanges(PictureBook *book)
{
    book->add(u"minimum"_s, newRange(0));
    book->add(u"between"_s, newRange(70));
    book->add(u"maximum"_s, newRange(100));
    KELRange *range = newRange(40);
    range->setStep(10);
    range->setTickInterval(10);
    book->add(u"ticks"_s, range);
    range = newRange(70);
    range->setEnabled(false);
    book->add(u"disabled"_s, range);
    range = newRange(50);
    book->add(u"pressed"_s, range, pressOn(book, range));
    range = newRange(50);
    range->setBubbleShown(true);
    range->setTickInterval(25);
    book->add(u"pressed, with a bubble and ticks"_s, range, pressOn(book, range));
    range = newRange(30);
    book->add(u"focused"_s, range,
              [range](Hand * /*hand*/) { range->setFocus(Qt::TabFocusReason); });
    range = newRange(70);
    range->setOrientation(Qt::Vertical);
    range->setTickInterval(10);
    book->add(u"vertical"_s, range, PictureBook::Act(), 192);
    range = newRange(50);
    range->setOrientation(Qt::Vertical);
    range->setBubbleShown(true);
    book->add(u"vertical, pressed"_s, range, pressOn(book, range), 192);
}

void fillLists(PictureBook *book)
{
    book->addPage(u"rows"_s, newList(book));

    KELList *list = newList(book);
    list->setSectionsShown(true);
    list->setSelectable(true);
    list->setCurrentRow(1);
    book->addPage(u"headings, a current row"_s, list);

    list = newList(book);
    list->setSelectable(true);
    list->setCurrentRow(0);
    book->addPage(u"a pressed row"_s, list, [list](Hand *hand) {
        hand->press(rowOf(list, 1));
        QTest::qWait(200); // a list shows a press when it is sure that it is none of a drag
    });

    list = newList(book);
    list->setSectionsShown(true);
    book->addPage(u"follows the finger, with a mark"_s, list, pullFrom(book, list, -90));
    list = newList(book);
    book->addPage(u"pulled beyond the top"_s, list, pullFrom(book, list, 90));

    list = newList(book);
    list->setSelectable(true);
    list->setCurrentRow(0);
    book->addPage(u"focused"_s, list, [list](Hand * /*hand*/) {
        list->setFocus(Qt::TabFocusReason);
        QTest::keyClick(list->scene()->views().first()->viewport(), Qt::Key_Down);
    });

    list = newList(book);
    list->setEnabled(false);
    book->addPage(u"disabled"_s, list);

    list = new KELList;
    list->setEmptyText(book->say(u"No sensors found"_s, u"لم يعثر على مستشعرات"_s));
    book->addPage(u"empty"_s, list);
}
