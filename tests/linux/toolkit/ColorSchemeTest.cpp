#include "platform/linux/toolkit/ColorScheme.h"

#include "tests/linux/PrivateBus.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QApplication>
#include <QPalette>

namespace zv {
namespace {

bool isDark() { return QApplication::palette().color(QPalette::Base).lightness() < 128; }

TEST(ColorScheme, FollowsTheDesktopWhileTheProgramRuns)
{
    ensureApplication();
    auto const before = QApplication::palette();
    tests::PrivateBus const bus;
    tests::MockService service(bus, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings");
    {
        ColorScheme const scheme(QDBusConnection::connectToBus(QString::fromStdString(bus.address()), QStringLiteral("colours")));
        for (int const preference : { 1, 0, 1, 2 }) {
            bool const wanted = preference == 1;
            service.emitSignal(
                "SettingChanged", "ssv", ("('org.freedesktop.appearance', 'color-scheme', <uint32 " + std::to_string(preference) + ">)").c_str());
            tests::turnUntil([wanted] { return isDark() == wanted; });
            EXPECT_EQ(isDark(), wanted) << preference;
        }
    }
    QDBusConnection::disconnectFromBus(QStringLiteral("colours"));
    QApplication::setPalette(before);
}

} // namespace
} // namespace zv
