// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// Lets foreign code throw while a binding calls it: the first argument says which code, the second
// one what it is called for. Exits with 42 when that ends the program as std::terminate() does, and
// with 1 when the exception leaves the binding.

#include "bindactors.h"

#include <QtCore/QCoreApplication>

#include <cstdlib>
#include <exception>
#include <map>
#include <string>

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

    void setBind()
    {
        binding.setBind(&source, "value", &destination, "value", KELDataBind::OneWay, &converter);
    }
};

using Step = void (*)(Stage &);

const std::map<std::string, Step> throwers = {
    {"getter", [](Stage &stage) { stage.source.onRead = stage.destination.onRead = fail; }},
    {"setter", [](Stage &stage) { stage.source.onWrite = stage.destination.onWrite = fail; }},
    {"converter", [](Stage &stage) { stage.converter.onConvert = fail; }},
    {"connectNotify()", [](Stage &stage) { stage.source.onConnect = fail; }},
};

const std::map<std::string, Step> calls = {
    {"setBind()", [](Stage &stage) { stage.setBind(); }},
    {"bind()", [](Stage &stage) { stage.binding.bind(); }},
    {"update()", [](Stage &stage) { stage.binding.update(); }},
    {"a change", [](Stage &stage) { Q_EMIT stage.source.valueChanged(); }},
};

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    std::set_terminate([] { std::_Exit(terminated); });
    if (argc != 3 || !throwers.count(argv[1]) || !calls.count(argv[2]))
        return 2;
    Stage stage;
    if (argv[2] != std::string("setBind()"))
        stage.setBind();
    throwers.at(argv[1])(stage);
    try {
        calls.at(argv[2])(stage);
    } catch (const Thrown &) {
        return 1;
    }
    return 0;
}
