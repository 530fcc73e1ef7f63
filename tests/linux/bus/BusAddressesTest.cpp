#include "platform/linux/bus/BusConnection.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(BusAddresses, AreThoseOfTheEnvironmentElseTheStandardPlaces)
{
    tests::TemporaryFolder const runtime;
    runtime.write("bus", "");
    struct Row {
        Environment environment;
        std::string session, why;
    };
    Row const rows[] = {
        { { { "DBUS_SESSION_BUS_ADDRESS", "unix:path=/x" }, { "XDG_RUNTIME_DIR", runtime.path() } }, "unix:path=/x", "given" },
        { { { "XDG_RUNTIME_DIR", runtime.path() } }, "unix:path=" + runtime.path("bus"), "the usual place" },
        { { { "DBUS_SESSION_BUS_ADDRESS", "" }, { "XDG_RUNTIME_DIR", runtime.path("none") } }, "", "nobody there" },
        { {}, "", "no session" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(BusAddresses::of(row.environment).session, row.session) << row.why;
    EXPECT_EQ(BusAddresses::of({ { "DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/y" } }).system, "unix:path=/y");
}

} // namespace
} // namespace zv
