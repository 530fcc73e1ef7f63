#include "platform/linux/icons/SystemIconNames.h"

#include <utility>

namespace zv {

/// Names of https://specifications.freedesktop.org/icon-naming-spec first, then names that themes have besides.
FileIconNames iconNamesOf(SystemIcon icon)
{
    auto const ofTheme = [](std::vector<std::string> names) { return FileIconNames { std::move(names), {}, IconShape::none }; };
    switch (icon) {
    case SystemIcon::application:
        break;
    case SystemIcon::appStore:
        return { { "system-software-install", "applications-other", "package-x-generic" }, {}, IconShape::application };
    case SystemIcon::computer:
        return { { "computer", "video-display" }, {}, IconShape::computer };
    case SystemIcon::dock:
        return { { "user-desktop", "preferences-desktop", "desktop" }, {}, IconShape::computer };
    case SystemIcon::folder:
        return { { "folder", "inode-directory" }, {}, IconShape::folder };
    case SystemIcon::forceQuit:
        return ofTheme({ "process-stop" });
    case SystemIcon::lockScreen:
        return ofTheme({ "system-lock-screen" });
    case SystemIcon::logOut:
        return ofTheme({ "system-log-out" });
    case SystemIcon::network:
        return { { "network-workgroup", "network-server", "folder-remote" }, {}, IconShape::network };
    case SystemIcon::networkLocation:
        return { { "preferences-system-network", "network-workgroup", "network-wired" }, {}, IconShape::network };
    case SystemIcon::recentItems:
        return ofTheme({ "document-open-recent" });
    case SystemIcon::restart:
        return ofTheme({ "system-reboot", "view-refresh" });
    case SystemIcon::runningApplications:
        return ofTheme({ "preferences-system-windows", "window-new" });
    case SystemIcon::shortcuts:
        return { { "preferences-desktop-keyboard-shortcuts", "preferences-desktop-keyboard", "input-keyboard" }, {}, IconShape::settings };
    case SystemIcon::shutDown:
        return ofTheme({ "system-shutdown" });
    case SystemIcon::sleep:
        return ofTheme({ "system-suspend", "xfsm-suspend" });
    case SystemIcon::softwareUpdate:
        return { { "system-software-update", "software-update-available", "system-software-install" }, {}, IconShape::settings };
    case SystemIcon::systemSettings:
        return { { "preferences-system", "preferences-desktop", "applications-system" }, {}, IconShape::settings };
    case SystemIcon::volumes:
        return { { "drive-harddisk", "drive-multidisk" }, {}, IconShape::drive };
    }
    return { {}, {}, IconShape::application };
}

FileIconNames iconNamesOf(ApplicationCategory category)
{
    auto const named = [](char const* name) { return FileIconNames { { name, "applications-other" }, {}, IconShape::folder }; };
    switch (category) {
    case ApplicationCategory::accessories:
        return named("applications-accessories");
    case ApplicationCategory::development:
        return named("applications-development");
    case ApplicationCategory::education:
        return named("applications-education");
    case ApplicationCategory::games:
        return named("applications-games");
    case ApplicationCategory::graphics:
        return named("applications-graphics");
    case ApplicationCategory::internet:
        return named("applications-internet");
    case ApplicationCategory::multimedia:
        return named("applications-multimedia");
    case ApplicationCategory::office:
        return named("applications-office");
    case ApplicationCategory::science:
        return named("applications-science");
    case ApplicationCategory::settings:
        return named("preferences-desktop");
    case ApplicationCategory::system:
        return named("applications-system");
    case ApplicationCategory::other:
        break;
    }
    return named("applications-other");
}

} // namespace zv
