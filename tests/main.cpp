#include "base/MainThread.h"
#include "tests/SourceTree.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

extern char** environ;

namespace {

/// Names of the variables that tell programs of a desktop, a toolkit or a language.
std::vector<std::string> surroundings()
{
    std::vector<std::string> names;
    for (char** variable = environ; *variable; ++variable) {
        std::string_view const name = std::string_view(*variable).substr(0, std::string_view(*variable).find('='));
        for (std::string_view const prefix :
            { "QT_", "XDG_", "LC_", "LANGUAGE", "GTK_", "GNOME_", "KDE_", "DESKTOP_", "DBUS_", "DISPLAY", "WAYLAND_", "SESSION_MANAGER" })
            if (name.starts_with(prefix))
                names.emplace_back(name);
    }
    return names;
}

/// Forgets the caller's desktop, language and home: no test depends on them or can touch them.
void forgetSurroundings()
{
    for (auto const& name : surroundings())
        ::unsetenv(name.c_str());
    ::setenv("LC_ALL", "C.UTF-8", 1);
    ::setenv("HOME", "/nonexistent/home", 1);
    for (auto const* bus : { "DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS" })
        ::setenv(bus, "unix:path=/nonexistent/bus", 1);
}

} // namespace

std::string zv::tests::inSourceTree(std::string const& name) { return ZV_SOURCE_DIR "/" + name; }

int main(int argc, char** argv)
{
    if (!std::getenv("ZV_TEST_HOME")) // set where a test runs this program once more, in surroundings of its own
        forgetSurroundings();
    zv::markMainThread();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
