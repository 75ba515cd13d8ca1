// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include <KELCheckBox>
#include <KELContentView>
#include <KELLabel>
#include <KELNonModalDialog>
#include <KELPushButton>

#include <QApplication>

// What a window or panel shows. The brush of the view fills its edge, too: without a compositor the
// rest of a translucent window is black.
static void fill(KELContentView *view, KELRoundRectControl *content, const QColor &colour)
{
    view->setFrameShape(QFrame::NoFrame);
    view->setBackgroundBrush(colour);
    content->style()->backgroundBrush = QBrush(Qt::NoBrush);
    content->style()->borderBrush = QBrush(Qt::NoBrush);
    view->setContent(content);
}

static KELRoundRectControl *makeSwitch(const QString &text)
{
    auto *content = new KELRoundRectControl;
    content->setboundRect(0, 0, 240, 80);
    auto *label = new KELLabel(content);
    label->setboundRect(16, 16, 110, 48);
    label->setText(text);
    auto *box = new KELCheckBox(content);
    box->setboundRect(142, 16, 82, 48);
    return content;
}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);

    KELContentView window;
    auto *page = new KELRoundRectControl;
    page->setboundRect(0, 0, 480, 320);
    auto *button = new KELPushButton(page);
    button->setboundRect(16, 16, 160, 56);
    button->setText(QStringLiteral("Settings"));
    fill(&window, page, Qt::lightGray);

    // Without a parent it is a window of its own, compared with presses by its place on the screen.
    KELNonModalDialog panel;
    fill(&panel, makeSwitch(QStringLiteral("Night mode")), QColor(20, 32, 46));
    panel.enableTime(5000); // closes also when it is left alone

    // The press on the button is one outside the panel and would close it, for the click to open it
    // again.
    QObject::connect(button, &KELPushButton::mousePress, &panel, [&panel] {
        if (panel.isVisible())
            panel.ignoreOnce();
    });
    QObject::connect(button, &KELPushButton::mouseClicked, &panel, [&panel, &window] {
        if (panel.isVisible()) {
            panel.hide();
            return;
        }
        panel.move(window.mapToGlobal(QPoint(16, 88)));
        KELNonModalDialog::showOne(&panel);
    });
    QObject::connect(&panel, &KELNonModalDialog::disappeared, button,
                     [button] { button->setText(QStringLiteral("Settings (closed)")); });

    window.show();
    return app.exec();
}
