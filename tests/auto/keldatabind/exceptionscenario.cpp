// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// Throws in the way its argument names, while a binding calls. Exits with 42 when that ends the
// program as std::terminate() does, and with 1 when the exception leaves the binding.

#include <keldatabind.h>

#include <QtCore/QCoreApplication>

#include <cstdlib>
#include <cstring>
#include <exception>
#include <functional>

namespace {

constexpr int terminated = 42;

struct Thrown
{
};

class Actor : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged)

public:
    int value() const
    {
        if (throwsInGetter)
            throw Thrown();
        return m_value;
    }
    void setValue(int value)
    {
        if (throwsInSetter)
            throw Thrown();
        m_value = value;
        Q_EMIT valueChanged();
    }

    bool throwsInGetter = false;
    bool throwsInSetter = false;
    bool throwsWhenConnected = false;

Q_SIGNALS:
    void valueChanged();

protected:
    void connectNotify(const QMetaMethod & /*signal*/) override
    {
        if (throwsWhenConnected)
            throw Thrown();
    }

private:
    int m_value = 0;
};

class Converter final : public IKELValueConverter
{
public:
    QVariant Convert(QObject * /*object*/, const QVariant & /*value*/) override { throw Thrown(); }
    QVariant ConvertBack(QObject * /*object*/, const QVariant & /*value*/) override
    {
        throw Thrown();
    }
};

struct Stage
{
    Actor source;
    Actor destination;
    Converter converter;
    KELDataBind binding;

    void setBind(IKELValueConverter *valueConverter = nullptr)
    {
        binding.setBind(&source, "value", &destination, "value", KELDataBind::OneWay,
                        valueConverter);
    }
};

struct Scenario
{
    const char *name;
    void (*run)(Stage &);
};

const Scenario scenarios[] = {
    {"getter-in-set-bind",
     [](Stage &stage) {
         stage.destination.throwsInGetter = true;
         stage.setBind();
     }},
    {"setter-in-set-bind",
     [](Stage &stage) {
         stage.source.throwsInSetter = true;
         stage.setBind();
     }},
    {"connection-in-set-bind",
     [](Stage &stage) {
         stage.source.throwsWhenConnected = true;
         stage.setBind();
     }},
    {"getter-in-update",
     [](Stage &stage) {
         stage.setBind();
         stage.destination.throwsInGetter = true;
         stage.binding.update();
     }},
    {"setter-in-update",
     [](Stage &stage) {
         stage.setBind();
         stage.source.throwsInSetter = true;
         stage.binding.update();
     }},
    {"converter-in-update",
     [](Stage &stage) {
         stage.setBind(&stage.converter);
         stage.binding.update();
     }},
    {"converter-in-bind",
     [](Stage &stage) {
         stage.setBind(&stage.converter);
         stage.binding.unbind();
         stage.binding.bind();
     }},
    {"connection-in-bind",
     [](Stage &stage) {
         stage.setBind();
         stage.binding.unbind();
         stage.source.throwsWhenConnected = true;
         stage.binding.bind();
     }},
    {"getter-in-a-change",
     [](Stage &stage) {
         stage.setBind();
         stage.source.throwsInGetter = true;
         stage.source.setValue(1);
     }},
    {"setter-in-a-change",
     [](Stage &stage) {
         stage.setBind();
         stage.destination.throwsInSetter = true;
         stage.source.setValue(1);
     }},
    {"converter-in-a-change",
     [](Stage &stage) {
         stage.setBind(&stage.converter);
         stage.source.setValue(1);
     }},
};

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    std::set_terminate([] { std::_Exit(terminated); });
    for (const Scenario &scenario : scenarios) {
        if (argc != 2 || std::strcmp(argv[1], scenario.name) != 0)
            continue;
        Stage stage;
        try {
            scenario.run(stage);
        } catch (const Thrown &) {
            return 1;
        }
        return 0;
    }
    return 2;
}

#include "exceptionscenario.moc"
