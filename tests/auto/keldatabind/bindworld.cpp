// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindworld.h"

#include "bindmodel.h"
#include "bindscript.h"
#include "bindthings.h"
#include "keltest.h"

#include <keldatabind.h>

#include <QtCore/QPointer>

#include <cstdio>
#include <tuple>
#include <vector>

namespace {

const char *pointer(const QByteArray &name)
{
    return name.isNull() ? nullptr : name.constData();
}

QString inWords(const Calls &calls)
{
    QStringList words;
    for (const Call &call : calls) {
        words.append(u"object%1 %2 %3"_s.arg(QString::number(call.object),
                                             QLatin1String(call.function), inWords(call.value)));
    }
    return words.join(QLatin1String(", "));
}

class RecordingConverter final : public IKELValueConverter
{
public:
    RecordingConverter(int number, ValueConverterType converterType, Calls *calls) :
        IKELValueConverter(converterType), m_number(number), m_calls(calls)
    { }

    QVariant Convert(QObject *object, const QVariant &value) override
    {
        m_calls->append({"Convert", numberOf(object), value});
        return Converters::convert(m_number, true, value);
    }
    QVariant ConvertBack(QObject *object, const QVariant &value) override
    {
        m_calls->append({"ConvertBack", numberOf(object), value});
        return Converters::convert(m_number, false, value);
    }

private:
    static int numberOf(QObject *object)
    {
        const auto *thing = dynamic_cast<Thing *>(object);
        return thing ? thing->number() : Step::none;
    }

    const int m_number;
    Calls *const m_calls;
};

template <typename Kind>
Thing *newThing(int number, Calls *calls)
{
    return new Kind(number, calls);
}

// As kindsOfThings() lists them.
constexpr Thing *(*newThings[])(int, Calls *) = {newThing<Gauge>, newThing<Store>, newThing<Panel>,
                                                 newThing<Memo>};

// Does the steps with real objects and bindings.
class World
{
public:
    World()
    {
        for (int i = Converters::Bypassed; i < Converters::Count; ++i) {
            const auto type = i == Converters::Bypassed ? IKELValueConverter::DefaultConverterType
                                                        : IKELValueConverter::CustomConverterType;
            m_converters.emplace_back(i, type, &m_calls);
        }
    }
    ~World()
    {
        for (const QPointer<KELDataBind> &binding : qAsConst(m_bindings))
            delete binding;
        qDeleteAll(m_objects);
    }

    void run(const Step &step)
    {
        m_calls.clear();
        KELDataBind *const binding = step.binding == Step::none ? nullptr
                                                                : m_bindings.at(step.binding);
        switch (step.action) {
        case Action::CreateObject:
            m_objects.append(newThings[step.kind](m_objects.size(), &m_calls));
            break;
        case Action::CreateBinding:
            m_bindings.append(new KELDataBind(object(step.object)));
            break;
        case Action::StaticBind:
            m_bindings.append(std::apply([](auto... all) { return KELDataBind::bind(all...); },
                                         bindArguments(step)));
            break;
        case Action::SetBind:
            std::apply([binding](auto... all) { binding->setBind(all...); }, bindArguments(step));
            break;
        case Action::Bind:
            binding->bind();
            break;
        case Action::Unbind:
            binding->unbind();
            break;
        case Action::Update:
            binding->update();
            break;
        case Action::CallSrcValueChanged:
            QMetaObject::invokeMethod(binding, "srcValueChanged");
            break;
        case Action::CallDstValueChanged:
            QMetaObject::invokeMethod(binding, "dstValueChanged");
            break;
        case Action::SetProperty:
            object(step.object)->setProperty(step.name.isNull() ? "" : step.name, step.value);
            break;
        case Action::BlockSignals:
            object(step.object)->blockSignals(step.value.toBool());
            break;
        case Action::SwitchConverter:
            converter(Converters::Switched)->type = step.value.toBool()
                ? IKELValueConverter::DefaultConverterType
                : IKELValueConverter::CustomConverterType;
            break;
        case Action::DeleteObject:
            delete std::exchange(m_objects[step.object], nullptr);
            break;
        case Action::DeleteBinding:
            delete binding;
        }
        m_debugLines = KelTest::takeDebugLines();
    }

    // Empty when all that can be seen is as the model has it; otherwise says what is not.
    QString difference(const BindModel &model, const Traces &traces) const
    {
        if (m_debugLines != traces.debugLines) {
            return u"printed: \"%1\", expected: \"%2\""_s.arg(m_debugLines.join('|'),
                                                              traces.debugLines.join('|'));
        }
        for (int i = 0; i < m_objects.size(); ++i) {
            const QString text = model.isAlive(i) ? differenceOfObject(i, model.objects().at(i))
                                                  : QString();
            if (!text.isEmpty())
                return u"object%1: %2"_s.arg(i).arg(text);
        }
        for (int i = 0; i < m_bindings.size(); ++i) {
            const QString text = differenceOfBinding(i, model.bindings().at(i));
            if (!text.isEmpty())
                return u"binding%1: %2"_s.arg(i).arg(text);
        }
        if (!isSame(m_calls, traces.calls))
            return u"called: %1; expected: %2"_s.arg(inWords(m_calls), inWords(traces.calls));
        return QString();
    }

private:
    Q_DISABLE_COPY(World)

    QObject *object(int number) const
    {
        return number == Step::none ? nullptr : m_objects.at(number);
    }
    IKELValueConverter *converter(int number)
    {
        if (number == Converters::None)
            return nullptr;
        if (number == Converters::Default)
            return &m_defaultConverter;
        return &m_converters.at(size_t(number - Converters::Bypassed));
    }
    std::tuple<QObject *, const char *, QObject *, const char *, KELDataBind::BindMode,
               IKELValueConverter *>
    bindArguments(const Step &step)
    {
        return {object(step.object),
                pointer(step.name),
                object(step.destination),
                pointer(step.destinationName),
                KELDataBind::BindMode(step.mode),
                converter(step.converter)};
    }
    QString differenceOfObject(int number, const BindModel::Object &expected) const
    {
        const Thing *thing = m_objects.at(number);
        const auto compare = [thing](const char *name, const QVariant &value) {
            const QVariant actual = thing->property(name);
            return isSame(actual, value)
                ? QString()
                : u"%1 is %2, expected %3"_s.arg(QString::fromUtf8(name), inWords(actual),
                                                 inWords(value));
        };
        QString text;
        for (int i = 0; i < expected.values.size() && text.isEmpty(); ++i)
            text = compare(expected.kind->properties.at(i).name, expected.values.at(i));
        for (auto i = expected.dynamicValues.begin();
             i != expected.dynamicValues.end() && text.isEmpty(); ++i)
            text = compare(i.key(), i.value());
        if (!text.isEmpty())
            return text;
        const QList<QByteArray> names = thing->dynamicPropertyNames();
        if (names.size() != expected.dynamicValues.size())
            return u"dynamic properties: "_s + QString::fromUtf8(names.join(", "));
        if (thing->signalsBlocked() != expected.isBlocked)
            return expected.isBlocked ? u"signals are not blocked"_s : u"signals are blocked"_s;
        return QString();
    }
    QString differenceOfBinding(int number, const BindModel::Binding &expected) const
    {
        const KELDataBind *binding = m_bindings.at(number);
        if (!binding || !expected.exists)
            return !binding == !expected.exists ? QString() : u"exists, or does not, wrongly"_s;
        if (int(binding->bindMode()) != expected.mode)
            return u"mode %1, expected %2"_s.arg(binding->bindMode()).arg(expected.mode);
        return binding->hasError() == (expected.mode == 1) ? QString() : u"hasError() is wrong"_s;
    }

    Calls m_calls;
    QStringList m_debugLines;
    QVector<Thing *> m_objects;
    QVector<QPointer<KELDataBind>> m_bindings;
    KELDefaultValueConverter m_defaultConverter;
    std::vector<RecordingConverter> m_converters;
};

} // namespace

QString runOnModelAndBindings(ScriptWriter *writer, int length, bool isTraced)
{
    BindModel model;
    World world;
    Traces traces;
    QVector<Step> steps;
    steps.reserve(length);
    for (int left = length; left > 0 && !writer->isAtEnd(); --left) {
        const Step step = writer->next(model);
        BindModel after = model;
        if (!after.run(step, &traces))
            continue;
        model = after;
        steps.append(step);
        if (isTraced)
            std::fprintf(stderr, "%s\n", qPrintable(step.inWords()));
        world.run(step);
        const QString difference = world.difference(model, traces);
        if (difference.isEmpty())
            continue;

        QString text;
        for (const Step &done : qAsConst(steps))
            text += u"  %1\n"_s.arg(done.inWords());
        return text + difference;
    }
    return QString();
}
