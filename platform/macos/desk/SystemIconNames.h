#pragma once

#include "platform/desk/IconSource.h"

#include <string_view>

namespace zv {

/// The name of a picture: the path of the application or extension of the system whose icon
/// it is, or a word where it is no file's: for commands that have none in the system's own menu, a symbol of the system.
constexpr std::string_view nameOfSystemIcon(SystemIcon icon)
{
    switch (icon) {
    case SystemIcon::application:
        return "application";
    case SystemIcon::appStore:
        return "/System/Applications/App Store.app";
    case SystemIcon::computer:
        return "computer";
    case SystemIcon::dock:
        return "/System/Library/CoreServices/Dock.app";
    case SystemIcon::folder:
        return "folder";
    case SystemIcon::network:
        return "network";
    case SystemIcon::networkLocation:
        return "/System/Library/ExtensionKit/Extensions/Network.appex";
    case SystemIcon::shortcuts:
        return "/System/Applications/Shortcuts.app";
    case SystemIcon::softwareUpdate:
        return "/System/Library/ExtensionKit/Extensions/SoftwareUpdateSettingsExtension.appex";
    case SystemIcon::systemSettings:
        return "/System/Applications/System Settings.app";
    case SystemIcon::forceQuit:
        return "xmark.octagon";
    case SystemIcon::lockScreen:
        return "lock";
    case SystemIcon::logOut:
        return "rectangle.portrait.and.arrow.right";
    case SystemIcon::recentItems:
        return "clock";
    case SystemIcon::restart:
        return "arrow.clockwise";
    case SystemIcon::runningApplications:
        return "macwindow.on.rectangle";
    case SystemIcon::shutDown:
        return "power";
    case SystemIcon::sleep:
        return "moon.zzz";
    case SystemIcon::volumes:
        return "externaldrive";
    }
    return {};
}

} // namespace zv
