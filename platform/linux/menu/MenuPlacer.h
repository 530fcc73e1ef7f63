#pragma once

#include <QPoint>
#include <QRect>

#include <functional>
#include <optional>

class QMenu;

namespace zv {

/// Puts menus on the desktop as the display server allows, one tree of them at a time. The
/// windows are the same everywhere; what they need to stand where they want to is done here.
/// Main thread only.
class MenuPlacer {
public:
    /// Where a menu can open that nobody has clicked for.
    enum class Reach {
        nowhere, ///< only the desktop shows the menu, drawn from the bus
        workArea, ///< on one screen, beside its panels
        everywhere,
    };
    /// The menu that a click on our icon in the panel opens.
    enum class IconMenu {
        panels, ///< the panel's drawing of what the bus tells
        ours,
        oursAlone, ///< ours, as long as the bus tells of no menu
    };
    /// Receives the place in the toolkit's coordinates; nothing where the pointer's is not to be had.
    using Open = std::function<void(std::optional<QPoint>)>;

    virtual ~MenuPlacer() = default;
    [[nodiscard]] virtual Reach reach() const = 0;

    /// Makes ready for a menu at that pixel, without one at the pointer, and calls `open`: before
    /// it returns, or as soon as the desktop has told all that is needed. The next call, and
    /// leave(), take a pending one back.
    virtual void find(std::optional<QPoint> pixel, Open open) = 0;
    [[nodiscard]] virtual IconMenu iconMenu() const = 0;
    /// The pixel for a menu under our icon, which a panel says was clicked there; nothing where
    /// panels tell another place.
    [[nodiscard]] virtual std::optional<QPoint> pixelOfClick(QPoint said) const = 0;
    /// What panels leave of the screen at that point; empty where menus are kept off them otherwise.
    [[nodiscard]] virtual QRect freeAreaAt(QPoint) const { return {}; }
    /// Gives the screen back, as all menus have closed; nothing while find() is pending.
    virtual void leave() { }

    /// Called before a menu's window shows, …
    virtual void windowShows(QMenu&) { }
    /// … after it has come, was moved, or was painted for the first time, …
    virtual void windowIsShown(QMenu&) { }
    /// … and after it has hidden.
    virtual void windowHid(QMenu&) { }
    /// Whether moves of a menu's native window are no moves of the menu.
    [[nodiscard]] virtual bool ownsWindowMoves() const { return false; }
    /// Around the time in which something is dragged out of a menu.
    virtual void dragBegins() { }
    virtual void dragEnds() { }

    /// Called when the menus cannot stay open. Set by its one user.
    std::function<void()> onLost;
};

} // namespace zv
