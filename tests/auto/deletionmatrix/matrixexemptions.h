// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MATRIXEXEMPTIONS_H
#define MATRIXEXEMPTIONS_H

#include <QtCore/QString>
#include <QtCore/QVector>

struct QMetaObject;

// What a cell does, in the words that exemptions are written in.
struct CellFacts
{
    QString stage;
    QString action;
    QString spot;
    QString sender;
    QString signal;
    QString victim;
    const QMetaObject *senderClass = nullptr;
    const QMetaObject *victimClass = nullptr;
    bool isGesture = false;
    bool isLater = false; // deleteLater()
    bool isItself = false; // the victim is the sender
    bool victimHoldsSender = false; // the sender dies with the victim
    bool senderHoldsVictim = false;
    bool areInOneTree = false; // both below the same outermost item
    bool victimHoldsTarget = false; // what is pressed, or called

    bool is(const char *name) const { return signal == QLatin1String(name); }
    bool victimIsA(const QMetaObject &meta) const;
    bool senderIsA(const QMetaObject &meta) const;
};

// A cell that is left out.
struct Exemption
{
    const char *reason;
    bool (*applies)(const CellFacts &cell);
};

// A signal that a class inherits and never sends.
struct SilentSignal
{
    const char *className;
    const char *signal;
    const char *reason;
};

const QVector<Exemption> &exemptions();
const QVector<SilentSignal> &silentSignals();

#endif
