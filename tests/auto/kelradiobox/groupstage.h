// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef GROUPSTAGE_H
#define GROUPSTAGE_H

#include "stage.h"

#include <kelradiobox.h>

inline bool isDeaf(const KELRadioBox &box)
{
    return !box.acceptHoverEvents() && !box.acceptTouchEvents()
        && !box.flags().testFlag(QGraphicsItem::ItemIsSelectable)
        && box.acceptedMouseButtons() == Qt::NoButton;
}

inline bool isListening(const KELRadioBox &box)
{
    return box.acceptHoverEvents() && box.acceptTouchEvents()
        && box.flags().testFlag(QGraphicsItem::ItemIsSelectable)
        && box.acceptedMouseButtons() == Qt::LeftButton;
}

inline QString duplicateLine(int id)
{
    return u"waring : id %1 is already exist"_s.arg(id);
}

// A selection of the box of one place by setId(), and one by checking it.
inline QString signalsOfSetId(int old, int now)
{
    return u"%1.unchecked %1.checkChanged %2.checked %2.checkChanged idChanged"_s.arg(old).arg(now);
}

inline QString signalsOfCheck(int old, int now)
{
    return u"%2.checked %1.unchecked %1.checkChanged idChanged %2.checkChanged"_s.arg(old).arg(now);
}

// With the mouse, straight to the viewport: it need not be shown, and thousands take no time.
inline void tapUnshown(KelTestView *view, const QPoint &pos)
{
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, pos, view->viewport()->mapToGlobal(pos), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &event);
    }
}

// Three boxes in a view above a push button, and a group they are not in yet. The log has the
// signals of the group, those of each box with its number ("1.checked") and those of the button
// ("below.clicked").
class GroupStage
{
public:
    static constexpr int boxCount = 3;

    explicit GroupStage(Input input = Input::Mouse) :
        hand(&view, input), group(new KELRadioBoxGroup), below(new KELPushButton)
    {
        below->setboundRect(10, 10, 300, 100);
        view.ownScene.addItem(below);
        log.listenTo(group);
        log.listenTo(below, u"below"_s);
        for (int i = 0; i < boxCount; ++i)
            boxes[i] = addBoxToScene(i);
    }
    ~GroupStage()
    {
        log.stop();
        after.stop();
        // The scene emits selectionChanged() when it dies with a marked box.
        QObject::disconnect(&view.ownScene, &QGraphicsScene::selectionChanged, nullptr, nullptr);
        delete group;
    }

    KELRadioBox *addBoxToScene(int place)
    {
        auto *box = new KELRadioBox;
        box->setboundRect(30 + 80 * place, 30, 60, 50);
        view.ownScene.addItem(box);
        log.listenTo(box, QString::number(place));
        return box;
    }

    // The box of a place, which is new there, and in the group under its number.
    void replaceBox(int place)
    {
        delete boxes[place];
        boxes[place] = addBoxToScene(place);
        group->addRadioBox(boxes[place], place);
    }

    // Each box under the id that is its number: the first one is selected.
    void addAll()
    {
        for (int i = 0; i < boxCount; ++i)
            group->addRadioBox(boxes[i], i);
        for (int i = 0; i < boxCount; ++i)
            after.listenTo(boxes[i], QString::number(i));
        after.listenTo(group);
        log.take();
    }

    static QPoint centreOf(int place) { return QPoint(60 + 80 * place, 55); }
    void tap(int place) { hand.tap(centreOf(place)); }

    // "id 0, checked 0, deaf 0": the numbers of the checked boxes, and of those that take no input;
    // all others take it.
    QString state() const
    {
        QString text = group ? u"id %1"_s.arg(group->id()) : u"no group"_s;
        text += u", checked "_s + boxesThat([](const KELRadioBox &box) { return box.isCheck(); });
        text += u", deaf "_s + boxesThat(isDeaf);
        const QString odd = boxesThat(
            [](const KELRadioBox &box) { return !isDeaf(box) && !isListening(box); });
        return odd == u"none"_s ? text : text + u", odd "_s + odd;
    }
    QString checkedBoxes() const
    {
        return boxesThat([](const KELRadioBox &box) { return box.isCheck(); });
    }

    KelTestView view;
    Hand hand;
    SignalLog log; // connected before the group
    SignalLog after; // and after it, by addAll()
    QPointer<KELRadioBoxGroup> group;
    QPointer<KELPushButton> below;
    QPointer<KELRadioBox> boxes[boxCount];

private:
    QString boxesThat(const std::function<bool(const KELRadioBox &)> &holds) const
    {
        QStringList numbers;
        for (int i = 0; i < boxCount; ++i) {
            if (boxes[i] && holds(*boxes[i]))
                numbers.append(QString::number(i));
        }
        return numbers.isEmpty() ? u"none"_s : numbers.join(QLatin1Char(' '));
    }
};

class FullGroup : public GroupStage
{
public:
    explicit FullGroup(Input input = Input::Mouse) : GroupStage(input) { addAll(); }
};

#endif
