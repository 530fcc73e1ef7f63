#include "app/actions/SystemPlaces.h"

#include <algorithm>
#include <iterator>

namespace zv {

namespace {

using Form = SystemPlaceTarget::Form;

constexpr std::string_view settingsApplication = "/System/Applications/System Settings.app";
constexpr std::string_view operatingSystemPage = "https://www.apple.com/macos/";

/// Panes are named by bundle identifiers in /System/Library/ExtensionKit/Extensions; no document lists them.
constexpr SystemPlaceTarget targets[] = {
    { MenuItemKind::aboutThisMac, SystemPlace::aboutComputer, Form::settingsPane, "com.apple.SystemProfiler.AboutExtension" },
    { MenuItemKind::appStore, SystemPlace::softwareStore, Form::application, "/System/Applications/App Store.app" },
    { MenuItemKind::getMacOSXSoftware, SystemPlace::operatingSystemPage, Form::webPage, operatingSystemPage },
    { MenuItemKind::getMacOSXSoftware2, SystemPlace::operatingSystemPage, Form::webPage, operatingSystemPage },
    { MenuItemKind::softwareUpdate, SystemPlace::softwareUpdate, Form::settingsPane, "com.apple.Software-Update-Settings.extension" },
    { MenuItemKind::systemPrefs, SystemPlace::systemSettings, Form::application, settingsApplication },
    { MenuItemKind::simpleSystemPrefs, SystemPlace::systemSettings, Form::application, settingsApplication },
    { MenuItemKind::dockPrefs, SystemPlace::dockSettings, Form::settingsPane, "com.apple.Desktop-Settings.extension" },
};

} // namespace

SystemPlaceTarget const* systemPlaceFor(MenuItemKind const& kind)
{
    auto const* const found = std::find_if(std::begin(targets), std::end(targets), [&](auto const& target) { return kind == target.kind; });
    return found == std::end(targets) ? nullptr : found;
}

} // namespace zv
