// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_STAGE_H
#define MONKEY_STAGE_H

#include "hands.h"
#include "script.h"
#include "things.h"
#include "witness.h"

#include <kelnonmodaldialog.h>
#include <kelradiobox.h>

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

#include <array>

class KELDialogBase;

namespace Monkey {

class VirtualTime;

// Everything that a script plays on: numbered places for items, views and other objects, which may
// be empty. Built afresh for each script.
class Stage
{
public:
    static constexpr int itemCount = 16;
    static constexpr int groupCount = 2;
    static constexpr int bindingCount = 5;
    static constexpr int helperCount = 2;

    // The first is always there; the others are made by the script.
    enum ViewName {
        PlainView,
        ContentView,
        SideMenu,
        WindowPanel,
        ChildPanel,
        DialogView,
        SecondView,
        viewCount
    };

    explicit Stage(VirtualTime *time);
    ~Stage();

    void run(const Step &step); // in any place, if the verb may be used there
    void turn(); // one round of the event loop
    void finish(); // lifts all fingers, deletes everything and checks what is left

    // The first failure counts.
    void fail(const QString &what);
    QString failure() const { return m_failure; }

    KELRoundRectControl *item(int index) const { return m_items.at(wrap(index, itemCount)); }
    template <class Control>
    Control *itemAs(int index) const
    {
        return qobject_cast<Control *>(item(index));
    }
    Witness *witness(const QObject *control) const { return m_witnesses.value(control); }
    QList<Witness *> witnesses() const { return m_witnesses.values(); }
    void setItem(int index, KELRoundRectControl *control);
    void watch(KELRoundRectControl *control);
    void forget(const QObject *control) { m_witnesses.remove(control); }
    // An item that is in no scene and has no parent belongs to the stage.
    void add(int view, KELRoundRectControl *control);

    QGraphicsView *view(int index) const { return m_views.at(wrap(index, viewCount)); }
    void makeView(int index);
    void dropView(int index);
    QGraphicsScene *sceneOf(int view) const;

    bool isInSlot() const { return m_slotDepth > 0; }
    bool isNested() const { return m_loopDepth > 0 || isInSlot(); }
    // Runs the step of a script in a slot.
    void react(const Step &step);
    // Runs the step in a nested event loop.
    void runNested(const Step &step);
    bool isTooDeep() const { return m_loopDepth >= 3; }
    void closePopups() const;

    struct Group
    {
        QPointer<KELRadioBoxGroup> group;
        QHash<int, QPointer<KELRadioBox>> boxes;
    };
    static KELRadioBoxGroup *groupOf(const Stage *stage, int index);
    Group *groupOf(const KELRoundRectControl *box); // or null

    VirtualTime *const time;
    QPointer<QWidget> desk;
    QPointer<QWidget> popup; // what helpers hide
    QPointer<KELDialogBase> dialog;
    std::array<Group, groupCount> groups;
    std::array<QPointer<Model>, bindingCount> models;
    std::array<QPointer<KELDataBind>, bindingCount> bindings;
    std::array<QPointer<KELNonModalhelper>, helperCount> helpers;
    Converters converters;
    Hands hands;
    int paintsInTurn = 0;

    static std::size_t wrap(int index, int count)
    {
        return std::size_t((index % count + count) % count);
    }

private:
    Q_DISABLE_COPY(Stage)

    void dropEverything();

    std::array<QPointer<KELRoundRectControl>, itemCount> m_items;
    std::array<QPointer<QGraphicsView>, viewCount> m_views;
    QPointer<QGraphicsScene> m_scene; // of the plain views
    QHash<const QObject *, Witness *> m_witnesses;
    QString m_failure;
    int m_slotDepth = 0;
    int m_loopDepth = 0;
    int m_filtersBefore = 0;
};

} // namespace Monkey

#endif
