#include "app/menubar/MenuBarFinder.h"

#include <utility>

namespace zv {

namespace {

/// The shortest time between full scans while the menu bar is hidden.
constexpr auto kScanInterval = std::chrono::seconds(1);

} // namespace

std::vector<Rect> MenuBarFinder::menuBarFrames()
{
    if (m_screens.frames().empty())
        return {};
    if (std::exchange(m_expectsOthers, false)) {
        auto const before = m_known;
        if (auto all = scan(); !all.empty())
            return all;
        m_known = before; // hidden for now, not gone
    }
    auto known = framesOfKnown();
    if (!known.empty())
        return known;
    return mayScan() ? scan() : std::vector<Rect> {};
}

std::vector<Rect> MenuBarFinder::framesOfKnown() const
{
    std::vector<Rect> frames;
    for (auto const id : m_known) {
        if (auto const frame = m_menuBars.frame(id))
            frames.push_back(*frame);
    }
    return frames;
}

bool MenuBarFinder::mayScan() const { return m_known.empty() || !m_lastScan || m_clock.monotonic() - *m_lastScan >= kScanInterval; }

std::vector<Rect> MenuBarFinder::scan()
{
    m_lastScan = m_clock.monotonic();
    m_known.clear();
    std::vector<Rect> frames;
    for (auto const& bar : m_menuBars.onScreen()) {
        if (bar.id)
            m_known.push_back(*bar.id);
        frames.push_back(bar.frame);
    }
    return frames;
}

} // namespace zv
