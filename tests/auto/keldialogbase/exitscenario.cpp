// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// A program that ends in the way its argument names; it prints nothing.

#include <kelcontentview.h>
#include <keldialogbase.h>
#include <kelnonmodaldialog.h>
#include <kelpushbutton.h>

#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>

#include <cstring>
#include <memory>

namespace {

// Destroyed after the application object, by the end of the process.
std::unique_ptr<KELDialogBase> lateDialog;
std::unique_ptr<KELNonModalDialog> latePanel;

constexpr int someFramesMs = 60;

void addButton(KELDialogBase *dialog)
{
    auto *button = new KELPushButton;
    button->setboundRect(QRectF(150, 180, 100, 50));
    dialog->view()->scene()->addItem(button);
}

KELPushButton *panelContent()
{
    auto *content = new KELPushButton;
    content->setboundRect(0, 0, 200, 100);
    return content;
}

int openDialog()
{
    KELDialogBase dialog;
    addButton(&dialog);
    dialog.show();
    QTimer::singleShot(0, &dialog, [] { QCoreApplication::exit(0); });
    return QCoreApplication::exec();
}

int shakingDialog()
{
    KELDialogBase dialog;
    dialog.show();
    dialog.dialogShake(20);
    QTimer::singleShot(someFramesMs, &dialog, [] { QCoreApplication::exit(0); });
    return QCoreApplication::exec();
}

// The shake has not got its first frame.
int dialogAboutToShake()
{
    KELDialogBase dialog;
    dialog.dialogShake(20);
    return 0;
}

int modalDialog()
{
    int result = -1;
    QTimer::singleShot(0, qApp, [&result] {
        KELDialogBase dialog(QStringLiteral("text"), 3, nullptr);
        addButton(&dialog);
        QTimer::singleShot(someFramesMs, &dialog, [] { QCoreApplication::exit(0); });
        result = dialog.exec();
    });
    const int code = QCoreApplication::exec();
    return result == int(QDialog::Rejected) ? code : 1;
}

// Qt itself cannot destroy a visible widget without an application object, but a hidden one.
int exitWithHiddenWidgets()
{
    QTimer::singleShot(someFramesMs, qApp, [] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows)
            window->hide();
        QCoreApplication::exit(0);
    });
    return QCoreApplication::exec();
}

int staticDialog()
{
    lateDialog = std::make_unique<KELDialogBase>();
    addButton(lateDialog.get());
    lateDialog->show();
    return exitWithHiddenWidgets();
}

int staticPanel()
{
    latePanel = std::make_unique<KELNonModalDialog>();
    latePanel->setContent(panelContent());
    latePanel->enableTime(60000);
    KELNonModalDialog::showOne(latePanel.get());
    return exitWithHiddenWidgets();
}

int openPanel()
{
    QWidget window;
    auto *child = new KELNonModalDialog(&window);
    KELNonModalDialog panel;
    panel.setContent(panelContent());
    panel.enableTime(60000);
    window.show();
    child->show();
    panel.show();
    QTimer::singleShot(0, &panel, [] { QCoreApplication::exit(0); });
    return QCoreApplication::exec();
}

// The panel would be hidden 5 ms after the press.
int scheduledHide()
{
    QWidget window;
    window.setGeometry(0, 0, 100, 100);
    window.show();
    KELNonModalDialog panel;
    panel.setContent(panelContent());
    panel.move(300, 200);
    panel.show();
    QTimer::singleShot(0, &panel, [&window] {
        const QPoint pos(50, 50);
        QMouseEvent press(QEvent::MouseButtonPress, pos, pos, Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &press);
        QCoreApplication::exit(0);
    });
    return QCoreApplication::exec();
}

struct Scenario
{
    const char *name;
    int (*run)();
};

constexpr Scenario scenarios[] = {
    {"open-dialog", openDialog},
    {"shaking-dialog", shakingDialog},
    {"dialog-about-to-shake", dialogAboutToShake},
    {"modal-dialog", modalDialog},
    {"static-dialog", staticDialog},
    {"static-panel", staticPanel},
    {"open-panel", openPanel},
    {"scheduled-hide", scheduledHide},
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    for (const Scenario &scenario : scenarios) {
        if (argc == 2 && std::strcmp(argv[1], scenario.name) == 0)
            return scenario.run();
    }
    return 2;
}
