#include "platform/linux/program/BusProgramServer.h"

#include "app/shell/RunningProgramTexts.h"
#include "platform/linux/bus/BusRunningProgram.h"
#include "tests/linux/PrivateBus.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <future>

namespace zv {
namespace {

TEST(BusProgramServer, TellsWhatItHoldsWhileTheMainThreadIsBusyAndPerformsTheRestThere)
{
    ensureApplication();
    tests::PrivateBus const bus;
    int quits = 0;
    ProgramHandlers handlers;
    handlers.hotkeys = [] { return "held"; };
    handlers.quit = [&] { ++quits; };
    {
        BusProgramServer server(QDBusConnection::connectToBus(QString::fromStdString(bus.address()), QStringLiteral("server")), handlers);
        ASSERT_TRUE(server.takeName());
        BusRunningProgram program(bus.address(), runningProgramTexts());
        auto const held = std::async(std::launch::async, [&] { return program.hotkeys(); }).get();
        ASSERT_TRUE(held) << held.error();
        EXPECT_EQ(*held, "held");
        auto told = std::async(std::launch::async, [&] { return program.quit(); });
        EXPECT_TRUE(tests::turnUntil([&] { return quits == 1; }));
        EXPECT_TRUE(told.get());
    }
    QDBusConnection::disconnectFromBus(QStringLiteral("server"));
}

} // namespace
} // namespace zv
