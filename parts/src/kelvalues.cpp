// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelvalues.h"

#include "kelvaluelink_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QMetaMethod>
#include <kelcombobox.h>
#include <kelprocessbar.h>
#include <kelradiobox.h>

#include <algorithm>
#include <array>

namespace {

// A property of KELValues, the class that it is for, and what that class calls its notify signal.
struct Offer
{
    const char *property;
    const QMetaObject *owner;
    const char *signal;
};

const std::array<Offer, 7> &offers()
{
    static const std::array<Offer, 7> all = {{
        {"text", &KELRoundRectControl::staticMetaObject, nullptr},
        {"enabled", &KELRoundRectControl::staticMetaObject, "enabledChanged()"},
        {"visible", &KELRoundRectControl::staticMetaObject, "visibleChanged()"},
        {"check", &KELRoundRectControl::staticMetaObject, "checkChanged()"},
        {"percent", &KELProcessBar::staticMetaObject, "valueChanged()"},
        {"selectIndex", &KELComboBox::staticMetaObject, "selectItemChanged()"},
        {"currentId", &KELRadioBoxGroup::staticMetaObject, "idChanged()"},
    }};
    return all;
}

bool isOffered(const QObject *object, const QByteArray &name)
{
    return std::any_of(offers().begin(), offers().end(), [&](const Offer &offer) {
        return name == offer.property && object->metaObject()->inherits(offer.owner);
    });
}

// Finds a property of the object or, where it has none of the name, of its values.
bool find(KELValueSide *side, const char *what, QObject *object, const QByteArray &name)
{
    if (!object) {
        qWarning("KELValues: no %s", what);
        return false;
    }
    const bool isFound = side->find(object, name.constData())
        || (isOffered(object, name) && side->find(KELValues::of(object), name.constData()));
    if (!isFound) {
        qWarning("KELValues: %s has no property \"%s\"", object->metaObject()->className(),
                 name.constData());
    }
    return isFound;
}

QObject *newLink(QObject *model, const char *property, QObject *control,
                 const char *controlProperty, bool isEdit, const QString &format, int decimals)
{
    KELValueSide source;
    KELValueSide shown;
    if (!find(&source, "model", model, property)
        || !find(&shown, "control", control, controlProperty)
        || !shown.can(shown.property.isWritable(), "cannot be written")
        || (isEdit && !source.can(source.property.isWritable(), "cannot be written")))
        return nullptr;
    const QPointer<KELValueLink> made(new KELValueLink(control, format, decimals));
    made->model = source;
    made->shown = shown;
    if (!made->listenToModel() || (isEdit && !made->listenToControl()))
        return nullptr;
    if (source.object)
        QObject::connect(source.object, SIGNAL(destroyed()), made, SLOT(deleteLater()));
    if (made)
        made->onModelChanged();
    return made;
}

} // namespace

KELValues::KELValues(QObject *object) : QObject(object)
{
    const QMetaObject *meta = object->metaObject();
    for (const Offer &offer : offers()) {
        const int signal = offer.signal ? meta->indexOfSignal(offer.signal) : -1;
        if (signal < 0 || !meta->inherits(offer.owner))
            continue;
        const int index = staticMetaObject.indexOfProperty(offer.property);
        connect(object, meta->method(signal), this,
                staticMetaObject.property(index).notifySignal());
    }
}

KELValues *KELValues::of(QObject *object)
{
    if (!object)
        return nullptr;
    if (auto *values = object->findChild<KELValues *>(QString(), Qt::FindDirectChildrenOnly))
        return values;
    if (isOffered(object, QByteArrayLiteral("text"))
        || isOffered(object, QByteArrayLiteral("currentId")))
        return new KELValues(object);
    qWarning("KELValues: %s has no values", object->metaObject()->className());
    return nullptr;
}

QObject *KELValues::show(QObject *model, const char *property, QObject *control,
                         const char *controlProperty, const QString &format, int decimals)
{
    return newLink(model, property, control, controlProperty, false, format, decimals);
}

QObject *KELValues::edit(QObject *model, const char *property, QObject *control,
                         const char *controlProperty)
{
    return newLink(model, property, control, controlProperty, true, QString(), -1);
}

QString KELValues::text() const
{
    const auto *control = qobject_cast<KELRoundRectControl *>(parent());
    return control ? control->text() : QString();
}

void KELValues::setText(const QString &text)
{
    auto *control = qobject_cast<KELRoundRectControl *>(parent());
    if (!control)
        return;
    if (control->text() == text)
        return;
    control->setText(text);
    Q_EMIT textChanged();
}

bool KELValues::isEnabled() const
{
    const auto *control = qobject_cast<KELRoundRectControl *>(parent());
    return control != nullptr && control->isEnabled();
}

void KELValues::setEnabled(bool enabled)
{
    if (auto *control = qobject_cast<KELRoundRectControl *>(parent()))
        control->setEnabled(enabled);
}

bool KELValues::isVisible() const
{
    const auto *control = qobject_cast<KELRoundRectControl *>(parent());
    return control != nullptr && control->isVisible();
}

void KELValues::setVisible(bool visible)
{
    if (auto *control = qobject_cast<KELRoundRectControl *>(parent()))
        control->setVisible(visible);
}

bool KELValues::isCheck() const
{
    const auto *control = qobject_cast<KELRoundRectControl *>(parent());
    return control != nullptr && control->isCheck();
}

// A control that tells of its state has its signal connected.
void KELValues::setCheck(bool check)
{
    auto *control = qobject_cast<KELRoundRectControl *>(parent());
    if (!control || control->isCheck() == check)
        return;
    const bool isTold = control->metaObject()->indexOfSignal("checkChanged()") >= 0;
    const QPointer<KELValues> self(this);
    control->setCheck(check);
    if (self && !isTold)
        Q_EMIT checkChanged();
}

int KELValues::percent() const
{
    const auto *bar = qobject_cast<KELProcessBar *>(parent());
    return bar ? bar->value() : 0;
}

void KELValues::setPercent(int percent)
{
    if (auto *bar = qobject_cast<KELProcessBar *>(parent()))
        bar->setValue(percent);
}

int KELValues::selectIndex() const
{
    const auto *box = qobject_cast<KELComboBox *>(parent());
    return box ? box->selectIndex() : 0;
}

void KELValues::setSelectIndex(int index)
{
    if (auto *box = qobject_cast<KELComboBox *>(parent()))
        box->setSelectIndex(index);
}

int KELValues::currentId() const
{
    const auto *group = qobject_cast<KELRadioBoxGroup *>(parent());
    return group ? group->id() : 0;
}

void KELValues::setCurrentId(int id)
{
    if (auto *group = qobject_cast<KELRadioBoxGroup *>(parent()))
        group->setId(id);
}
