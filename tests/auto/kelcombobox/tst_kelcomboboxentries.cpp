// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "combostage.h"

#include <QtCore/QMetaEnum>

#include <memory>

namespace {

const QBrush white = QColor(Qt::white);

std::unique_ptr<KELComboBox> makeBox(int entries = 3)
{
    auto box = std::make_unique<KELComboBox>();
    box->setboundRect(20, 20, 160, 40);
    addEntries(box.get(), threeTexts.mid(0, entries));
    return box;
}

QList<QVariant> valuesOf(const KELComboBox &box)
{
    QList<QVariant> values;
    const QList<KELComboBoxItem *> items = box.items();
    for (const KELComboBoxItem *item : items)
        values.append(item->value());
    return values;
}

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
        QFETCH(QString, display);
        QFETCH(QString, shown);
        KELComboBox box;
        box.addItem(value, display);
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
        QCOMPARE(textsOf(box).join(QLatin1Char(' ')), u"0 1 2 3"_s);
    }

    void addingSelectsNothing()
    {
        KELComboBox box;
        const QSignalSpy changed(&box, &KELComboBox::selectItemChanged);
        addEntries(&box, threeTexts);
        QCOMPARE(box.selectIndex(), -1);
        QVERIFY(!box.selectedItem());
        QCOMPARE(ComboParts(box).text->text(), QString());
        QCOMPARE(changed.count(), 0);
        QCOMPARE(listState(box), u"closed"_s);
    }

    void clickedEntryIsSelected()
    {
        const auto box = makeBox();
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        Q_EMIT box->items().at(2)->mouseClicked();
        QCOMPARE(box->selectIndex(), 2);
        QCOMPARE(changed.count(), 1);
        // by its place now, not by the one it had when it was added
        delete box->items().at(0);
        Q_EMIT box->items().at(0)->mouseClicked();
        QCOMPARE(box->selectIndex(), 0);
        QCOMPARE(ComboParts(*box).text->text(), u"two"_s);
        QCOMPARE(changed.count(), 2);
    }

    void removeItemSelection_data()
    {
        QTest::addColumn<int>("selected");
        QTest::addColumn<int>("removed");
        QTest::addColumn<int>("expected");
        QTest::addColumn<bool>("byDelete");

        struct Row
        {
            const char *name;
            int selected, removed, expected;
        };
        for (const Row &row :
             {Row{"before the selected one", 2, 0, 1}, Row{"just before", 1, 0, 0},
              Row{"the selected one", 1, 1, -1}, Row{"the selected first", 0, 0, -1},
              Row{"the selected last", 2, 2, -1}, Row{"behind it", 0, 1, 0},
              Row{"none selected", -1, 1, -1}}) {
            QTest::addRow("%s, removed", row.name)
                << row.selected << row.removed << row.expected << false;
            QTest::addRow("%s, deleted", row.name)
                << row.selected << row.removed << row.expected << true;
        }
    }

    void removeItemSelection()
    {
        QFETCH(int, selected);
        QFETCH(int, removed);
        QFETCH(int, expected);
        QFETCH(bool, byDelete);
        const auto box = makeBox();
        box->setSelectIndex(selected);
        const QPointer<KELComboBoxItem> entry(box->selectedItem());
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        if (byDelete)
            delete box->items().at(removed);
        else
            box->removeItem(box->items().at(removed));
        QStringList left = threeTexts;
        left.removeAt(removed);
        QCOMPARE(textsOf(*box), left);
        QCOMPARE(box->selectIndex(), expected);
        QCOMPARE(box->selectedItem(), expected < 0 ? nullptr : entry.data());
        QCOMPARE(ComboParts(*box).text->text(), expected < 0 ? QString() : threeTexts.at(selected));
        QCOMPARE(changed.count(), 0);
        QCOMPARE(ComboParts(*box).panel->rect().height(), 60.0);
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

    void removedEntryNoLongerSelects()
    {
        const auto box = makeBox();
        box->setSelectIndex(0);
        const QSignalSpy changed(box.get(), &KELComboBox::selectItemChanged);
        KELComboBoxItem *const removed = box->items().at(1);
        box->removeItem(removed);
        Q_EMIT removed->mouseClicked();
        QCOMPARE(box->selectIndex(), 0);
        QCOMPARE(changed.count(), 0);
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
        QCOMPARE(textsOf(*box), threeTexts.mid(0, 2));
        QCOMPARE(textsOf(*other), threeTexts);
        QCOMPARE(box->selectIndex(), 1);
        QCOMPARE(ComboParts(*box).panel->rect().height(), 60.0);
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
        QCOMPARE(textsOf(*box), QStringList(u"two"_s));
        QCOMPARE(ComboParts(*box).panel->rect().height(), 30.0);
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
        QVERIFY(box->items().isEmpty());
        QVERIFY(!entry);
        QVERIFY(removed);
        QCOMPARE(box->selectIndex(), -1);
        QVERIFY(!box->selectedItem());
        QCOMPARE(ComboParts(*box).text->text(), QString());
        QCOMPARE(ComboParts(*box).panel->style()->boundRect, QRectF(0, 39, 160, 5));
        QCOMPARE(changed.count(), 0);
        QCOMPARE(listState(*box), u"open"_s);
        addEntries(box.get(), {u"new"_s});
        QCOMPARE(box->items().first()->style()->boundRect, QRectF(0.5, 0, 159, 30));
    }

    void clearingDeletesInOrder()
    {
        const auto box = makeBox();
        QStringList deleted;
        const QList<KELComboBoxItem *> items = box->items();
        for (KELComboBoxItem *item : items) {
            const QString text = item->display();
            connect(item, &QObject::destroyed, this, [&deleted, text] { deleted.append(text); });
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
        const auto box = makeBox(1);
        box->bindEnum(QMetaEnum::fromType<Fruit>());
        QCOMPARE(textsOf(*box).join(QLatin1Char(' ')), u"one A B"_s);
        QCOMPARE(valuesOf(*box).mid(1), QList<QVariant>({QVariant(u"A"_s), QVariant(u"B"_s)}));
        QCOMPARE(int(box->items().at(1)->value().type()), int(QVariant::String));
        QCOMPARE(box->items().at(2)->style()->boundRect, QRectF(0.5, 60, 159, 30));
        QCOMPARE(box->selectIndex(), -1);
        KELComboBox empty;
        empty.bindEnum(QMetaEnum());
        QVERIFY(empty.items().isEmpty());
    }

    void itemsIsACopy()
    {
        const auto box = makeBox();
        QList<KELComboBoxItem *> items = box->items();
        items.clear();
        QCOMPARE(textsOf(*box), threeTexts);
        QCOMPARE(box->items(), box->items());
    }
};

KEL_TEST_MAIN(tst_KELComboBoxEntries)
#include "tst_kelcomboboxentries.moc"
