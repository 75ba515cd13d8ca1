// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELContentView>
#include <KELPushButton>

#include <QApplication>
#include <QDebug>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    KELContentView view;
    view.setBackgroundBrush(Qt::white); // the view is translucent: without a compositor, black

    auto *button = new KELPushButton;
    button->setboundRect(0, 0, 240, 80); // geometry first, then add it
    button->setText("Start");
    button->style()->xRadius = button->style()->yRadius = 8;
    QObject::connect(button, &KELPushButton::mouseClicked, [] { qDebug() << "started"; });

    view.setContent(button);
    view.show();
    return app.exec();
}
