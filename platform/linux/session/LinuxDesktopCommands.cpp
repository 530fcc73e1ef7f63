#include "platform/linux/session/LinuxDesktopCommands.h"

#include "platform/linux/posix/GObjects.h"
#include "platform/linux/posix/LaunchContext.h"
#include "platform/linux/posix/OsRelease.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace zv {

namespace {

struct PlaceProgram {
    SystemPlace place;
    std::optional<Desktop> desktop; ///< none: every desktop
    std::vector<std::string> command;
    char const* requiredEntry = nullptr; ///< an application entry that identifies the version
};

using enum SystemPlace;

PlaceProgram const programs[] = {
    { aboutComputer, Desktop::gnome, { "gnome-control-center", "info-overview" }, "gnome-info-overview-panel.desktop" },
    { aboutComputer, Desktop::gnome, { "gnome-control-center", "about" }, "gnome-about-panel.desktop" },
    { aboutComputer, Desktop::gnome, { "gnome-control-center", "system", "about" }, "gnome-system-panel.desktop" },
    { aboutComputer, Desktop::kde, { "kinfocenter" } },
    { aboutComputer, Desktop::kde, { "systemsettings", "kcm_about-distro" } },
    { aboutComputer, Desktop::kde, { "systemsettings5", "kcm_about-distro" } },
    { aboutComputer, Desktop::cinnamon, { "cinnamon-settings", "info" } },
    { aboutComputer, Desktop::mate, { "mate-system-monitor", "--show-system-tab" } },

    { softwareUpdate, Desktop::kde, { "plasma-discover", "--mode", "update" } },
    { softwareUpdate, Desktop::gnome, { "gnome-software", "--mode=updates" } },
    { softwareUpdate, Desktop::cinnamon, { "mintupdate" } },
    { softwareUpdate, std::nullopt, { "update-manager" } },
    { softwareUpdate, std::nullopt, { "mintupdate" } },
    { softwareUpdate, std::nullopt, { "gnome-software", "--mode=updates" } },
    { softwareUpdate, std::nullopt, { "plasma-discover", "--mode", "update" } },
    { softwareUpdate, std::nullopt, { "pamac-manager", "--updates" } },

    { softwareStore, Desktop::kde, { "plasma-discover" } },
    { softwareStore, Desktop::gnome, { "gnome-software" } },
    { softwareStore, std::nullopt, { "mintinstall" } },
    { softwareStore, std::nullopt, { "synaptic-pkexec" } },
    { softwareStore, std::nullopt, { "pamac-manager" } },

    { systemSettings, Desktop::gnome, { "gnome-control-center" } },
    { systemSettings, Desktop::kde, { "systemsettings" } },
    { systemSettings, Desktop::kde, { "systemsettings5" } },
    { systemSettings, Desktop::xfce, { "xfce4-settings-manager" } },
    { systemSettings, Desktop::mate, { "mate-control-center" } },
    { systemSettings, Desktop::cinnamon, { "cinnamon-settings" } },
    { systemSettings, Desktop::lxqt, { "lxqt-config" } },

    { dockSettings, Desktop::gnome, { "gnome-control-center", "ubuntu" }, "gnome-ubuntu-panel.desktop" },
    { dockSettings, Desktop::gnome, { "gnome-extensions", "prefs", "dash-to-dock@micxgx.gmail.com" } },
    { dockSettings, Desktop::cinnamon, { "cinnamon-settings", "panel" } },
    { dockSettings, Desktop::xfce, { "xfce4-panel", "--preferences" } },
    { dockSettings, std::nullopt, { "plank", "--preferences" } },
};

bool isFor(PlaceProgram const& program, SystemPlace place, DesktopAccess const& access)
{
    bool const isRightVersion = !program.requiredEntry || access.programs->hasEntry(program.requiredEntry);
    return program.place == place && isForDesktop(program.desktop, access.desktop) && isRightVersion;
}

PlaceOutcome openFirst(SystemPlace place, DesktopAccess const& access)
{
    for (auto const& program : programs) {
        if (isFor(program, place, access) && access.programs->start(program.command))
            return PlaceOutcome::opened;
    }
    return PlaceOutcome::notFound;
}

bool hasProgram(SystemPlace place, DesktopAccess const& access)
{
    return std::ranges::any_of(programs, [&](auto const& program) { return isFor(program, place, access) && access.programs->has(program.command.front()); });
}

/// The user's chosen software application: the handler of its links.
GObjectRef<GAppInfo> softwareLinkHandler() { return GObjectRef<GAppInfo>(g_app_info_get_default_for_uri_scheme("appstream")); }

bool startSoftwareLinkHandler()
{
    auto const handler = softwareLinkHandler();
    return handler && g_app_info_launch(handler.get(), nullptr, launchContext().get(), nullptr) != FALSE;
}

PlaceOutcome openStore(DesktopAccess const& access) { return startSoftwareLinkHandler() ? PlaceOutcome::opened : openFirst(softwareStore, access); }

PlaceOutcome openUpdates(DesktopAccess const& access)
{
    auto const outcome = openFirst(softwareUpdate, access);
    return outcome == PlaceOutcome::opened ? outcome : openStore(access);
}

/// Opens the distribution's own page; without one the page of the fixed address.
PlaceOutcome openHomePage(std::string const& releaseFile)
{
    auto const release = readOsRelease(releaseFile);
    auto const page = release.find("HOME_URL");
    bool const isPage = page != release.end() && (page->second.starts_with("https://") || page->second.starts_with("http://"));
    if (!isPage)
        return PlaceOutcome::hasFixedTarget;
    return g_app_info_launch_default_for_uri(page->second.c_str(), launchContext().get(), nullptr) ? PlaceOutcome::opened : PlaceOutcome::notFound;
}

struct TerminalProgram {
    std::optional<Desktop> desktop; ///< none: every desktop
    std::vector<std::string> command; ///< opens its window in the folder in which it is started
};

/// The running desktop's own, then the user's or the distribution's choice, then what is installed.
TerminalProgram const terminals[] = {
    { Desktop::xfce, { "exo-open", "--launch", "TerminalEmulator" } },
    { Desktop::kde, { "konsole" } },
    { Desktop::mate, { "mate-terminal" } },
    { Desktop::lxqt, { "qterminal" } },
    { Desktop::gnome, { "ptyxis", "--new-window" } },
    { Desktop::gnome, { "kgx" } },
    { std::nullopt, { "xdg-terminal-exec" } },
    { std::nullopt, { "x-terminal-emulator" } },
    { std::nullopt, { "gnome-terminal" } },
    { std::nullopt, { "xfce4-terminal" } },
    { std::nullopt, { "foot" } },
    { std::nullopt, { "alacritty" } },
    { std::nullopt, { "kitty" } },
    { std::nullopt, { "xterm" } },
};

} // namespace

PlaceOutcome LinuxDesktopCommands::openTerminal(Url const& folder, DesktopAccess const& access)
{
    for (auto const& terminal : terminals) {
        if (!isForDesktop(terminal.desktop, access.desktop) || !access.programs->has(terminal.command.front()))
            continue;
        std::vector<std::string> command { "env", "--chdir=" + folder.path() };
        command.insert(command.end(), terminal.command.begin(), terminal.command.end());
        if (access.programs->start(command))
            return PlaceOutcome::opened;
    }
    return PlaceOutcome::notFound;
}

PlaceOutcome LinuxDesktopCommands::perform(SystemPlace place, DesktopAccess const& access, std::string const& releaseFile)
{
    if (place == operatingSystemPage)
        return openHomePage(releaseFile);
    if (place == softwareStore)
        return openStore(access);
    if (place == softwareUpdate)
        return openUpdates(access);
    return openFirst(place, access);
}

std::vector<SystemPlace> LinuxDesktopCommands::placesWithoutProgram(DesktopAccess const& access)
{
    bool const hasStore = softwareLinkHandler() || hasProgram(softwareStore, access);
    std::vector<SystemPlace> places;
    if (!hasProgram(systemSettings, access))
        places.push_back(systemSettings);
    if (!hasStore && !hasProgram(softwareUpdate, access))
        places.push_back(softwareUpdate);
    if (!hasStore)
        places.push_back(softwareStore);
    return places;
}

void LinuxDesktopCommands::openTerminal(Url const& folder, std::function<void(PlaceOutcome)> done)
{
    m_tasks.runDetached([access = m_access, folder, done = std::move(done)] {
        return std::function<void()>([done, outcome = openTerminal(folder, access)] { done(outcome); });
    });
}

void LinuxDesktopCommands::open(SystemPlace place, std::function<void(PlaceOutcome)> done)
{
    m_tasks.runDetached([access = m_access, releaseFile = m_releaseFile, place, done = std::move(done)] {
        return std::function<void()>([done, outcome = perform(place, access, releaseFile)] { done(outcome); });
    });
}

} // namespace zv
