// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"

#include <QtCore/QMetaEnum>

namespace {

const QBrush white = QColor(Qt::white);

} // namespace

class tst_KELComboBoxEntries : public KelTest
{
    Q_OBJECT

public:
    enum Fruit { A = 7, B = 9 };
    Q_ENUM(Fruit)

private Q_SLOTS:
    void newEntry()
    {
        const KELComboBoxItem item;
        QVERIFY(item.display().isNull());
        QVERIFY(!item.value().isValid());
        QVERIFY(!item.parentItem());
        QCOMPARE(item.childItems().size(), 1);
        QCOMPARE(item.rect(), QRectF(0, 0, 100, 30));
        QCOMPARE(labelOf(&item)->style()->boundRect, QRectF(0, 0, 100, 30));
        QCOMPARE(labelOf(&item)->text(), QString());
        QCOMPARE(labelOf(&item)->style()->foregroundBrush, white);
    }

    void entryHasNeitherFillNorOutline()
    {
        const KELComboBoxItem item;
        const auto *style = static_cast<const KELPushButtonStyle *>(item.style());
        QCOMPARE(style->backgroundBrush.style(), Qt::NoBrush);
        QCOMPARE(style->borderBrush.style(), Qt::NoBrush);
        QCOMPARE(style->borderWidth, 0.0F);
        QCOMPARE(style->iconMargins, QMarginsF(5, 1, 5, 1));
        QVERIFY(item.flags().testFlag(QGraphicsItem::ItemIsSelectable));
    }

    void displayOfAnEntry()
    {
        KELComboBoxItem item;
        item.setDisplay(u"Slow"_s);
        QCOMPARE(item.display(), u"Slow"_s);
        QCOMPARE(labelOf(&item)->text(), u"Slow"_s);
        QCOMPARE(item.text(), QString());
        item.setDisplay(QString());
        QCOMPARE(item.display(), QString());
        QCOMPARE(labelOf(&item)->text(), QString());
    }

    void valueOfAnEntry()
    {
        KELComboBoxItem item;
        item.setDisplay(u"Slow"_s);
        item.setValue(QSize(3, 4));
        QCOMPARE(item.value(), QVariant(QSize(3, 4)));
        QCOMPARE(item.display(), u"Slow"_s);
        QCOMPARE(labelOf(&item)->text(), u"Slow"_s);
        item.setValue(QVariant());
        QVERIFY(!item.value().isValid());
    }

    void rectangleOfAnEntry()
    {
        KELComboBoxItem item;
        item.setboundRect(QRectF(5, 6, 70.5, 20));
        QCOMPARE(item.style()->boundRect, QRectF(5, 6, 70.5, 20));
        QCOMPARE(labelOf(&item)->style()->boundRect, QRectF(0, 0, 70.5, 20));
        item.setboundRect(8, 9, 33, 44);
        QCOMPARE(item.style()->boundRect, QRectF(8, 9, 33, 44));
        QCOMPARE(labelOf(&item)->style()->boundRect, QRectF(0, 0, 33, 44));
    }

    void addedEntry_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("display");
        QTest::addColumn<QString>("shown");

        const QString text = u"Slow"_s;
        QTest::newRow("text given") << QVariant(100) << text << text;
        QTest::newRow("null text") << QVariant(100) << QString() << u"100"_s;
        QTest::newRow("empty text") << QVariant(2.5) << u""_s << u"2.5"_s;
        QTest::newRow("string value") << QVariant(text) << QString() << text;
        QTest::newRow("no value") << QVariant() << text << text;
        QTest::newRow("nothing") << QVariant() << QString() << QString();
        QTest::newRow("value without text") << QVariant(QSize(1, 2)) << QString() << QString();
        QTest::newRow("blank text") << QVariant(1) << u" "_s << u" "_s;
    }

    void addedEntry()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, shown);
        KELComboBox box;
        box.addItem(value, fetch<QString>("display"));
        QCOMPARE(box.items().size(), 1);
        const KELComboBoxItem *item = box.items().first();
        QCOMPARE(item->value(), value);
        QCOMPARE(item->value().isValid(), value.isValid());
        QCOMPARE(item->display(), shown);
        QCOMPARE(labelOf(item)->text(), shown);
        QCOMPARE(item->parentItem(), ComboParts(box).panel.data());
    }

    void entriesAreStacked()
    {
        KELComboBox box;
        box.setboundRect(20, 20, 160, 40);
        const ComboParts parts(box);
        for (int n = 0; n < 4; ++n) {
            addEntries(&box, {QString::number(n)});
            const KELComboBoxItem *item = box.items().last();
            QCOMPARE(item->style()->boundRect, QRectF(0.5, 30 * n, 159, 30));
            QCOMPARE(labelOf(item)->style()->boundRect, QRectF(0, 0, 159, 30));
            QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 39, 160, 30 * (n + 1)));
        }
        QCOMPARE(textsOf(box), u"0 1 2 3"_s);
    }

    void addingSelectsNothing()
    {
        KELComboBox box;
        const QSignalSpy changed(&box, &KELComboBox::selectItemChanged);
        addEntries(&box, threeTexts);
        QCOMPARE(summaryOf(box), u"one two three; -1, ; closed; 90 px"_s);
        QCOMPARE(changed.count(), 0);
    }

    void clickedEntryIsSelected()
    {
        const auto box = makeBox();
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        Q_EMIT box->items().at(2)->mouseClicked();
        QCOMPARE(summaryOf(*box), u"one two three; 2, three; closed; 90 px"_s);
        QCOMPARE(changed.count(), 1);
        // by its place now, not by the one it had when it was added
        delete box->items().at(0);
        Q_EMIT box->items().at(0)->mouseClicked();
        QCOMPARE(summaryOf(*box), u"two three; 0, two; closed; 60 px"_s);
        QCOMPARE(changed.count(), 2);
    }

    void removeItemSelection_data()
    {
        QTest::addColumn<int>("selected");
        QTest::addColumn<int>("removed");
        QTest::addColumn<QString>("summary");

        const auto row = [](const char *name, int selected, int removed, const QString &summary) {
            QTest::newRow(name) << selected << removed << summary + u"; closed; 60 px"_s;
        };
        row("before the selected one", 2, 0, u"two three; 1, three"_s);
        row("just before", 1, 0, u"two three; 0, two"_s);
        row("the selected one", 1, 1, u"one three; -1, "_s);
        row("the selected first", 0, 0, u"two three; -1, "_s);
        row("the selected last", 2, 2, u"one two; -1, "_s);
        row("behind it", 0, 1, u"one three; 0, one"_s);
        row("none selected", -1, 1, u"one three; -1, "_s);
    }

    void removeItemSelection()
    {
        for (const bool isDeleted : {false, true}) {
            const auto box = makeBox();
            box->setSelectIndex(fetch<int>("selected"));
            const QPointer<KELComboBoxItem> selected(box->selectedItem());
            const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
            KELComboBoxItem *const removed = box->items().at(fetch<int>("removed"));
            if (isDeleted)
                delete removed;
            else
                box->removeItem(removed);
            QCOMPARE(summaryOf(*box), fetch<QString>("summary"));
            QVERIFY(!box->selectedItem() || box->selectedItem() == selected);
            QCOMPARE(changed.count(), 0);
        }
    }

    void removedEntryStaysWhereItIs()
    {
        const auto box = makeBox();
        const QPointer<KELComboBoxItem> second(box->items().at(1));
        const QPointer<KELComboBoxItem> third(box->items().at(2));
        clickButton(*box);
        box->removeItem(second);
        QVERIFY(second);
        QVERIFY(second->isVisible());
        QCOMPARE(second->parentItem(), ComboParts(*box).panel.data());
        QCOMPARE(second->style()->boundRect, QRectF(0.5, 30, 159, 30));
        QCOMPARE(third->style()->boundRect, QRectF(0.5, 60, 159, 30));
        QCOMPARE(listState(*box), u"open"_s);
    }

    void removedEntriesLeaveTheListShorter()
    {
        const auto box = makeBox();
        const ComboParts parts(*box);
        for (const qreal height : {60.0, 30.0, 0.0}) {
            box->removeItem(box->items().first());
            QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 39, 160, height));
        }
        box->setboundRect(0, 0, 100, 40);
        QCOMPARE(parts.panel->style()->boundRect, QRectF(0, 39, 100, 5));
    }

    void strangersAreNotRemoved()
    {
        const auto box = makeBox();
        const auto other = makeBox();
        box->setSelectIndex(1);
        KELComboBoxItem stranger;
        box->removeItem(nullptr);
        box->removeItem(&stranger);
        box->removeItem(other->items().first());
        KELComboBoxItem *const removed = box->items().last();
        box->removeItem(removed);
        box->removeItem(removed);
        QCOMPARE(summaryOf(*box), u"one two; 1, two; closed; 60 px"_s);
        QCOMPARE(textsOf(*other), u"one two three"_s);
    }

    void entryAfterARemovalIsPlacedByTheCount()
    {
        const auto box = makeBox();
        box->removeItem(box->items().first());
        addEntries(box.get(), {u"four"_s});
        QCOMPARE(box->items().last()->style()->boundRect, QRectF(0.5, 60, 159, 30));
        QCOMPARE(ComboParts(*box).panel->rect().height(), 90.0);
    }

    void deletedEntryIsRemoved()
    {
        const auto box = makeBox();
        KELComboBoxItem *const first = box->items().first();
        bool known = true;
        connect(first, &QObject::destroyed, this,
                [&] { known = box->items().contains(first) || box->items().size() != 2; });
        delete first;
        QVERIFY(!known);
        box->items().last()->deleteLater();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(summaryOf(*box), u"two; -1, ; closed; 30 px"_s);
    }

    void clearedBox()
    {
        const auto box = makeBox();
        box->setSelectIndex(1);
        const QPointer<KELComboBoxItem> removed(box->items().at(2));
        box->removeItem(removed);
        const QPointer<KELComboBoxItem> entry(box->items().at(0));
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        clickButton(*box);
        box->clearItem();
        QVERIFY(!entry);
        QVERIFY(removed);
        QCOMPARE(summaryOf(*box), u"; -1, ; open; 5 px"_s);
        QCOMPARE(ComboParts(*box).panel->style()->boundRect, QRectF(0, 39, 160, 5));
        QCOMPARE(changed.count(), 0);
        addEntries(box.get(), {u"new"_s});
        QCOMPARE(box->items().first()->style()->boundRect, QRectF(0.5, 0, 159, 30));
    }

    void clearingDeletesInOrder()
    {
        const auto box = makeBox();
        QStringList deleted;
        for (int place = 0; place < 3; ++place) {
            connect(box->items().at(place), &QObject::destroyed, this,
                    [&, place] { deleted.append(threeTexts.at(place)); });
        }
        box->clearItem();
        QCOMPARE(deleted, threeTexts);
    }

    void clearingAnEmptyBox()
    {
        KELComboBox box;
        box.clearItem();
        QCOMPARE(ComboParts(box).panel->style()->boundRect, QRectF(0, 29, 100, 5));
        addEntries(&box, {u"one"_s});
        box.removeItem(box.items().first());
        QCOMPARE(ComboParts(box).panel->rect().height(), 0.0);
        box.clearItem();
        QCOMPARE(ComboParts(box).panel->rect().height(), 5.0);
    }

    void bindEnumAddsTheKeys()
    {
        const auto box = makeBox({u"one"_s});
        box->bindEnum(QMetaEnum::fromType<Fruit>());
        QCOMPARE(textsOf(*box), u"one A B"_s);
        for (const int place : {1, 2}) {
            const KELComboBoxItem *const entry = box->items().at(place);
            QCOMPARE(int(entry->value().type()), int(QVariant::String));
            QCOMPARE(entry->value().toString(), entry->display());
        }
        QCOMPARE(box->items().at(2)->style()->boundRect, QRectF(0.5, 60, 159, 30));
        QCOMPARE(box->selectIndex(), -1);
        KELComboBox empty;
        empty.bindEnum(QMetaEnum());
        QVERIFY(empty.items().isEmpty());
    }
};

KEL_TEST_MAIN(tst_KELComboBoxEntries)
#include "tst_kelcomboboxentries.moc"
