// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "matrixexemptions.h"

#include "matrixstage.h"

#include <kelnonmodaldialog.h>

#include <QtCore/QMetaObject>
#include <QtWidgets/QDialog>
#include <QtWidgets/QGraphicsObject>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QMenu>

bool CellFacts::victimIsA(const QMetaObject &meta) const
{
    return victimClass->inherits(&meta);
}

bool CellFacts::senderIsA(const QMetaObject &meta) const
{
    return senderClass->inherits(&meta);
}

namespace {

// Defects that are known. The line in the table goes with the defect.
struct Open
{
    static bool addingTable(const CellFacts &cell)
    {
        return cell.action == QLatin1String("addItem of a table") && cell.is("childrenChanged")
            && !cell.isLater && cell.victimHoldsSender;
    }
    static bool contentView(const CellFacts &cell)
    {
        return cell.action.startsWith(QLatin1String("setContent")) && !cell.isLater
            && !cell.is("sceneRectChanged")
            && (cell.victimIsA(QGraphicsView::staticMetaObject)
                || cell.victimIsA(QGraphicsScene::staticMetaObject)
                || cell.victim == QLatin1String("room"));
    }
    // Signals of Qt that come from the middle of the library's own work: no limit of Qt.
    static bool isOwnWork(const CellFacts &cell) { return addingTable(cell) || contentView(cell); }
};

} // namespace

const QVector<Exemption> &exemptions()
{
    static const QVector<Exemption> all = {
        {"aboutToShow() and aboutToHide(): QMenu uses itself afterwards",
         [](const CellFacts &cell) {
             return !cell.isLater && (cell.is("aboutToShow") || cell.is("aboutToHide"))
                 && cell.isItself;
         }},
        {"a widget in its own hide event: Qt uses it afterwards",
         [](const CellFacts &cell) {
             return !cell.isLater && cell.is("isHidden") && cell.isItself;
         }},
        {"no slot that runs inside a gesture may delete the view or the scene",
         [](const CellFacts &cell) {
             return cell.isGesture && !cell.isLater
                 && (cell.victimIsA(QGraphicsView::staticMetaObject)
                     || cell.victimIsA(QGraphicsScene::staticMetaObject)
                     || cell.victimIsA(QDialog::staticMetaObject)
                     || cell.victim == QLatin1String("room"));
         }},
        {"a slot of selectionChanged() must not delete the item that is being selected",
         [](const CellFacts &cell) {
             return !cell.isLater && cell.is("selectionChanged")
                 && (cell.victimHoldsTarget
                     || cell.victimHoldsSender
                     // Another item is selected as well, by the second tap or by what the first one
                     // did.
                     || cell.victim == QLatin1String("button below")
                     || ((cell.stage == QLatin1String("open combo box")
                          || cell.stage == QLatin1String("navigation table"))
                         && cell.victimIsA(QGraphicsObject::staticMetaObject)));
         }},
        {"visibleChanged() and enabledChanged() of a child: Qt goes through all children of an "
         "item",
         [](const CellFacts &cell) {
             return !cell.isLater && !Open::isOwnWork(cell)
                 && (cell.is("visibleChanged") || cell.is("enabledChanged")) && !cell.isItself
                 && !cell.senderHoldsVictim
                 && (cell.areInOneTree || cell.victimHoldsSender
                     || (cell.action == QLatin1String("addItem of a table")
                         && cell.victimIsA(QGraphicsObject::staticMetaObject)));
         }},
        {"parentChanged(), xChanged(), yChanged(): Qt uses the item afterwards",
         [](const CellFacts &cell) {
             return !cell.isLater && !Open::isOwnWork(cell)
                 && (cell.is("parentChanged") || cell.is("xChanged") || cell.is("yChanged"))
                 && cell.victimHoldsSender;
         }},
        {"childrenChanged(): Qt uses both parents, the child and the scene afterwards",
         [](const CellFacts &cell) {
             return !cell.isLater && !Open::isOwnWork(cell) && cell.is("childrenChanged")
                 && (cell.areInOneTree || cell.victimHoldsSender || cell.victimHoldsTarget
                     || cell.victim.endsWith(QLatin1String("wrapper"))
                     || cell.victim == QLatin1String("page of the other"));
         }},
        {"sceneRectChanged(): sent in the resize event of the view",
         [](const CellFacts &cell) {
             return !cell.isLater && cell.is("sceneRectChanged") && cell.victimHoldsSender
                 && !cell.isItself;
         }},
        {"changed(): the scene uses itself afterwards",
         [](const CellFacts &cell) {
             return !cell.isLater && cell.is("changed") && cell.victimHoldsSender;
         }},
        {"accepted() and rejected(): QDialog uses itself afterwards",
         [](const CellFacts &cell) {
             return !cell.isLater && (cell.is("accepted") || cell.is("rejected"))
                 && cell.victimHoldsSender;
         }},
        {"destroyed() of a part: what it is a part of is being deleted already",
         [](const CellFacts &cell) {
             return !cell.isLater && !Open::isOwnWork(cell) && cell.is("destroyed")
                 && cell.victimHoldsSender;
         }},
    };
    return all;
}

const QVector<SilentSignal> &silentSignals()
{
    static const QVector<SilentSignal> all = {
        {"KELComboBox", "mousePress", "its button takes the press"},
        {"KELComboBox", "mouseRelease", "its button takes the press"},
        {"KELComboBox", "mouseClicked", "its button takes the press"},
        {"KELComboBox", "mouseDoubleClicked", "its button takes the press"},
        {"KELComboBox", "mouseLongPress", "its button takes the press"},
        {"KELComboBox", "mouseEnter", "its button takes the pointer"},
        {"KELComboBox", "mouseLeave", "its button takes the pointer"},
        {"KELNavigationTable", "mousePress", "it does not report presses"},
        {"KELNavigationTable", "mouseClicked", "it does not report presses"},
        {"KELNavigationTable", "mouseLongPress", "it does not report presses"},
        {"KELSlideControl", "mouseLongPress", "it fires none"},
    };
    return all;
}
