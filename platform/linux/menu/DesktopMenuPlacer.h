#pragma once

#include "platform/linux/menu/MenuPlacer.h"

#include <QObject>
#include <QRect>

namespace zv {

/// X11, where any window may stand anywhere; on a platform without a desktop nothing is placed.
class DesktopMenuPlacer : public QObject, public MenuPlacer {
    Q_OBJECT
public:
    using FreeAreaOf = std::function<QRect(QRect const&)>;

    /// `freeAreaOf` tells what panels leave of a monitor in pixels; without it, the toolkit does.
    explicit DesktopMenuPlacer(FreeAreaOf freeAreaOf = {});

    [[nodiscard]] Reach reach() const override;
    [[nodiscard]] IconMenu iconMenu() const override { return reach() == Reach::everywhere ? IconMenu::ours : IconMenu::panels; }
    void find(std::optional<QPoint> pixel, Open open) override;
    [[nodiscard]] std::optional<QPoint> pixelOfClick(QPoint said) const override;
    [[nodiscard]] QRect freeAreaAt(QPoint point) const override;

private:
    FreeAreaOf m_freeAreaOf;
};

} // namespace zv
