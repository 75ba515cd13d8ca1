// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELLayout>
#include <KELPicker>
#include <KELPinDialog>
#include <KELProcessBar>
#include <KELRange>
#include <KELRow>
#include <KELScreen>
#include <KELTheme>
#include <KELValues>

#include <QApplication>
#include <QGraphicsLinearLayout>

// What the screen shows and changes.
class Heating : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int target MEMBER m_target NOTIFY changed)
    Q_PROPERTY(bool on MEMBER m_isOn NOTIFY changed)
    Q_PROPERTY(bool eco MEMBER m_isEco NOTIFY changed)

Q_SIGNALS:
    void changed();

private:
    int m_target = 40;
    bool m_isOn = true;
    bool m_isEco = false;
};

static QGraphicsLinearLayout *newRows(QGraphicsWidget *page)
{
    auto *rows = new QGraphicsLinearLayout(Qt::Vertical, page);
    rows->setSpacing(0);
    return rows;
}

static KELRow *addRow(QGraphicsLinearLayout *rows, const char *caption, KELRow::End end)
{
    auto *row = new KELRow;
    row->setCaption(QString::fromLatin1(caption));
    row->setEnd(end);
    rows->addItem(row);
    return row;
}

static KELPage *newServicePage(Heating *heating)
{
    auto *page = new KELPage;
    auto *rows = newRows(page);
    for (const char *pump : {"Slow pump", "Usual pump", "Fast pump"})
        addRow(rows, pump, KELRow::Radio);
    KELValues::edit(heating, "eco", addRow(rows, "Economy", KELRow::Switch), "checked");
    auto *zone = new KELPicker;
    QStringList zones;
    for (int number = 1; number <= 30; ++number)
        zones.append(QStringLiteral("Zone %1").arg(number));
    zone->setItems(zones);
    zone->setCaption(QStringLiteral("Zone"));
    zone->setCurrentIndex(0);
    rows->addItem(zone);
    return page;
}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    Heating heating;
    KELScreen screen;
    screen.setSlideEnabled(true);
    KELTheme theme;
    theme.applyTo(screen.scene());

    auto *page = new KELPage;
    auto *rows = newRows(page);
    KELValues::edit(&heating, "on", addRow(rows, "Heating", KELRow::Switch), "checked");
    auto *target = new KELRange;
    rows->addItem(target);
    KELValues::edit(&heating, "target", target, "value");
    auto *bar = new KELProcessBar;
    KELLayout::add(rows, bar);
    KELValues::show(&heating, "target", bar, "percent");

    auto *dialog = new KELPinDialog; // the scene's, once it has been open
    dialog->setCaption(QStringLiteral("The PIN of this machine is 1234"));
    QObject::connect(addRow(rows, "Service", KELRow::Arrow), &KELRow::clicked, dialog,
                     [dialog, &screen] { dialog->open(screen.scene()); });
    QObject::connect(dialog, &KELPinDialog::entered, dialog, [dialog](const QString &pin) {
        pin == QLatin1String("1234") ? dialog->accept() : dialog->reject();
    });
    QObject::connect(dialog, &KELPinDialog::accepted, &screen,
                     [&screen, &heating] { screen.push(newServicePage(&heating)); });
    screen.push(page);
    screen.show();
    return app.exec();
}

#include "main.moc"
