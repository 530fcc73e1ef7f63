#include "app/doctor/OverlayCheck.h"

#include "base/Translation.h"

namespace zv {

DoctorCheck overlayCheck(OverlaySupport support)
{
    using State = DoctorCheck::State;
    switch (support) {
    case OverlaySupport::onPanels:
        return { tr("Corner"), State::ok, tr("A click on the left end of the panel can open the menu."), "" };
    case OverlaySupport::noPanel:
        return { tr("Corner"), State::limited, tr("No panel lies along an edge of a screen now, so there is no corner to click."),
            tr("As soon as one comes, a click on its left end can open the menu.") };
    case OverlaySupport::none:
        break;
    }
    return { tr("Corner"), State::missing, tr("This desktop does not let programs stand on its panel."),
        tr("The icon in the panel opens the same menu, and a key binding can run “zanthe-vell show”.") };
}

} // namespace zv
