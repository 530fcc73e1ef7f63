#include "app/doctor/HotkeyCheck.h"

#include "app/menu/ShownShortcut.h"
#include "app/model/KeyCombination.h"
#include "base/Translation.h"

namespace zv {

namespace {

std::string remedyFor(std::optional<KeyBindingLine> const& showing, DesktopKey::State const& key)
{
    if (key.isOffered)
        return tr("Record a key of GNOME for the menu in the settings (“zanthe-vell settings”).");
    if (showing)
        return tr("Write a key of your choice into %1: %2. “zanthe-vell hotkeys --bindings” prints the lines for the shortcuts of your menu.", showing->file,
            showing->line);
    return tr("The desktop’s own key bindings can run “zanthe-vell show” and “zanthe-vell perform TITLE”.");
}

DoctorCheck keyAlone(DesktopKey::Combination const& key)
{
    auto const shown = shownShortcut(specOf(key).description(), SystemKind::linuxDesktop);
    return { tr("Hotkeys"), DoctorCheck::State::limited,
        tr("This desktop does not let programs have shortcuts of their own. The menu opens by a key of GNOME’s settings: %1.", shown),
        tr("More custom shortcuts of GNOME can run “zanthe-vell perform TITLE”.") };
}

} // namespace

DoctorCheck hotkeyCheck(HotkeySupport support, std::optional<KeyBindingLine> const& showing, DesktopKey::State const& key)
{
    using State = DoctorCheck::State;
    if (support == HotkeySupport::none && key.value)
        return keyAlone(*key.value);
    switch (support) {
    case HotkeySupport::everywhere:
        return { tr("Hotkeys"), State::ok, tr("Shortcuts work in every program."), "" };
    case HotkeySupport::askingTheUser:
        return { tr("Hotkeys"), State::limited, tr("Shortcuts work in every program once you have confirmed them to the desktop, which may have changed them."),
            tr("The desktop’s own keyboard settings show and change them.") };
    case HotkeySupport::none:
        break;
    }
    return { tr("Hotkeys"), State::missing, tr("This desktop does not let programs have shortcuts of their own."), remedyFor(showing, key) };
}

} // namespace zv
