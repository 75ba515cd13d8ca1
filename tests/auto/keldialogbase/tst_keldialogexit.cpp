// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "program.h"
#include "rows.h"

#include <kelcontentview.h>
#include <keldialogbase.h>
#include <kelnonmodaldialog.h>
#include <kelpushbutton.h>

#include <memory>

// The test program once more, as a process of its own that ends in some way and prints nothing.
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

int endIn(int ms, QObject *context)
{
    QTimer::singleShot(ms, context, [] { QCoreApplication::exit(0); });
    return QCoreApplication::exec();
}

// Qt itself cannot destroy a visible widget without an application object, but a hidden one.
int endWithHiddenWidgets()
{
    QTimer::singleShot(someFramesMs, qApp, [] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows)
            window->hide();
        QCoreApplication::exit(0);
    });
    return QCoreApplication::exec();
}

struct Ending
{
    const char *name;
    int (*run)();
};

const std::vector<Ending> endings = {
    {"with an open dialog",
     [] {
         KELDialogBase dialog;
         addButton(&dialog);
         dialog.show();
         return endIn(0, &dialog);
     }},
    {"with a shaking dialog",
     [] {
         KELDialogBase dialog;
         dialog.show();
         dialog.dialogShake(20);
         return endIn(someFramesMs, &dialog);
     }},
    // The shake has not got its first frame.
    {"with a dialog about to shake",
     [] {
         KELDialogBase dialog;
         dialog.dialogShake(20);
         return 0;
     }},
    {"out of a modal dialog",
     [] {
         int result = -1;
         QTimer::singleShot(0, qApp, [&result] {
             KELDialogBase dialog(u"text"_s, 3, nullptr);
             addButton(&dialog);
             QTimer::singleShot(someFramesMs, &dialog, [] { QCoreApplication::exit(0); });
             result = dialog.exec();
         });
         const int code = QCoreApplication::exec();
         return result == int(QDialog::Rejected) ? code : 1;
     }},
    {"with a static dialog",
     [] {
         lateDialog = std::make_unique<KELDialogBase>();
         addButton(lateDialog.get());
         lateDialog->show();
         return endWithHiddenWidgets();
     }},
    {"with a static panel",
     [] {
         latePanel = std::make_unique<KELNonModalDialog>();
         latePanel->setContent(panelContent());
         latePanel->enableTime(60000);
         KELNonModalDialog::showOne(latePanel.get());
         return endWithHiddenWidgets();
     }},
    {"with an open panel",
     [] {
         QWidget window;
         auto *child = new KELNonModalDialog(&window);
         KELNonModalDialog panel;
         panel.setContent(panelContent());
         panel.enableTime(60000);
         window.show();
         child->show();
         panel.show();
         return endIn(0, &panel);
     }},
    // The panel would be hidden 5 ms after the press.
    {"with a scheduled hide",
     [] {
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
     }},
};

} // namespace

class tst_KELDialogExit : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void endsQuietly_data() { addRows({{"ending", namesOf(endings)}}); }

    void endsQuietly()
    {
        const ProgramEnd end = runProgram(QCoreApplication::applicationFilePath(),
                                          {u"--leave"_s, QString::number(fetch<int>("ending"))});
        QCOMPARE(end.output, QString());
        QCOMPARE(end.exitCode, 0);
    }
};

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--leave") == 0) {
        QApplication::setQuitOnLastWindowClosed(false);
        return endings.at(size_t(std::atoi(argv[2]))).run();
    }
    tst_KELDialogExit test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_keldialogexit.moc"
