// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// Throws in the way its argument names, while a binding calls. Exits with 42 when that ends the
// program as std::terminate() does, and with 1 when the exception leaves the binding.

#include "bindactors.h"

#include <QtCore/QCoreApplication>

#include <cstdlib>
#include <cstring>
#include <exception>

namespace {

constexpr int terminated = 42;

struct Thrown
{
};

void fail()
{
    throw Thrown();
}

struct Stage
{
    Actor source{0};
    Actor destination{0};
    HookedConverter converter;
    KELDataBind binding;

    Stage() { converter.onConvert = fail; }
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
         stage.destination.onRead = fail;
         stage.setBind();
     }},
    {"setter-in-set-bind",
     [](Stage &stage) {
         stage.source.onWrite = fail;
         stage.setBind();
     }},
    {"connection-in-set-bind",
     [](Stage &stage) {
         stage.source.onConnect = fail;
         stage.setBind();
     }},
    {"getter-in-update",
     [](Stage &stage) {
         stage.setBind();
         stage.destination.onRead = fail;
         stage.binding.update();
     }},
    {"setter-in-update",
     [](Stage &stage) {
         stage.setBind();
         stage.source.onWrite = fail;
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
         stage.source.onConnect = fail;
         stage.binding.bind();
     }},
    {"getter-in-a-change",
     [](Stage &stage) {
         stage.setBind();
         stage.source.onRead = fail;
         stage.source.setValue(1);
     }},
    {"setter-in-a-change",
     [](Stage &stage) {
         stage.setBind();
         stage.destination.onWrite = fail;
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
