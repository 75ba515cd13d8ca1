// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELLabel>
#include <KELLayout>
#include <KELPushButton>
#include <KELScreen>
#include <KELTheme>

#include <QApplication>
#include <QGraphicsGridLayout>

#include <utility>

// A number, an operator, a number: the next operator shows the result.
struct Calculator
{
    double left = 0;
    QChar operation = u'=';
    bool isNumberNew = true;

    QString press(QChar key, const QString &shown)
    {
        const double number = shown.toDouble();
        if (key.isDigit() || key == u'.')
            return std::exchange(isNumberNew, false) ? QString(key) : shown + key;
        if (key == u'±' || key == u'%')
            return QString::number(key == u'%' ? number / 100 : -number);
        if (key == u'⌫')
            return shown.size() > 1 ? shown.chopped(1) : QStringLiteral("0");
        left = key == u'C'      ? 0
            : operation == u'+' ? left + number
            : operation == u'−' ? left - number
            : operation == u'×' ? left * number
            : operation == u'÷' ? left / number
                                : number;
        operation = key == u'C' ? u'=' : key;
        isNumberNew = true;
        return QString::number(left, 'g', 10);
    }
};

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    KELScreen screen;
    KELTheme theme;
    theme.setScheme(KELTheme::Dark);
    theme.applyTo(screen.scene());
    auto *page = new KELPage;
    auto *grid = new QGraphicsGridLayout(page);
    auto *display = new KELLabel;
    display->style()->font.setPixelSize(44);
    display->style()->textFlags = Qt::AlignRight | Qt::AlignVCenter;
    KELLayout::add(grid, display, 0, 0, 1, 4);
    display->setText(QStringLiteral("0"));
    Calculator calculator;
    for (const QChar key : QStringLiteral("C±⌫÷789×456−123+0.%=")) {
        auto *button = new KELPushButton;
        button->setText(key);
        QObject::connect(button, &KELPushButton::mouseClicked, [&calculator, display, key] {
            display->setText(calculator.press(key, display->text()));
        });
        KELLayout::addCell(grid, button, 4);
    }
    screen.push(page);
    screen.show();
    return app.exec();
}
