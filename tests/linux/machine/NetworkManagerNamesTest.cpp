#include "platform/linux/machine/SystemNetworkInterfaces.h"

#include "tests/linux/PrivateBus.h"

namespace zv {
namespace {

using tests::MockService;
using tests::PrivateBus;

constexpr auto service = "org.freedesktop.NetworkManager";
constexpr auto manager = "/org/freedesktop/NetworkManager";
constexpr auto activeInterface = "org.freedesktop.NetworkManager.Connection.Active";
constexpr auto deviceInterface = "org.freedesktop.NetworkManager.Device";

/// A mocked NetworkManager with a test's objects.
struct NetworkManagerNamesTest : testing::Test {
    void call(char const* method, GVariant* arguments)
    {
        auto const reply = connection->call({ service, manager, "org.freedesktop.DBus.Mock" }, method, arguments, Deadline(std::chrono::seconds(10)));
        ASSERT_TRUE(reply.ok()) << reply.error().message;
    }
    /// `properties` is the text of a dictionary of variants.
    void addObject(char const* path, char const* interface, std::string const& properties)
    {
        call("AddObject", g_variant_new_parsed(("(%o, %s, " + properties + ", @a(ssss) [])").c_str(), path, interface));
    }
    void activate(std::string const& paths) { call("AddProperty", g_variant_new_parsed(("(%s, 'ActiveConnections', <" + paths + ">)").c_str(), service)); }

    PrivateBus bus;
    MockService mock { bus, service, manager, service };
    std::optional<BusConnection> connection = BusConnection::open(bus.address(), Deadline(std::chrono::seconds(5)));
};

TEST_F(NetworkManagerNamesTest, AreTheConnectionsOfTheInterfaces)
{
    addObject("/a/1", activeInterface, "{'Id': <'Home'>, 'Devices': <[objectpath '/d/1']>}");
    addObject("/a/2", activeInterface, "{'Id': <'Mobile'>, 'Devices': <[objectpath '/d/2', '/d/gone']>}");
    addObject("/d/1", deviceInterface, "{'Interface': <'wlan0'>, 'IpInterface': <'wlan0'>}");
    addObject("/d/2", deviceInterface, "{'Interface': <'ttyUSB0'>, 'IpInterface': <'ppp0'>}");
    activate("[objectpath '/a/1', '/a/2']");
    EXPECT_EQ(networkManagerNames(bus.address()), (ConnectionNames { { "wlan0", "Home" }, { "ttyUSB0", "Mobile" }, { "ppp0", "Mobile" } }));
}

TEST_F(NetworkManagerNamesTest, SurviveAnswersOfTheWrongType)
{
    addObject("/a/1", activeInterface, "{'Id': <5>, 'Devices': <[objectpath '/d/1']>}");
    addObject("/a/2", activeInterface, "{'Id': <'Odd'>, 'Devices': <'none'>}");
    addObject("/a/3", activeInterface, "{'Devices': <@ao []>}");
    activate("[objectpath '/a/1', '/a/2', '/a/3', '/a/gone']");
    EXPECT_TRUE(networkManagerNames(bus.address()).empty());
}

TEST_F(NetworkManagerNamesTest, SurviveAListThatIsNone)
{
    activate("'no paths at all'");
    EXPECT_TRUE(networkManagerNames(bus.address()).empty());
}

TEST(NetworkManagerNames, AreNoneWithoutABusOrTheService)
{
    EXPECT_TRUE(networkManagerNames("").empty());
    EXPECT_TRUE(networkManagerNames("unix:path=/nonexistent/bus").empty());
    EXPECT_TRUE(networkManagerNames("rubbish").empty());
    PrivateBus const bus;
    EXPECT_TRUE(networkManagerNames(bus.address()).empty());
}

} // namespace
} // namespace zv
