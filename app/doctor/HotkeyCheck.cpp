#include "app/doctor/HotkeyCheck.h"

#include "base/Translation.h"

namespace zv {

namespace {

std::string remedyFor(std::optional<KeyBindingLine> const& showing)
{
    if (showing)
        return tr("Write a key of your choice into %1: %2. “zanthe-vell hotkeys --bindings” prints the lines for the shortcuts of your menu.", showing->file,
            showing->line);
    return tr("The desktop’s own key bindings can run “zanthe-vell show” and “zanthe-vell perform TITLE”.");
}

} // namespace

DoctorCheck hotkeyCheck(HotkeySupport support, std::optional<KeyBindingLine> const& showing)
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
    return { tr("Hotkeys"), State::missing, tr("This desktop does not let programs have shortcuts of their own."), remedyFor(showing) };
}

} // namespace zv
