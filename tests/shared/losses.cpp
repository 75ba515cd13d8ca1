// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "losses.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>
#include <QtWidgets/QGraphicsRectItem>

namespace {

void openModal(ControlStage &stage, QWidget *parent, Qt::WindowModality modality)
{
    stage.cover = std::make_unique<QDialog>(parent);
    stage.cover->setWindowModality(modality);
    stage.cover->show();
}

void closeCover(ControlStage &stage)
{
    stage.cover.reset();
}

void nothing(ControlStage & /*stage*/) { }

const std::vector<Loss> &lossesOfTheWindow()
{
    static const std::vector<Loss> all = {
        {"view hidden", [](ControlStage &s) { s.view.hide(); },
         [](ControlStage &s) { s.view.show(); }},
        {"window hidden", [](ControlStage &s) { s.window.hide(); },
         [](ControlStage &s) { s.window.show(); }},
        {"window closed", [](ControlStage &s) { s.window.close(); },
         [](ControlStage &s) { s.window.show(); }},
        {"view set to another scene", [](ControlStage &s) { s.view.setScene(&s.otherScene); },
         [](ControlStage &s) { s.view.setScene(&s.view.ownScene); }},
        {"scene taken from the view", [](ControlStage &s) { s.view.setScene(nullptr); },
         [](ControlStage &s) { s.view.setScene(&s.view.ownScene); }},
        {"view disabled", [](ControlStage &s) { s.view.setEnabled(false); },
         [](ControlStage &s) { s.view.setEnabled(true); }},
        {"window disabled", [](ControlStage &s) { s.window.setEnabled(false); },
         [](ControlStage &s) { s.window.setEnabled(true); }},
        {"view made not interactive", [](ControlStage &s) { s.view.setInteractive(false); },
         [](ControlStage &s) { s.view.setInteractive(true); }},
    };
    return all;
}

const std::vector<Loss> &lossesToACover()
{
    static const std::vector<Loss> all = {
        {"menu opened",
         [](ControlStage &s) {
             auto *const menu = newMenu();
             s.cover.reset(menu);
             menu->popup(QPoint(10, 10));
         },
         closeCover},
        {"popup window opened",
         [](ControlStage &s) {
             s.cover = std::make_unique<QWidget>(&s.window, Qt::Popup);
             s.cover->show();
         },
         closeCover},
        {"application-modal dialog opened",
         [](ControlStage &s) { openModal(s, nullptr, Qt::ApplicationModal); }, closeCover},
        {"application-modal dialog of the window opened",
         [](ControlStage &s) { openModal(s, &s.window, Qt::ApplicationModal); }, closeCover},
        {"window-modal dialog of the window opened",
         [](ControlStage &s) { openModal(s, &s.window, Qt::WindowModal); }, closeCover},
        {"modal dialog run until it closes",
         [](ControlStage &s) {
             QDialog dialog(&s.window);
             QTimer::singleShot(50, &dialog, &QDialog::accept);
             dialog.exec();
         },
         nothing},
        {"menu run until it closes",
         [](ControlStage & /*stage*/) {
             const std::unique_ptr<QMenu> menu(newMenu());
             QTimer::singleShot(50, menu.get(), &QMenu::close);
             menu->exec(QPoint(10, 10));
         },
         nothing},
        {"modal panel opened in the scene",
         [](ControlStage &s) {
             auto *const panel = new QGraphicsRectItem(0, 0, 400, 300);
             panel->setFlag(QGraphicsItem::ItemIsPanel);
             panel->setPanelModality(QGraphicsItem::SceneModal);
             panel->setZValue(99);
             s.view.ownScene.addItem(panel);
         },
         [](ControlStage &s) {
             const QList<QGraphicsItem *> items = s.view.ownScene.items();
             for (QGraphicsItem *item : items) {
                 if (qFuzzyCompare(item->zValue(), 99))
                     delete item;
             }
         }},
    };
    return all;
}

const std::vector<Loss> &lossesOfTheGrab()
{
    static const std::vector<Loss> all = {
        {"ungrabbed", [](ControlStage &s) { s.control->ungrabMouse(); }, nothing},
        {"another item grabs", [](ControlStage &s) { s.other->grabMouse(); },
         [](ControlStage &s) { s.other->ungrabMouse(); }},
        {"taken out of the scene", [](ControlStage &s) { s.view.ownScene.removeItem(s.control); },
         [](ControlStage &s) { s.control->setParentItem(s.parent); }},
        {"parent taken out of the scene",
         [](ControlStage &s) { s.view.ownScene.removeItem(s.parent); },
         [](ControlStage &s) { s.view.ownScene.addItem(s.parent); }},
    };
    return all;
}

} // namespace

const std::vector<Loss> &itemLosses()
{
    static const std::vector<Loss> all = {
        {"disabled", [](ControlStage &s) { s.control->setEnabled(false); },
         [](ControlStage &s) { s.control->setEnabled(true); }},
        {"hidden", [](ControlStage &s) { s.control->hide(); },
         [](ControlStage &s) { s.control->show(); }},
        {"parent disabled", [](ControlStage &s) { s.parent->setEnabled(false); },
         [](ControlStage &s) { s.parent->setEnabled(true); }},
        {"parent hidden", [](ControlStage &s) { s.parent->hide(); },
         [](ControlStage &s) { s.parent->show(); }},
        {"pressed button switched off",
         [](ControlStage &s) { s.control->setAcceptedMouseButtons(Qt::RightButton); },
         [](ControlStage &s) { s.control->setAcceptedMouseButtons(Qt::LeftButton); }},
        {"buttons switched off",
         [](ControlStage &s) { s.control->setAcceptedMouseButtons(Qt::NoButton); },
         [](ControlStage &s) { s.control->setAcceptedMouseButtons(Qt::LeftButton); }},
    };
    return all;
}

const std::vector<Loss> &losses()
{
    static const std::vector<Loss> all = [] {
        std::vector<Loss> list = itemLosses();
        for (const auto &more : {lossesOfTheGrab(), lossesOfTheWindow(), lossesToACover()})
            list.insert(list.end(), more.begin(), more.end());
        return list;
    }();
    return all;
}

std::vector<Named> lossNames()
{
    std::vector<Named> names;
    for (const Loss &loss : losses())
        names.push_back({loss.name, int(names.size())});
    return names;
}
