// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELLayout>
#include <KELPushButton>
#include <KELRow>
#include <KELScreen>
#include <KELTheme>

#include <QApplication>
#include <QGraphicsLinearLayout>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    KELScreen screen;
    KELTheme theme;
    theme.setScheme(KELTheme::Dark);
    theme.applyTo(screen.scene());

    auto *page = new KELPage;
    auto *column = new QGraphicsLinearLayout(Qt::Vertical, page);
    auto *row = new KELRow;
    row->setCaption("Heating");
    row->setEnd(KELRow::Switch);
    column->addItem(row); // a part is a layout item
    auto *button = new KELPushButton;
    button->setText("Rinse");
    KELLayout::add(column, button); // a control needs an adapter
    column->addStretch(); // what is left of the page

    QObject::connect(row, &KELRow::checkedChanged, button,
                     [button](bool isOn) { button->setEnabled(isOn); });
    button->setEnabled(row->isChecked());
    screen.push(page); // the screen owns the page now
    screen.showFullScreen();
    return app.exec();
}
