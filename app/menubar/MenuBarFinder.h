#pragma once

#include "platform/menubar/MenuBars.h"
#include "platform/menubar/Screens.h"
#include "platform/time/Clock.h"

#include <optional>
#include <vector>

namespace zv {

/// Finds the menu bars, and remembers them, so that asking again costs one look at each.
class MenuBarFinder {
public:
    MenuBarFinder(MenuBars& menuBars, Screens& screens, Clock& clock)
        : m_menuBars(menuBars)
        , m_screens(screens)
        , m_clock(clock)
    {
    }

    /// The visible menu bars in screen coordinates, in the system's order.
    [[nodiscard]] std::vector<Rect> menuBarFrames();
    /// Makes the next call scan for further menu bars.
    void expectOthers() { m_expectsOthers = true; }

private:
    [[nodiscard]] std::vector<Rect> framesOfKnown() const;
    [[nodiscard]] bool mayScan() const;
    [[nodiscard]] std::vector<Rect> scan();

    MenuBars& m_menuBars;
    Screens& m_screens;
    Clock& m_clock;
    std::vector<MenuBarID> m_known; ///< menu bars of the last full scan
    std::optional<Instant> m_lastScan;
    bool m_expectsOthers = false;
};

} // namespace zv
