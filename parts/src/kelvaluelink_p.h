// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELVALUELINK_P_H
#define KELVALUELINK_P_H

#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVariant>

// One property of an object that may be destroyed at any time.
struct KELValueSide
{
    // Returns whether there is such a property.
    bool find(QObject *owner, const char *name);
    // Returns is, after a warning with what if that is false.
    bool can(bool is, const char *what) const;
    QVariant read() const { return object ? property.read(object) : QVariant(); }

    QPointer<QObject> object;
    QMetaProperty property;
};

/*
 * Copies between a property of a model and one that shows it, its model first.
 *
 * Each call of a getter or setter may destroy it.
 */
class KELValueLink final : public QObject
{
    Q_OBJECT

public:
    KELValueLink(QObject *control, QString format, int decimals);

    // False when the link is gone: connectNotify() of an object may do anything.
    bool listenToModel() { return listen(model, "onModelChanged()"); }
    bool listenToControl() { return listen(shown, "onControlChanged()"); }

    KELValueSide model;
    KELValueSide shown;

public Q_SLOTS:
    void onModelChanged();
    void onControlChanged();

private:
    bool listen(const KELValueSide &side, const char *slot);
    QVariant forControl(const QVariant &value) const;
    void showOnce();

    const QString m_format;
    const int m_decimals;
    bool m_isCopying = false;
    bool m_isStale = false; // the model has changed in the meantime
};

#endif
