// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelvalues.h"

#include <QtCore/QByteArray>
#include <QtCore/QLocale>
#include <QtCore/QMetaMethod>
#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <kelcombobox.h>
#include <kelprocessbar.h>
#include <kelradiobox.h>

namespace {

constexpr int mostRounds = 8;
constexpr ushort dash = 0x2013;

// A property of KELValues, the class that it is for, and what that class calls its notify signal.
struct Offer
{
    const char *property;
    const QMetaObject *owner;
    const char *signal;
};

const Offer offers[] = {
    {"text", &KELRoundRectControl::staticMetaObject, nullptr},
    {"enabled", &KELRoundRectControl::staticMetaObject, "enabledChanged()"},
    {"visible", &KELRoundRectControl::staticMetaObject, "visibleChanged()"},
    {"check", &KELRoundRectControl::staticMetaObject, "checkChanged()"},
    {"percent", &KELProcessBar::staticMetaObject, "valueChanged()"},
    {"selectIndex", &KELComboBox::staticMetaObject, "selectItemChanged()"},
    {"currentId", &KELRadioBoxGroup::staticMetaObject, "idChanged()"},
};

bool isOffered(const QObject *object, const QByteArray &name)
{
    for (const Offer &offer : offers) {
        if (name == offer.property && object->metaObject()->inherits(offer.owner))
            return true;
    }
    return false;
}

QMetaProperty propertyOf(const QObject *object, const char *name)
{
    const QMetaObject *meta = object->metaObject();
    return meta->property(meta->indexOfProperty(name));
}

} // namespace

// One property of an object that may be destroyed at any time.
struct KELValueSide
{
    bool find(const char *what, QObject *wanted, const QByteArray &name);
    bool can(bool is, const char *what) const;
    QVariant read() const { return object ? property.read(object) : QVariant(); }

    QPointer<QObject> object;
    QMetaProperty property;
};

// Copies between two properties. Each call of a getter or setter may destroy it.
class KELValueLink final : public QObject
{
    Q_OBJECT

public:
    KELValueLink(QObject *control, const QString &newFormat, int newDecimals) :
        QObject(control), format(newFormat), decimals(newDecimals)
    { }

    bool listen(const KELValueSide &side, const char *slot);

    KELValueSide model;
    KELValueSide shown;

public Q_SLOTS:
    void onModelChanged();
    void onControlChanged();

private:
    QVariant forControl(const QVariant &value) const;
    void showOnce();

    const QString format;
    const int decimals;
    bool isCopying = false;
    bool isStale = false; // the model has changed in the meantime
};

bool KELValueSide::can(bool is, const char *what) const
{
    if (!is) {
        qWarning("KELValues: property \"%s\" of %s %s", property.name(),
                 object->metaObject()->className(), what);
    }
    return is;
}

bool KELValueSide::find(const char *what, QObject *wanted, const QByteArray &name)
{
    if (!wanted) {
        qWarning("KELValues: no %s", what);
        return false;
    }
    object = wanted;
    property = propertyOf(wanted, name.constData());
    if (!property.isValid() && isOffered(wanted, name)) {
        object = KELValues::of(wanted);
        property = propertyOf(object, name.constData());
    }
    if (!property.isValid()) {
        qWarning("KELValues: %s has no property \"%s\"", wanted->metaObject()->className(),
                 name.constData());
    }
    return property.isValid();
}

// False when the link is gone: connectNotify() of an object may do anything.
bool KELValueLink::listen(const KELValueSide &side, const char *slot)
{
    const QPointer<KELValueLink> self(this);
    if (side.can(side.property.hasNotifySignal(), "does not notify")) {
        const QMetaMethod method = staticMetaObject.method(staticMetaObject.indexOfSlot(slot));
        connect(side.object, side.property.notifySignal(), this, method);
    }
    return self;
}

QVariant KELValueLink::forControl(const QVariant &value) const
{
    if (shown.property.userType() != QMetaType::QString)
        return value;
    const QLocale locale;
    QString text = QChar(dash);
    if (value.userType() == QMetaType::Double || value.userType() == QMetaType::Float) {
        const double number = value.toDouble();
        const int digits = decimals < 0 ? int(QLocale::FloatingPointShortest) : decimals;
        if (qIsFinite(number))
            text = locale.toString(number, 'f', digits);
    } else if (value.userType() == QMetaType::Int || value.userType() == QMetaType::UInt
               || value.userType() == QMetaType::LongLong) {
        text = locale.toString(value.toLongLong());
    } else if (value.isValid()) {
        text = value.toString();
    }
    return format.isEmpty() ? text : QString(format).replace(QLatin1String("%1"), text);
}

// Again for a model that a slot of the control has changed; not for ever, if each slot changes it.
void KELValueLink::showOnce()
{
    const QPointer<KELValueLink> self(this);
    isCopying = true;
    int round = 0;
    do {
        isStale = false;
        const QVariant value = model.read();
        if (!self || !model.object)
            break;
        const QVariant wanted = forControl(value);
        const bool isShown = shown.read() == wanted;
        if (!self)
            return;
        if (!isShown && shown.object)
            shown.property.write(shown.object, wanted);
    } while (self && isStale && ++round < mostRounds);
    if (self)
        isCopying = false;
}

void KELValueLink::onModelChanged()
{
    isStale = true;
    if (!isCopying)
        showOnce();
}

void KELValueLink::onControlChanged()
{
    if (isCopying)
        return;
    const QPointer<KELValueLink> self(this);
    isCopying = true;
    const QVariant value = shown.read();
    if (self && shown.object && model.object)
        model.property.write(model.object, value);
    if (self)
        showOnce();
}

static QObject *newLink(QObject *model, const char *property, QObject *control,
                        const char *controlProperty, bool isEdit, const QString &format,
                        int decimals)
{
    KELValueSide source;
    KELValueSide shown;
    if (!source.find("model", model, property) || !shown.find("control", control, controlProperty)
        || !shown.can(shown.property.isWritable(), "cannot be written")
        || (isEdit && !source.can(source.property.isWritable(), "cannot be written")))
        return nullptr;
    const QPointer<KELValueLink> made(new KELValueLink(control, format, decimals));
    made->model = source;
    made->shown = shown;
    if (!made->listen(source, "onModelChanged()")
        || (isEdit && !made->listen(shown, "onControlChanged()")))
        return nullptr;
    if (source.object)
        QObject::connect(source.object, SIGNAL(destroyed()), made, SLOT(deleteLater()));
    if (made)
        made->onModelChanged();
    return made;
}

KELValues::KELValues(QObject *object) : QObject(object)
{
    for (const Offer &offer : offers) {
        const int signal = offer.signal ? object->metaObject()->indexOfSignal(offer.signal) : -1;
        if (signal >= 0 && object->metaObject()->inherits(offer.owner)) {
            connect(object, object->metaObject()->method(signal), this,
                    propertyOf(this, offer.property).notifySignal());
        }
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
    if (!control || control->text() == text)
        return;
    control->setText(text);
    Q_EMIT textChanged();
}

bool KELValues::isEnabled() const
{
    const auto *control = qobject_cast<KELRoundRectControl *>(parent());
    return control && control->isEnabled();
}

void KELValues::setEnabled(bool enabled)
{
    if (auto *control = qobject_cast<KELRoundRectControl *>(parent()))
        control->setEnabled(enabled);
}

bool KELValues::isVisible() const
{
    const auto *control = qobject_cast<KELRoundRectControl *>(parent());
    return control && control->isVisible();
}

void KELValues::setVisible(bool visible)
{
    if (auto *control = qobject_cast<KELRoundRectControl *>(parent()))
        control->setVisible(visible);
}

bool KELValues::isCheck() const
{
    const auto *control = qobject_cast<KELRoundRectControl *>(parent());
    return control && control->isCheck();
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

#include "kelvalues.moc"
