// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef TOGGLESTAGE_H
#define TOGGLESTAGE_H

#include "keltest.h"

#include <kelcheckbox.h>
#include <kelpushbutton.h>
#include <kelradiobox.h>

#include <QtCore/QPointer>

#include <functional>

enum class Kind { CheckBox, RadioBox };
enum class Signal { Press, Checked, Unchecked, CheckChanged, Release, Clicked, DoubleClicked };
enum class Way { Delete, DeleteLater, ClearScene };
enum class Input { Mouse, Touch };

inline const QPoint boxCentre(140, 115);
inline const QPoint otherCentre(250, 125);
inline const QPoint besideTheBoxes(20, 20);

template <typename Box, typename Slot>
void connectToBox(Box *box, Signal signal, QObject *context, const Slot &slot)
{
    const auto connectSignal = [&](auto pointer) {
        QObject::connect(box, pointer, context, [slot] { slot(); });
    };
    switch (signal) {
    case Signal::Press:
        return connectSignal(&Box::mousePress);
    case Signal::Checked:
        return connectSignal(&Box::checked);
    case Signal::Unchecked:
        return connectSignal(&Box::unchecked);
    case Signal::CheckChanged:
        return connectSignal(&Box::checkChanged);
    case Signal::Release:
        return connectSignal(&Box::mouseRelease);
    case Signal::Clicked:
        return connectSignal(&Box::mouseClicked);
    case Signal::DoubleClicked:
        return connectSignal(&Box::mouseDoubleClicked);
    }
}

inline void connectTo(KELRoundRectControl *box, Signal signal, QObject *context,
                      const std::function<void()> &slot)
{
    if (auto *checkBox = qobject_cast<KELCheckBox *>(box))
        connectToBox(checkBox, signal, context, slot);
    else
        connectToBox(qobject_cast<KELRadioBox *>(box), signal, context, slot);
}

// As a stage writes it down.
inline QString nameOf(Signal signal)
{
    switch (signal) {
    case Signal::Press:
        return u"press"_s;
    case Signal::Checked:
        return u"checked"_s;
    case Signal::Unchecked:
        return u"unchecked"_s;
    case Signal::CheckChanged:
        return u"changed"_s;
    case Signal::Release:
        return u"release"_s;
    case Signal::Clicked:
        return u"click"_s;
    case Signal::DoubleClicked:
        return u"double"_s;
    }
    return QString();
}

inline KELRoundRectControl *newBox(Kind kind)
{
    KELRoundRectControl *box = nullptr;
    if (kind == Kind::CheckBox)
        box = new KELCheckBox;
    else
        box = new KELRadioBox;
    box->setboundRect(100, 100, 80, 30);
    return box;
}

// A check box or a radio box in a view, which writes its signals down, and a push button beside it.
class Stage
{
public:
    explicit Stage(Kind kind) : box(newBox(kind)), other(new KELPushButton)
    {
        view.ownScene.addItem(box);
        other->setboundRect(200, 100, 100, 50);
        view.ownScene.addItem(other);
        for (const Signal signal :
             {Signal::Press, Signal::Checked, Signal::Unchecked, Signal::CheckChanged,
              Signal::Release, Signal::Clicked, Signal::DoubleClicked})
            connectTo(box, signal, &view, [this, signal] { m_names.append(nameOf(signal)); });
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

    void press(Input input, const QPoint &pos = boxCentre)
    {
        if (input == Input::Touch)
            view.touchPress(pos);
        else
            view.press(pos);
    }
    void move(Input input, const QPoint &pos)
    {
        if (input == Input::Touch)
            view.touchMove(pos);
        else
            view.move(pos);
    }
    void release(Input input, const QPoint &pos = boxCentre)
    {
        if (input == Input::Touch)
            view.touchRelease(pos);
        else
            view.release(pos);
    }
    void tap(Input input, const QPoint &pos = boxCentre)
    {
        press(input, pos);
        release(input, pos);
    }
    // The press of a second tap in the same place.
    void pressAgain(Input input)
    {
        if (input == Input::Touch)
            view.touchPress(boxCentre);
        else
            view.doubleClickPress(boxCentre);
    }

    // A press without the release that QTest would report at the end of the window.
    void pressOnly(const QPoint &pos, Qt::MouseButton button = Qt::LeftButton) const
    {
        QMouseEvent event(QEvent::MouseButtonPress, pos, view.viewport()->mapToGlobal(pos), button,
                          button, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    void destroy(Way way)
    {
        ++destroyCalls;
        switch (way) {
        case Way::Delete:
            delete box;
            break;
        case Way::DeleteLater:
            box->deleteLater();
            break;
        case Way::ClearScene:
            view.ownScene.clear();
            break;
        }
    }

    QString takeNames() { return std::exchange(m_names, QStringList()).join(QLatin1Char(' ')); }

    KelTestView view;
    QPointer<KELRoundRectControl> box;
    QPointer<KELPushButton> other;
    int destroyCalls = 0;

private:
    QStringList m_names;
};

struct Named
{
    const char *name;
    int value;
};

inline const Named kinds[] = {{"check box", int(Kind::CheckBox)},
                              {"radio box", int(Kind::RadioBox)}};
inline const Named inputs[] = {{"mouse", int(Input::Mouse)}, {"touch", int(Input::Touch)}};
inline const Named ways[] = {{"delete", int(Way::Delete)},
                             {"deleteLater", int(Way::DeleteLater)},
                             {"scene cleared", int(Way::ClearScene)}};
inline const Named signalNames[] = {{"press", int(Signal::Press)},
                                    {"checked", int(Signal::Checked)},
                                    {"unchecked", int(Signal::Unchecked)},
                                    {"check changed", int(Signal::CheckChanged)},
                                    {"release", int(Signal::Release)},
                                    {"clicked", int(Signal::Clicked)},
                                    {"double clicked", int(Signal::DoubleClicked)}};

#endif
