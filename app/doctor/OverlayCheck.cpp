#include "app/doctor/OverlayCheck.h"

namespace zv {

DoctorCheck overlayCheck(OverlaySupport support)
{
    using State = DoctorCheck::State;
    switch (support) {
    case OverlaySupport::onPanels:
        return { "Corner", State::ok, "A click on the left end of the panel can open the menu.", "" };
    case OverlaySupport::noPanel:
        return { "Corner", State::limited, "No panel lies along the top or the bottom of a screen now, so there is no corner to click.",
            "As soon as one comes, a click on its left end can open the menu." };
    case OverlaySupport::none:
        break;
    }
    return { "Corner", State::missing, "This desktop does not let programs stand on its panel.",
        "The icon in the panel opens the same menu, and a key binding can run “zanthe-vell show”." };
}

} // namespace zv
