// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindscript.h"

#include "bindmodel.h"

#include <QtCore/QDebug>

#include <limits>

namespace {

constexpr int mostObjects = 4;
constexpr int mostBindings = 4;

int livingObjects(const BindModel &model)
{
    int count = 0;
    for (int i = 0; i < model.objects().size(); ++i)
        count += model.isAlive(i) ? 1 : 0;
    return count;
}

int livingBindings(const BindModel &model)
{
    int count = 0;
    for (const BindModel::Binding &binding : model.bindings())
        count += binding.exists ? 1 : 0;
    return count;
}

int connectedBindings(const BindModel &model)
{
    int count = 0;
    for (const BindModel::Binding &binding : model.bindings())
        count += binding.exists && binding.mode > 1 ? 1 : 0;
    return count;
}

QString number(const char *what, int number)
{
    return number == Step::none ? QStringLiteral("nullptr")
                                : QStringLiteral("%1%2").arg(QLatin1String(what)).arg(number);
}

QString quoted(const QByteArray &name)
{
    if (name.isNull())
        return QStringLiteral("nullptr");
    QString text;
    QDebug(&text).nospace() << name; // escapes what is not ASCII
    return text;
}

} // namespace

QString Step::inWords() const
{
    const QString own = number("binding", binding);
    const QString thing = number("object", object);
    const QString bound = QStringLiteral("%1, %2, %3, %4, mode %5, converter %6")
                              .arg(thing, quoted(name), number("object", destination),
                                   quoted(destinationName), QString::number(mode),
                                   QString::number(converter));
    switch (action) {
    case Action::CreateObject:
        return QStringLiteral("new %1").arg(QLatin1String(kindsOfThings().at(kind).name));
    case Action::CreateBinding:
        return QStringLiteral("new KELDataBind(%1)").arg(thing);
    case Action::StaticBind:
        return QStringLiteral("KELDataBind::bind(%1)").arg(bound);
    case Action::SetBind:
        return QStringLiteral("%1.setBind(%2)").arg(own, bound);
    case Action::Bind:
        return own + QStringLiteral(".bind()");
    case Action::Unbind:
        return own + QStringLiteral(".unbind()");
    case Action::Update:
        return own + QStringLiteral(".update()");
    case Action::CallSrcValueChanged:
        return own + QStringLiteral(".srcValueChanged()");
    case Action::CallDstValueChanged:
        return own + QStringLiteral(".dstValueChanged()");
    case Action::SetProperty:
        return QStringLiteral("%1.setProperty(%2, %3)").arg(thing, quoted(name), ::inWords(value));
    case Action::BlockSignals:
        return QStringLiteral("%1.blockSignals(%2)").arg(thing, value.toString());
    case Action::SwitchConverter:
        return QStringLiteral("converter %1 has the default type: %2")
            .arg(QString::number(Converters::Switched), value.toString());
    case Action::DeleteObject:
        return QStringLiteral("delete %1").arg(thing);
    case Action::DeleteBinding:
        return QStringLiteral("delete %1").arg(own);
    }
    return QString();
}

quint32 ScriptWriter::choice()
{
    if (!m_hasBytes)
        return quint32(m_random());
    return isAtEnd() ? 0 : quint32(uchar(m_bytes.at(m_next++)));
}

Step ScriptWriter::next(const BindModel &model)
{
    Step step;
    step.action = action(model);
    switch (step.action) {
    case Action::CreateObject:
        step.kind = below(kindsOfThings().size());
        break;
    case Action::CreateBinding:
        step.object = oneIn(2) ? object(model) : Step::none;
        break;
    case Action::StaticBind:
    case Action::SetBind:
        chooseBinding(model, &step);
        break;
    case Action::SetProperty:
        step.object = object(model);
        step.name = name(model, step.object);
        if (!oneIn(4))
            chooseBoundProperty(model, &step.object, &step.name);
        step.value = value();
        break;
    case Action::BlockSignals:
        step.object = object(model);
        step.value = oneIn(2);
        break;
    case Action::SwitchConverter:
        step.value = oneIn(2);
        break;
    case Action::DeleteObject:
        step.object = object(model);
        break;
    default:
        break;
    }
    if (step.action != Action::StaticBind && step.action != Action::CreateBinding
        && livingBindings(model) > 0)
        step.binding = binding(model);
    return step;
}

Action ScriptWriter::action(const BindModel &model)
{
    const int objects = livingObjects(model);
    const int bindings = livingBindings(model);
    if (objects < 2 || (objects < mostObjects && oneIn(6)))
        return Action::CreateObject;
    if (bindings == 0 || (bindings < mostBindings && oneIn(8)))
        return oneIn(2) ? Action::CreateBinding : Action::StaticBind;
    const int chance = below(100);
    if (chance < 40)
        return Action::SetProperty;
    if (chance < 62)
        return Action::SetBind;
    if (chance < 88)
        return oneOf({Action::Bind, Action::Unbind, Action::Update, Action::Bind, Action::Unbind});
    return oneOf({Action::CallSrcValueChanged, Action::CallDstValueChanged, Action::BlockSignals,
                  Action::BlockSignals, Action::SwitchConverter, Action::DeleteObject,
                  Action::DeleteObject, Action::DeleteBinding});
}

int ScriptWriter::object(const BindModel &model)
{
    int left = below(livingObjects(model));
    int object = 0;
    while (!model.isAlive(object) || left-- > 0)
        ++object;
    return object;
}

int ScriptWriter::binding(const BindModel &model)
{
    const bool onlyConnected = connectedBindings(model) > 0 && !oneIn(3);
    int left = below(onlyConnected ? connectedBindings(model) : livingBindings(model));
    int binding = 0;
    const auto isCandidate = [&]() {
        return model.bindings().at(binding).exists
            && (!onlyConnected || model.bindings().at(binding).mode > 1);
    };
    while (!isCandidate() || left-- > 0)
        ++binding;
    return binding;
}

QByteArray ScriptWriter::name(const BindModel &model, int object)
{
    if (object == Step::none || oneIn(10)) {
        return oneOf<const char *>({"extra", "extra",
                                    "gr\xc3\xb6\xc3\x9f"
                                    "e",
                                    "missing", "count", "bad\xff", "bad\xef\xbf\xbd", "", nullptr});
    }
    const KindOfThing *kind = model.objects().at(object).kind;
    return kind->properties.at(below(kind->properties.size())).name;
}

void ScriptWriter::chooseProperty(const BindModel &model, int *object, QByteArray *name)
{
    constexpr int rarely = 40;
    *object = oneIn(rarely) ? Step::none : this->object(model);
    *name = this->name(model, *object);
}

// An end of a binding, so that changes meet connections and bindings make chains.
void ScriptWriter::chooseBoundProperty(const BindModel &model, int *object, QByteArray *name)
{
    const BindModel::Binding &bound = model.bindings().at(binding(model));
    const bool isSource = oneIn(2);
    const int end = isSource ? bound.src : bound.dst;
    if (!model.isAlive(end))
        return;
    *object = end;
    *name = isSource ? bound.srcName : bound.dstName;
}

QVariant ScriptWriter::value()
{
    switch (below(6)) {
    case 0:
    case 1:
        return below(121) - 60;
    case 2:
        return (below(121) - 60) / 4.0;
    case 3:
        return QString::fromUtf8(oneOf<const char *>(
            {"", "7", "007", "-3.5", "abc", "true", "12 l", "Middle", "\xc3\xb6"}));
    case 4:
        return oneIn(2);
    default:
        return oneOf<QVariant>(
            {QVariant(), std::numeric_limits<int>::max(), 1e6, QVariant::fromValue(Store::High)});
    }
}

void ScriptWriter::chooseBinding(const BindModel &model, Step *step)
{
    chooseProperty(model, &step->object, &step->name);
    if (livingBindings(model) > 0 && oneIn(3))
        chooseBoundProperty(model, &step->object, &step->name);
    chooseProperty(model, &step->destination, &step->destinationName);
    step->mode = oneIn(20) ? oneOf({5, 7}) : below(5);
    step->converter = oneIn(2) ? int(Converters::None) : below(Converters::Count);
}
