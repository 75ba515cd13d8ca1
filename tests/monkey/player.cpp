// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "player.h"

#include "checks.h"
#include "stage.h"
#include "virtualtime.h"

#include <QtCore/QRegularExpression>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>

#include <memory>

namespace {

using namespace Monkey;

Stage *stageInUse = nullptr;

bool isExpected(const QString &text)
{
    // The offscreen platform, about itself.
    return text.startsWith(QLatin1String("This plugin does not support "))
        // Of the views, which watch for a pan of two fingers, when an item below them dies.
        || text.startsWith(QLatin1String("QGestureManager::deliverEvent: "))
        // What the reference says of a check box with certain colours.
        || text == QLatin1String("QColor::setRgb: RGB parameters out of range");
}

QString withoutAddresses(QString text)
{
    static const QRegularExpression address(QStringLiteral("0x[0-9a-f]+"));
    return text.replace(address, QStringLiteral("..."));
}

void takeMessage(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    if (type == QtDebugMsg || isExpected(text))
        return;
    if (stageInUse)
        stageInUse->fail(QStringLiteral("Qt warns: ") + withoutAddresses(text));
    else
        std::fprintf(stderr, "%s\n", qPrintable(text));
    if (type == QtFatalMsg)
        std::abort();
}

// The application and its clock.
class World
{
public:
    World() : time(new VirtualTime)
    {
        qSetGlobalQHashSeed(0); // the same order everywhere
        qInstallMessageHandler(takeMessage);
        QCoreApplication::setEventDispatcher(time);
        m_application = std::make_unique<QApplication>(m_argumentCount, m_arguments);
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QApplication::setDoubleClickInterval(400);
        QApplication::setQuitOnLastWindowClosed(false);
        QApplication::setCursorFlashTime(0);
        time->driveAnimations();
    }
    ~World()
    {
        m_application.reset();
        qInstallMessageHandler(nullptr);
    }

    VirtualTime *const time; // Qt deletes it

private:
    int m_argumentCount = 1;
    char m_name[7] = "monkey";
    char *m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<QApplication> m_application;
};

std::unique_ptr<World> &world()
{
    // Never destroyed at exit, when Qt's own static objects are gone.
    static auto &theWorld = *new std::unique_ptr<World>;
    return theWorld;
}

class Player
{
public:
    Player(const Script &script, const std::function<void(int)> &onStep) :
        m_script(script), m_onStep(onStep), m_stage(world()->time)
    {
        stageInUse = &m_stage;
        world()->time->onIdle = [this] { playNested(); };
    }
    ~Player()
    {
        world()->time->onIdle = nullptr;
        stageInUse = nullptr;
    }

    std::string run()
    {
        while (const Step *step = next()) {
            m_stage.run(*step);
            // What an application does by itself, it does in one turn of its event loop, and the
            // next event comes in another one.
            if (step->kind().reach != Reach::NotInSlots)
                Q_EMIT world()->time->awake();
            checkAfterStep(&m_stage);
        }
        m_stage.finish();
        return m_stage.failure().toStdString();
    }

private:
    const Step *next()
    {
        if (m_next >= m_script.size() || !m_stage.failure().isEmpty())
            return nullptr;
        if (m_onStep)
            m_onStep(int(m_next));
        return &m_script[m_next++];
    }

    // While a menu or a dialog runs an event loop of its own, the script goes on in it.
    void playNested()
    {
        const Step *const step = m_stage.isTooDeep() ? nullptr : next();
        if (step)
            m_stage.runNested(*step);
        else
            m_stage.closePopups();
    }

    const Script &m_script;
    const std::function<void(int)> &m_onStep;
    std::size_t m_next = 0;
    Stage m_stage;
};

} // namespace

void Monkey::start()
{
    if (!world())
        world() = std::make_unique<World>();
}

void Monkey::quit()
{
    world().reset();
}

std::string Monkey::play(const Script &script, const std::function<void(int)> &onStep)
{
    start();
    return Player(script, onStep).run();
}
