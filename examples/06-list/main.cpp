// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELLabel>
#include <KELLayout>
#include <KELList>
#include <KELPushButton>
#include <KELScreen>

#include <QApplication>
#include <QGraphicsGridLayout>
#include <QGraphicsLinearLayout>
#include <QSortFilterProxyModel>
#include <QStringListModel>

// 10,000 parts of a machine, found by their numbers.
static QStringList partNames()
{
    QStringList names;
    for (int number = 0; number < 10000; ++number)
        names.append(QStringLiteral("Part %1").arg(number, 4, 10, QLatin1Char('0')));
    return names;
}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QStringListModel parts(partNames());
    QSortFilterProxyModel found;
    found.setSourceModel(&parts);

    KELScreen screen;
    auto *page = new KELPage;
    auto *rows = new QGraphicsLinearLayout(page);
    auto *side = new QGraphicsGridLayout;
    auto *search = new KELLabel;
    search->style()->foregroundBrush = QColor(Qt::black);
    KELLayout::add(side, search, 0, 0, 1, 3);
    const auto find = [&found, search](const QString &text) {
        search->setText(text.isEmpty() ? QStringLiteral("Type a number") : text);
        found.setFilterFixedString(text);
    };
    find(QString());
    for (const QChar key : QStringLiteral("123456789C0⌫")) {
        auto *button = new KELPushButton;
        button->setText(key);
        QObject::connect(button, &KELPushButton::mouseClicked, [find, search, key] {
            const bool isEmpty = !search->text().at(0).isDigit();
            const QString text = isEmpty ? QString() : search->text();
            find(key == QLatin1Char('C') ? QString()
                     : key.isDigit()     ? text + key
                                         : text.left(text.size() - 1));
        });
        KELLayout::addCell(side, button, 3);
    }
    auto *list = new KELList;
    list->setModel(&found);
    list->setSelectable(true);
    list->setEmptyText(QStringLiteral("No such part"));
    rows->addItem(list);
    rows->addItem(side);
    rows->setStretchFactor(list, 2);
    screen.push(page);
    screen.show();
    return app.exec();
}
