// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MATRIXSTAGE_H
#define MATRIXSTAGE_H

#include "stage.h"

#include <kelcombobox.h>
#include <keldatabind.h>
#include <kelnonmodaldialog.h>
#include <kelroundrectcontrol.h>

#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtCore/QVector>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

#include <functional>
#include <utility>

// The objects of a cell whose destructor has begun. A slot that deletes one of these again is the
// application's mistake, and no cell.
class Dying
{
public:
    static void begin(const QObject *object) { objects().insert(object); }
    static void forget(const QObject *object) { objects().remove(object); }
    static void forgetAll() { objects().clear(); }
    static bool contains(const QObject *object) { return objects().contains(object); }

private:
    static QSet<const QObject *> &objects()
    {
        static QSet<const QObject *> set;
        return set;
    }
};

// An object that an application makes: it reports its death before the destructors of the library
// run.
template <class Type>
class Own : public Type
{
public:
    template <class... Arguments>
    explicit Own(Arguments &&...arguments) : Type(std::forward<Arguments>(arguments)...)
    {
        Dying::forget(this);
    }
    ~Own() override { Dying::begin(this); }
};

// What a binding is made between, with a signal in each place where foreign code runs.
class Model : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double number READ number WRITE setNumber NOTIFY numberChanged)

public:
    using QObject::QObject;

    double number() const
    {
        const double number = m_number;
        Q_EMIT numberRead();
        return number;
    }
    void setNumber(double number)
    {
        if (number == m_number)
            return;
        m_number = number;
        Q_EMIT numberChanged();
    }

Q_SIGNALS:
    void numberChanged();
    void numberRead() const;

private:
    double m_number = 0;
};

// Owns a binding and its converter.
class ConverterHolder : public QObject, public IKELValueConverter
{
    Q_OBJECT

public:
    ~ConverterHolder() override { delete binding; }

    QVariant Convert(QObject * /*object*/, const QVariant &value) override
    {
        const QVariant result(value);
        Q_EMIT converting();
        return result;
    }
    QVariant ConvertBack(QObject *object, const QVariant &value) override
    {
        return Convert(object, value);
    }

    QPointer<KELDataBind> binding;

Q_SIGNALS:
    void converting();
};

// A panel that reports when it is hidden.
class TellingPanel : public KELNonModalDialog
{
    Q_OBJECT

public:
    using KELNonModalDialog::KELNonModalDialog;

Q_SIGNALS:
    void isHidden();

protected:
    void hideEvent(QHideEvent *event) override
    {
        KELNonModalDialog::hideEvent(event);
        Q_EMIT isHidden();
    }
};

// What a cell plays on: objects that know of each other, all of which may be deleted. Built afresh
// for each cell.
class MatrixStage
{
public:
    // A place that the pointer can be used at.
    struct Spot
    {
        const char *name;
        QPointer<QWidget> viewport;
        QPoint pos;
    };

    // window holds all widgets of stages.
    explicit MatrixStage(QWidget *window) : desk(window) { Dying::forgetAll(); }
    ~MatrixStage();

    template <class Object>
    Object *add(const char *name, Object *object)
    {
        addObject(QString::fromLatin1(name), object);
        return object;
    }
    void addSpot(const char *name, QGraphicsView *shownIn, const QGraphicsItem *item);
    // Adds all objects that belong to those added.
    void walk();

    int count() const { return m_objects.size(); }
    QString nameOf(int index) const { return m_objects.at(index).name; }
    const QMetaObject *metaOf(int index) const { return m_objects.at(index).meta; }
    // Null when it is dead, or about to be.
    QObject *at(int index) const;

    // The living object of the class that was added first.
    template <class Object>
    Object *find(const char *name = nullptr) const
    {
        for (int i = 0; i < count(); ++i) {
            auto *const object = qobject_cast<Object *>(at(i));
            if (object && (!name || nameOf(i) == QLatin1String(name)))
                return object;
        }
        return nullptr;
    }

    QWidget *const desk;
    QPointer<QGraphicsView> view;
    QPointer<QGraphicsScene> scene;
    QPointer<KELRoundRectControl> subject;
    QVector<Spot> spots;

private:
    struct Entry
    {
        QString name;
        QPointer<QObject> object;
        const QMetaObject *meta;
    };

    void addObject(const QString &name, QObject *object);
    void addFound(QObject *object);
    void walkItem(const QGraphicsItem *item);

    QVector<Entry> m_objects;
    int m_roots = 0;
};

struct StageKind
{
    const char *name;
    std::function<void(MatrixStage *)> build;
};

struct Action
{
    const char *name;
    bool isGesture; // an event of the pointer, delivered by a view
    std::function<bool(const MatrixStage &)> applies;
    std::function<void(MatrixStage *, const MatrixStage::Spot *)>
        run; // the spot is null when no gesture
};

// What a combo box is pressed at.
KELPushButton *buttonOf(const KELComboBox *box);

const QVector<StageKind> &stageKinds();
const QVector<Action> &actions();

#endif
