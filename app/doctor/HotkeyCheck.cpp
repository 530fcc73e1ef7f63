#include "app/doctor/HotkeyCheck.h"

#include "base/Translation.h"

namespace zv {

namespace {

/// A line that has the compositor run us, and the file that it goes into.
struct KeyBinding {
    std::string_view desktop;
    std::string_view file;
    std::string_view line;
};

constexpr KeyBinding keyBindings[] = {
    { "sway", "~/.config/sway/config", "bindsym Mod4+m exec zanthe-vell show" },
    { "Hyprland", "~/.config/hypr/hyprland.conf", "bind = SUPER, M, exec, zanthe-vell show" },
    { "labwc", "~/.config/labwc/rc.xml", R"(<keybind key="W-m"><action name="Execute" command="zanthe-vell show"/></keybind>)" },
    { "river", "~/.config/river/init", "riverctl map normal Super M spawn 'zanthe-vell show'" },
    { "wayfire", "~/.config/wayfire.ini", "binding_menu = <super> KEY_M and command_menu = zanthe-vell show, both in [command]" },
};

std::string remedyOn(std::string_view desktopNames)
{
    for (auto const& binding : keyBindings) {
        if (desktopNames.find(binding.desktop) != std::string_view::npos)
            return tr("Write a key of your choice into %1: %2 (or “zanthe-vell perform TITLE” for an entry).", binding.file, binding.line);
    }
    return tr("The desktop’s own key bindings can run “zanthe-vell show” and “zanthe-vell perform TITLE”.");
}

} // namespace

DoctorCheck hotkeyCheck(HotkeySupport support, std::string_view desktopNames)
{
    using State = DoctorCheck::State;
    switch (support) {
    case HotkeySupport::everywhere:
        return { tr("Hotkeys"), State::ok, tr("Shortcuts work in every program."), "" };
    case HotkeySupport::askingTheUser:
        return { tr("Hotkeys"), State::limited, tr("Shortcuts work in every program once you have confirmed them to the desktop, which may have changed them."),
            tr("The desktop’s own keyboard settings show and change them.") };
    case HotkeySupport::none:
        break;
    }
    return { tr("Hotkeys"), State::missing, tr("This desktop does not let programs have shortcuts of their own."), remedyOn(desktopNames) };
}

} // namespace zv
