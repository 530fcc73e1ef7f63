#include "app/doctor/HotkeyCheck.h"

namespace zv {

DoctorCheck hotkeyCheck(HotkeySupport support)
{
    using State = DoctorCheck::State;
    switch (support) {
    case HotkeySupport::everywhere:
        return { "Hotkeys", State::ok, "Shortcuts work in every program.", "" };
    case HotkeySupport::askingTheUser:
        return { "Hotkeys", State::limited, "Shortcuts work in every program once you have confirmed them to the desktop, which may have changed them.",
            "The desktop’s own keyboard settings show and change them." };
    case HotkeySupport::none:
        break;
    }
    return { "Hotkeys", State::missing, "This desktop does not let programs have shortcuts of their own.",
        "The desktop’s own key bindings can run “zanthe-vell perform TITLE”." };
}

} // namespace zv
