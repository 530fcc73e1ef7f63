#include "app/doctor/HotkeyCheck.h"

#include "base/Translation.h"

namespace zv {

DoctorCheck hotkeyCheck(HotkeySupport support)
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
    return { tr("Hotkeys"), State::missing, tr("This desktop does not let programs have shortcuts of their own."),
        tr("The desktop’s own key bindings can run “zanthe-vell perform TITLE”.") };
}

} // namespace zv
