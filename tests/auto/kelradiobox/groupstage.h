// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef GROUPSTAGE_H
#define GROUPSTAGE_H

#include "keltest.h"

#include <kelpushbutton.h>
#include <kelradiobox.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QPointer>

#include <functional>

enum class Input { Mouse, Touch };

struct Named
{
    const char *name;
    int value;
};

inline const Named inputs[] = {{"mouse", int(Input::Mouse)}, {"touch", int(Input::Touch)}};

inline const QPoint besideTheBoxes(20, 250);

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

inline bool hasTimer(QObject *object)
{
    return !QAbstractEventDispatcher::instance()->registeredTimers(object).isEmpty();
}

// Three boxes in a view above a push button, and a group they are not in yet. Writes the signals
// down with the number of the box; "id" is idChanged().
class GroupStage
{
public:
    static constexpr int boxCount = 3;

    GroupStage() : group(new KELRadioBoxGroup), below(new KELPushButton)
    {
        below->setboundRect(10, 10, 300, 100);
        view.ownScene.addItem(below);
        for (int i = 0; i < boxCount; ++i)
            boxes[i] = addBoxToScene(i);
        QObject::connect(group, &KELRadioBoxGroup::idChanged, &view,
                         [this] { m_names.append(u"id"_s); });
    }
    ~GroupStage()
    {
        // The scene emits selectionChanged() when it dies with a marked box.
        QObject::disconnect(&view.ownScene, &QGraphicsScene::selectionChanged, nullptr, nullptr);
        delete group;
    }

    KELRadioBox *addBoxToScene(int place)
    {
        auto *box = new KELRadioBox;
        box->setboundRect(30 + 80 * place, 30, 60, 50);
        view.ownScene.addItem(box);
        const auto note = [this, place](const char *name) {
            return [this, place, name] {
                m_names.append(u"%1 %2"_s.arg(QLatin1String(name)).arg(place));
            };
        };
        QObject::connect(box, &KELRadioBox::mousePress, &view, note("press"));
        QObject::connect(box, &KELRadioBox::mouseRelease, &view, note("release"));
        QObject::connect(box, &KELRadioBox::mouseClicked, &view, note("click"));
        QObject::connect(box, &KELRadioBox::mouseDoubleClicked, &view, note("double"));
        QObject::connect(box, &KELRadioBox::mouseLongPress, &view, note("long"));
        QObject::connect(box, &KELRadioBox::mouseEnter, &view,
                         [this, place] { m_hovers.append(u"enter %1"_s.arg(place)); });
        QObject::connect(box, &KELRadioBox::mouseLeave, &view,
                         [this, place] { m_hovers.append(u"leave %1"_s.arg(place)); });
        QObject::connect(box, &KELRadioBox::checked, &view, note("checked"));
        QObject::connect(box, &KELRadioBox::unchecked, &view, note("unchecked"));
        QObject::connect(box, &KELRadioBox::checkChanged, &view, note("changed"));
        return box;
    }

    // Each box under the id that is its number: the first one is selected.
    void addAll()
    {
        for (int i = 0; i < boxCount; ++i)
            group->addRadioBox(boxes[i], i);
        takeNames();
    }

    bool show()
    {
        if (!view.showAndWait())
            return false;
        // Elsewhere, so that the next tap is not the second of a double tap.
        tap(Input::Mouse, besideTheBoxes);
        tap(Input::Touch, besideTheBoxes);
        return true;
    }

    static QPoint centreOf(int place) { return QPoint(60 + 80 * place, 55); }

    void press(Input input, const QPoint &pos)
    {
        if (input == Input::Touch) {
            view.touchPress(pos);
            return;
        }
        sendMouse(QEvent::MouseButtonPress, pos, Qt::LeftButton, Qt::LeftButton);
    }
    void release(Input input, const QPoint &pos)
    {
        if (input == Input::Touch) {
            view.touchRelease(pos);
            return;
        }
        sendMouse(QEvent::MouseButtonRelease, pos, Qt::LeftButton, Qt::NoButton);
    }
    void tap(Input input, const QPoint &pos)
    {
        press(input, pos);
        release(input, pos);
    }
    void hover(const QPoint &pos) { sendMouse(QEvent::MouseMove, pos, Qt::NoButton, Qt::NoButton); }

    QString takeNames() { return std::exchange(m_names, QStringList()).join(QLatin1String(", ")); }

    QString takeHovers()
    {
        return std::exchange(m_hovers, QStringList()).join(QLatin1String(", "));
    }

    // The numbers of the checked boxes, and of those that take no input.
    QVector<int> checkedBoxes() const
    {
        return boxesThat([](const KELRadioBox &box) { return box.isCheck(); });
    }
    QVector<int> deafBoxes() const { return boxesThat(isDeaf); }
    QVector<int> listeningBoxes() const { return boxesThat(isListening); }

    KelTestView view;
    QPointer<KELRadioBoxGroup> group;
    QPointer<KELPushButton> below;
    QPointer<KELRadioBox> boxes[boxCount];

private:
    void sendMouse(QEvent::Type type, const QPoint &pos, Qt::MouseButton button,
                   Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, pos, view.viewport()->mapToGlobal(pos), button, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    QVector<int> boxesThat(const std::function<bool(const KELRadioBox &)> &holds) const
    {
        QVector<int> numbers;
        for (int i = 0; i < boxCount; ++i) {
            if (boxes[i] && holds(*boxes[i]))
                numbers.append(i);
        }
        return numbers;
    }

    QStringList m_names;
    QStringList m_hovers;
};

#endif
