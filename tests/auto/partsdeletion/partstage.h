// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PARTSTAGE_H
#define PARTSTAGE_H

#include <kelscreen.h>

#include <QtCore/QPointer>
#include <QtCore/QVector>

#include <vector>

// A screen with parts, all of which may be deleted. Built afresh for each cell.
class PartStage
{
public:
    PartStage();
    ~PartStage();

    template <class Object>
    Object *add(Object *object)
    {
        m_objects.append(object);
        return object;
    }
    // Adds all parts, pages, controls and models that belong to those added.
    void walk();

    int count() const { return m_objects.size(); }
    QObject *at(int index) const { return m_objects.at(index); }

    // A place that a finger uses.
    void addSpot(const QPoint &pos) { spots.append(pos); }

    template <class Object>
    Object *find(int nth = 0) const
    {
        for (const QPointer<QObject> &object : m_objects) {
            auto *const found = qobject_cast<Object *>(object.data());
            if (found && nth-- == 0)
                return found;
        }
        return nullptr;
    }

    const QPointer<KELScreen> screen;
    const QPointer<KELPage> page;
    QVector<QPoint> spots;

private:
    Q_DISABLE_COPY(PartStage)

    QVector<QPointer<QObject>> m_objects;
};

struct PartStageKind
{
    const char *name;
    void (*build)(PartStage *);
};

struct PartAction
{
    const char *name;
    bool needsSpot;
    void (*play)(PartStage *, const QPoint &);
};

const std::vector<PartStageKind> &partStages();
const std::vector<PartAction> &partActions();

#endif
