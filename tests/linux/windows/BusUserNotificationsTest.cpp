#include "platform/linux/windows/BusUserNotifications.h"

#include "tests/linux/PrivateBus.h"
#include "tests/linux/toolkit/TestApplication.h"

namespace zv {
namespace {

using tests::MockService;
using tests::PrivateBus;
using tests::turnUntil;
using Calls = std::vector<std::string>;

struct BusUserNotificationsTest : testing::Test {
    BusUserNotificationsTest()
    {
        notifications.onActivated = [this](std::string const& identifier) { activated.push_back(identifier); };
    }
    ~BusUserNotificationsTest() override { QDBusConnection::disconnectFromBus(QStringLiteral("notifications")); }

    bool isGranted()
    {
        std::optional<bool> answer;
        notifications.requestAuthorization([&](bool granted) { answer = granted; });
        turnUntil([&] { return answer.has_value(); });
        return answer.value_or(false);
    }
    /// The calls of the service. Its earlier answers and signals have arrived, for they come
    /// before its answer to this question.
    Calls callsOf(MockService& service)
    {
        (void)isGranted();
        auto calls = service.calls();
        std::erase(calls, "GetCapabilities");
        return calls;
    }

    PrivateBus bus;
    QDBusConnection connection = (ensureApplication(), QDBusConnection::connectToBus(QString::fromStdString(bus.address()), QStringLiteral("notifications")));
    BusUserNotifications notifications { connection };
    Calls activated;
};

TEST_F(BusUserNotificationsTest, AreGrantedWhereTheyCanBeClicked)
{
    EXPECT_FALSE(isGranted()) << "nobody shows them";
    MockService service(bus, "org.freedesktop.Notifications", "/org/freedesktop/Notifications", "org.freedesktop.Notifications");
    service.method("GetCapabilities", "", "as", "ret = ['body', 'persistence']");
    EXPECT_FALSE(isGranted());
    service.method("GetCapabilities", "", "as", "ret = ['actions', 'body']");
    EXPECT_TRUE(isGranted());
}

TEST_F(BusUserNotificationsTest, ArePostedClickedReplacedAndClosed)
{
    MockService service(bus, "org.freedesktop.Notifications", "/org/freedesktop/Notifications", "org.freedesktop.Notifications");
    service.method("Notify", "susssasa{sv}i", "u", "ret = 7");
    service.method("CloseNotification", "u", "", "");
    NotificationRequest const request { "update", "Zanthe Vell 1.4 is available", "Click to install it.", "Show" };
    auto const posted = [](char const* replaced) {
        return Calls { "Notify 'Zanthe Vell' " + std::string(replaced)
            + " 'org.zanthevell.ZantheVell' 'Zanthe Vell 1.4 is available' 'Click to install it.' ['default', 'Show'] "
              "{'desktop-entry': <'org.zanthevell.ZantheVell'>, 'sound-name': <'message-new-instant'>} -1" };
    };

    notifications.post(request);
    EXPECT_EQ(callsOf(service), posted("0"));
    service.emitSignal("ActionInvoked", "us", "(uint32 8, 'default')");
    service.emitSignal("ActionInvoked", "us", "(uint32 7, 'default')");
    EXPECT_EQ(callsOf(service), Calls {});
    EXPECT_EQ(activated, Calls { "update" }) << "another program's notification is none of ours";

    notifications.post(request);
    EXPECT_EQ(callsOf(service), posted("7")) << "it replaces the one that is there";
    notifications.removeDelivered("update");
    EXPECT_EQ(callsOf(service), Calls { "CloseNotification 7" });

    notifications.post(request);
    EXPECT_EQ(callsOf(service), posted("0"));
    service.emitSignal("NotificationClosed", "uu", "(uint32 7, uint32 2)");
    EXPECT_EQ(callsOf(service), Calls {});
    notifications.removeDelivered("update");
    notifications.post(request);
    EXPECT_EQ(callsOf(service), posted("0")) << "the user has closed it already";
}

} // namespace
} // namespace zv
