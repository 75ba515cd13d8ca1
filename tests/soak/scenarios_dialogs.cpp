// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "livingobjects.h"
#include "scenario.h"

#include <kelcontentview.h>
#include <keldialogbase.h>
#include <kelpushbutton.h>

#include <QtCore/QPropertyAnimation>
#include <QtCore/QTimer>

namespace {

enum class Way { Button, Escape, Accept, DeletedInAShake };

class Dialog
{
public:
    Dialog()
    {
        m_button = new KELPushButton;
        m_button->setboundRect(150, 180, 100, 50);
        dialog->view()->scene()->addItem(m_button);
        QObject::connect(m_button, &KELRoundRectControl::mouseClicked, dialog.get(),
                         &QDialog::accept);
    }

    // All its frames at once.
    void shake()
    {
        const QRect before = dialog->geometry();
        startShake();
        auto *const animation = findLiving<QPropertyAnimation>();
        expect(animation != nullptr, "the dialog shakes");
        animation->setCurrentTime(animation->duration() / 2);
        animation->setCurrentTime(animation->duration());
        expect(dialog->geometry() == before, "the shake ends where it began");
    }
    void startShake()
    {
        dialog->dialogShake(12);
        QCoreApplication::processEvents();
    }

    void tapButton()
    {
        QWidget *const viewport = dialog->view()->viewport();
        QTest::mouseClick(viewport, Qt::LeftButton, {}, QPoint(200, 205));
    }

    const std::unique_ptr<KELDialogBase> dialog = std::make_unique<KELDialogBase>();

private:
    KELPushButton *m_button;
};

template <Way way>
class DialogScenario final : public Scenario
{
public:
    void round() override
    {
        {
            Dialog made;
            close(&made);
        }
        settleRound();
    }

private:
    static void close(Dialog *made)
    {
        KELDialogBase *const dialog = made->dialog.get();
        if (way == Way::Accept) {
            QTimer::singleShot(0, dialog, [made, dialog] {
                made->shake();
                dialog->accept();
            });
            expect(dialog->exec() == QDialog::Accepted, "the dialog is accepted");
            return;
        }
        dialog->open();
        QCoreApplication::processEvents();
        if (way == Way::DeletedInAShake) {
            made->startShake();
            return;
        }
        made->shake();
        if (way == Way::Button)
            made->tapButton();
        else
            QTest::keyClick(dialog, Qt::Key_Escape);
        expect(dialog->isHidden(), "the dialog is closed");
    }
};

} // namespace

Scenarios dialogScenarios()
{
    return {scenario<DialogScenario<Way::Button>>("dialog-button",
                                                  "dialog: show, shake, close with a button"),
            scenario<DialogScenario<Way::Escape>>("dialog-escape", "dialog: close with escape"),
            scenario<DialogScenario<Way::Accept>>("dialog-accept", "dialog: exec(), accept()"),
            scenario<DialogScenario<Way::DeletedInAShake>>("dialog-shake",
                                                           "dialog: delete in a shake")};
}
