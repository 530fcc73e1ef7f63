#pragma once

#include "platform/menubar/Screens.h"
#include "platform/menubar/WindowList.h"
#include "platform/time/Clock.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace zv {

/// Finds the menu bars among the windows of the system. It remembers which windows they
/// were, so that asking again costs one look at each of them.
class MenuBarFinder {
public:
    MenuBarFinder(WindowList& windows, Screens& screens, Clock& clock)
        : m_windows(windows)
        , m_screens(screens)
        , m_clock(clock)
    {
    }

    /// The visible menu bars in screen coordinates, in the window list's order.
    [[nodiscard]] std::vector<Rect> menuBarFrames();
    /// There may be more menu bars than those known: the next call looks for all.
    void expectOthers() { m_expectsOthers = true; }

private:
    [[nodiscard]] std::vector<Rect> framesOfKnown(double top) const;
    [[nodiscard]] bool mayScan() const;
    [[nodiscard]] std::vector<Rect> scan(double top);
    [[nodiscard]] bool isMenuBar(WindowInfo const& info) const;

    WindowList& m_windows;
    Screens& m_screens;
    Clock& m_clock;
    std::vector<std::uint32_t> m_known; ///< what the last full scan found
    std::optional<Instant> m_lastScan;
    bool m_expectsOthers = false;
};

} // namespace zv
