#include "app/menubar/OverlayCheck.h"

namespace zv {

DoctorCheck overlayCheck(OverlaySupport support)
{
    using State = DoctorCheck::State;
    if (support == OverlaySupport::onPanels)
        return { "Corner", State::ok, "A click on the left end of a panel at the top of a screen can open the menu.", "" };
    return { "Corner", State::missing, "This desktop does not let programs stand on its panel.",
        "The icon in the panel opens the same menu, and a key binding can run “zanthe-vell show”." };
}

} // namespace zv
