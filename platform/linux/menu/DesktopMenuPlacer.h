#pragma once

#include "platform/linux/menu/MenuPlacer.h"

namespace zv {

/// X11, where any window may stand anywhere; on a platform without a desktop nothing is placed.
class DesktopMenuPlacer : public MenuPlacer {
public:
    [[nodiscard]] Reach reach() const override;
    [[nodiscard]] IconMenu iconMenu() const override { return reach() == Reach::everywhere ? IconMenu::ours : IconMenu::panels; }
    void find(std::optional<QPoint> pixel, Open open) override;
    [[nodiscard]] std::optional<QPoint> pixelOfClick(QPoint said) const override;
};

} // namespace zv
