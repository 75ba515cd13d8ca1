// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "losses.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>
#include <QtWidgets/QGraphicsRectItem>

namespace {

void openModal(ItemStage &stage, QWidget *parent, Qt::WindowModality modality)
{
    stage.cover = std::make_unique<QDialog>(parent);
    stage.cover->setWindowModality(modality);
    stage.cover->show();
}

void closeCover(ItemStage &stage)
{
    stage.cover.reset();
}

void nothing(ItemStage & /*stage*/) { }

const std::vector<Loss> &lossesOfTheWindow()
{
    static const std::vector<Loss> all = {
        {"view hidden", [](ItemStage &s) { s.view.hide(); }, [](ItemStage &s) { s.view.show(); }},
        {"window hidden", [](ItemStage &s) { s.window.hide(); },
         [](ItemStage &s) { s.window.show(); }},
        {"window closed", [](ItemStage &s) { s.window.close(); },
         [](ItemStage &s) { s.window.show(); }},
        {"view set to another scene", [](ItemStage &s) { s.view.setScene(&s.otherScene); },
         [](ItemStage &s) { s.view.setScene(&s.view.ownScene); }},
        {"scene taken from the view", [](ItemStage &s) { s.view.setScene(nullptr); },
         [](ItemStage &s) { s.view.setScene(&s.view.ownScene); }},
        {"view disabled", [](ItemStage &s) { s.view.setEnabled(false); },
         [](ItemStage &s) { s.view.setEnabled(true); }},
        {"window disabled", [](ItemStage &s) { s.window.setEnabled(false); },
         [](ItemStage &s) { s.window.setEnabled(true); }},
        {"view made not interactive", [](ItemStage &s) { s.view.setInteractive(false); },
         [](ItemStage &s) { s.view.setInteractive(true); }},
    };
    return all;
}

const std::vector<Loss> &lossesToACover()
{
    static const std::vector<Loss> all = {
        {"menu opened",
         [](ItemStage &s) {
             auto *const menu = newMenu();
             s.cover.reset(menu);
             menu->popup(QPoint(10, 10));
         },
         closeCover},
        {"popup window opened",
         [](ItemStage &s) {
             s.cover = std::make_unique<QWidget>(&s.window, Qt::Popup);
             s.cover->show();
         },
         closeCover},
        {"application-modal dialog opened",
         [](ItemStage &s) { openModal(s, nullptr, Qt::ApplicationModal); }, closeCover},
        {"application-modal dialog of the window opened",
         [](ItemStage &s) { openModal(s, &s.window, Qt::ApplicationModal); }, closeCover},
        {"window-modal dialog of the window opened",
         [](ItemStage &s) { openModal(s, &s.window, Qt::WindowModal); }, closeCover},
        {"modal dialog run until it closes",
         [](ItemStage &s) {
             QDialog dialog(&s.window);
             QTimer::singleShot(50, &dialog, &QDialog::accept);
             dialog.exec();
         },
         nothing},
        {"menu run until it closes",
         [](ItemStage & /*stage*/) {
             const std::unique_ptr<QMenu> menu(newMenu());
             QTimer::singleShot(50, menu.get(), &QMenu::close);
             menu->exec(QPoint(10, 10));
         },
         nothing},
        {"modal panel opened in the scene",
         [](ItemStage &s) {
             auto *const panel = new QGraphicsRectItem(0, 0, 400, 300);
             panel->setFlag(QGraphicsItem::ItemIsPanel);
             panel->setPanelModality(QGraphicsItem::SceneModal);
             panel->setZValue(99);
             s.view.ownScene.addItem(panel);
         },
         [](ItemStage &s) {
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
        {"ungrabbed", [](ItemStage &s) { s.item->ungrabMouse(); }, nothing},
        {"another item grabs", [](ItemStage &s) { s.companion->grabMouse(); },
         [](ItemStage &s) { s.companion->ungrabMouse(); }},
        {"taken out of the scene", [](ItemStage &s) { s.view.ownScene.removeItem(s.item); },
         [](ItemStage &s) { s.item->setParentItem(s.parent); }},
        {"parent taken out of the scene",
         [](ItemStage &s) { s.view.ownScene.removeItem(s.parent); },
         [](ItemStage &s) { s.view.ownScene.addItem(s.parent); }},
    };
    return all;
}

} // namespace

const std::vector<Loss> &itemLosses()
{
    static const std::vector<Loss> all = {
        {"disabled", [](ItemStage &s) { s.item->setEnabled(false); },
         [](ItemStage &s) { s.item->setEnabled(true); }},
        {"hidden", [](ItemStage &s) { s.item->hide(); }, [](ItemStage &s) { s.item->show(); }},
        {"parent disabled", [](ItemStage &s) { s.parent->setEnabled(false); },
         [](ItemStage &s) { s.parent->setEnabled(true); }},
        {"parent hidden", [](ItemStage &s) { s.parent->hide(); },
         [](ItemStage &s) { s.parent->show(); }},
        {"pressed button switched off",
         [](ItemStage &s) { s.item->setAcceptedMouseButtons(Qt::RightButton); },
         [](ItemStage &s) { s.item->setAcceptedMouseButtons(Qt::LeftButton); }},
        {"buttons switched off",
         [](ItemStage &s) { s.item->setAcceptedMouseButtons(Qt::NoButton); },
         [](ItemStage &s) { s.item->setAcceptedMouseButtons(Qt::LeftButton); }},
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
