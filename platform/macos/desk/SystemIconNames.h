#pragma once

#include "platform/desk/IconSource.h"

#include <string_view>

namespace zv {

/// The name of a picture: the path of the application or extension of the system whose icon
/// it is, or a word where it is no file's; empty where the system's own menu has no picture.
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
    case SystemIcon::lockScreen:
    case SystemIcon::logOut:
    case SystemIcon::recentItems:
    case SystemIcon::restart:
    case SystemIcon::runningApplications:
    case SystemIcon::shutDown:
    case SystemIcon::sleep:
    case SystemIcon::volumes:
        break;
    }
    return {};
}

} // namespace zv
