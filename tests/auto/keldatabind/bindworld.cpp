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
#include <vector>

namespace {

const char *pointer(const QByteArray &name)
{
    return name.isNull() ? nullptr : name.constData();
}

QString inWords(const QVariant &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

QString inWords(const Calls &calls)
{
    QStringList words;
    for (const Call &call : calls) {
        words.append(QStringLiteral("object%1 %2 %3")
                         .arg(QString::number(call.object), QLatin1String(call.function),
                              inWords(call.value)));
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
        return Converters::forward(m_number, value);
    }

    QVariant ConvertBack(QObject *object, const QVariant &value) override
    {
        m_calls->append({"ConvertBack", numberOf(object), value});
        return Converters::back(m_number, value);
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

// Does the steps with real objects and bindings.
class World
{
    Q_DISABLE_COPY(World)

public:
    World();
    ~World();

    void run(const Step &step);

    // Empty when all that can be seen is as the model has it; otherwise says what is not.
    QString difference(const BindModel &model, const Traces &traces) const;

private:
    void create(const Step &step);
    void runOnBinding(const Step &step);
    QObject *object(int number) const
    {
        return number == Step::none ? nullptr : m_objects.at(number);
    }
    IKELValueConverter *converter(int number);
    QString differenceOfObject(int number, const BindModel::Object &expected) const;
    QString differenceOfBinding(int number, const BindModel::Binding &expected) const;

    Calls m_calls;
    QStringList m_debugLines;
    QVector<Thing *> m_objects;
    QVector<QPointer<KELDataBind>> m_bindings;
    KELDefaultValueConverter m_defaultConverter;
    std::vector<RecordingConverter> m_converters;
};

World::World()
{
    for (int i = Converters::Bypassed; i < Converters::Count; ++i) {
        const auto type = i == Converters::Bypassed ? IKELValueConverter::DefaultConverterType
                                                    : IKELValueConverter::CustomConverterType;
        m_converters.emplace_back(i, type, &m_calls);
    }
}

World::~World()
{
    for (const QPointer<KELDataBind> &binding : qAsConst(m_bindings))
        delete binding;
    qDeleteAll(m_objects);
}

IKELValueConverter *World::converter(int number)
{
    if (number == Converters::None)
        return nullptr;
    if (number == Converters::Default)
        return &m_defaultConverter;
    return &m_converters.at(size_t(number - Converters::Bypassed));
}

void World::run(const Step &step)
{
    m_calls.clear();
    switch (step.action) {
    case Action::CreateObject:
    case Action::CreateBinding:
    case Action::StaticBind:
        create(step);
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
    default:
        runOnBinding(step);
    }
    m_debugLines = KelTest::takeDebugLines();
}

void World::create(const Step &step)
{
    const int number = m_objects.size();
    if (step.action == Action::CreateBinding) {
        m_bindings.append(new KELDataBind(object(step.object)));
    } else if (step.action == Action::StaticBind) {
        m_bindings.append(KELDataBind::bind(object(step.object), pointer(step.name),
                                            object(step.destination), pointer(step.destinationName),
                                            KELDataBind::BindMode(step.mode),
                                            converter(step.converter)));
    } else {
        switch (step.kind) {
        case 0:
            m_objects.append(new Gauge(number, &m_calls));
            break;
        case 1:
            m_objects.append(new Store(number, &m_calls));
            break;
        case 2:
            m_objects.append(new Panel(number, &m_calls));
            break;
        default:
            m_objects.append(new Memo(number, &m_calls));
        }
    }
}

void World::runOnBinding(const Step &step)
{
    KELDataBind *binding = m_bindings.at(step.binding);
    switch (step.action) {
    case Action::SetBind:
        binding->setBind(object(step.object), pointer(step.name), object(step.destination),
                         pointer(step.destinationName), KELDataBind::BindMode(step.mode),
                         converter(step.converter));
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
    default:
        delete binding;
    }
}

QString World::difference(const BindModel &model, const Traces &traces) const
{
    if (m_debugLines != traces.debugLines) {
        return QStringLiteral("printed: \"%1\", expected: \"%2\"")
            .arg(m_debugLines.join(QLatin1Char('|')), traces.debugLines.join(QLatin1Char('|')));
    }
    for (int i = 0; i < m_objects.size(); ++i) {
        const QString text = model.isAlive(i) ? differenceOfObject(i, model.objects().at(i))
                                              : QString();
        if (!text.isEmpty())
            return QStringLiteral("object%1: %2").arg(QString::number(i), text);
    }
    for (int i = 0; i < m_bindings.size(); ++i) {
        const QString text = differenceOfBinding(i, model.bindings().at(i));
        if (!text.isEmpty())
            return QStringLiteral("binding%1: %2").arg(QString::number(i), text);
    }
    if (!isSame(m_calls, traces.calls)) {
        return QStringLiteral("called: %1; expected: %2")
            .arg(inWords(m_calls), inWords(traces.calls));
    }
    return QString();
}

QString World::differenceOfObject(int number, const BindModel::Object &expected) const
{
    const Thing *thing = m_objects.at(number);
    const auto compare = [thing](const char *name, const QVariant &value) {
        const QVariant actual = thing->property(name);
        return isSame(actual, value)
            ? QString()
            : QStringLiteral("%1 is %2, expected %3")
                  .arg(QString::fromUtf8(name), inWords(actual), inWords(value));
    };
    for (int i = 0; i < expected.values.size(); ++i) {
        const QString text = compare(expected.kind->properties.at(i)->name, expected.values.at(i));
        if (!text.isEmpty())
            return text;
    }
    for (auto i = expected.dynamicValues.begin(); i != expected.dynamicValues.end(); ++i) {
        const QString text = compare(i.key(), i.value());
        if (!text.isEmpty())
            return text;
    }
    const QList<QByteArray> names = thing->dynamicPropertyNames();
    if (names.size() != expected.dynamicValues.size())
        return QStringLiteral("dynamic properties: ") + QString::fromUtf8(names.join(", "));
    if (thing->signalsBlocked() != expected.isBlocked)
        return QStringLiteral("signals are %1blocked")
            .arg(QLatin1String(expected.isBlocked ? "not " : ""));
    return QString();
}

QString World::differenceOfBinding(int number, const BindModel::Binding &expected) const
{
    const KELDataBind *binding = m_bindings.at(number);
    if (!binding || !expected.exists)
        return !binding == !expected.exists ? QString()
                                            : QStringLiteral("exists, or does not, wrongly");
    if (int(binding->bindMode()) != expected.mode) {
        return QStringLiteral("mode %1, expected %2")
            .arg(QString::number(binding->bindMode()), QString::number(expected.mode));
    }
    if (binding->hasError() != (expected.mode == 1))
        return QStringLiteral("hasError() is wrong");
    return QString();
}

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
            text += QStringLiteral("  %1\n").arg(done.inWords());
        return text + difference;
    }
    return QString();
}
