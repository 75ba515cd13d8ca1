// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELLayout>
#include <KELProcessBar>
#include <KELRange>
#include <KELRow>
#include <KELScreen>
#include <KELTheme>
#include <KELValues>

#include <QApplication>
#include <QGraphicsLinearLayout>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    KELScreen screen;
    KELTheme theme;
    theme.applyTo(screen.scene());
    if (argc > 1)
        theme.load(QString::fromLocal8Bit(argv[1])); // and again whenever the file changes

    auto *page = new KELPage;
    auto *rows = new QGraphicsLinearLayout(Qt::Vertical, page);
    const char *const names[] = {"Light", "Dark", "High contrast"};
    for (const int scheme : {KELTheme::Light, KELTheme::Dark, KELTheme::HighContrast}) {
        auto *row = new KELRow;
        row->setCaption(QString::fromLatin1(names[scheme]));
        row->setEnd(KELRow::Radio);
        row->setChecked(scheme == theme.scheme());
        QObject::connect(row, &KELRow::clicked, &theme,
                         [&theme, scheme] { theme.setScheme(KELTheme::Scheme(scheme)); });
        rows->addItem(row);
    }
    auto *range = new KELRange;
    rows->addItem(range);
    auto *bar = new KELProcessBar;
    KELLayout::add(rows, bar);
    KELValues::show(range, "value", bar, "percent");
    screen.push(page);
    screen.show();
    return app.exec();
}
