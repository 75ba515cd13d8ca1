// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BINDSCRIPT_H
#define BINDSCRIPT_H

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <random>

class BindModel;

enum class Action {
    CreateObject,
    CreateBinding, // object: the parent, or none
    StaticBind,
    SetBind,
    Bind,
    Unbind,
    Update,
    CallSrcValueChanged,
    CallDstValueChanged,
    SetProperty,
    BlockSignals, // of object, or unblock them
    SwitchConverter, // between a default and a custom one
    DeleteObject,
    DeleteBinding,
};

// Objects and bindings are numbered as they are created; a number is not used again.
struct Step
{
    static constexpr int none = -1;

    Action action = Action::Bind;
    int binding = none;
    int object = none; // also the source
    QByteArray name; // also that of the source; null is a null pointer
    int destination = none;
    QByteArray destinationName;
    int mode = 0;
    int converter = 0;
    int kind = 0;
    QVariant value;

    QString inWords() const;
};

// Makes up steps that suit a model; the same ones for the same seed, or for the same bytes.
class ScriptWriter
{
public:
    explicit ScriptWriter(quint32 seed) : m_random(seed) { }
    explicit ScriptWriter(const QByteArray &bytes) : m_hasBytes(true), m_bytes(bytes) { }
    // When there are no more bytes.
    bool isAtEnd() const { return m_hasBytes && m_next >= m_bytes.size(); }
    int length() { return below(12) + 6; }
    Step next(const BindModel &model);

private:
    quint32 choice();
    int below(int end) { return int(choice() % quint32(end)); }
    bool oneIn(int count) { return below(count) == 0; }
    template <typename T>
    T oneOf(std::initializer_list<T> choices)
    {
        return choices.begin()[below(int(choices.size()))];
    }

    Action action(const BindModel &model);
    int object(const BindModel &model);
    int binding(const BindModel &model);
    QByteArray name(const BindModel &model, int object);
    void chooseProperty(const BindModel &model, int *object, QByteArray *name);
    void chooseBoundProperty(const BindModel &model, int *object, QByteArray *name);
    QVariant value();
    void chooseBinding(const BindModel &model, Step *step);

    std::mt19937 m_random;
    bool m_hasBytes = false;
    QByteArray m_bytes; // each is a choice; after the last one all choices are the first
    int m_next = 0;
};

#endif
