#include "app/menubar/MenuBarFinder.h"

#include <limits>
#include <utility>

namespace zv {

namespace {

/// While the menu bar stays hidden, the whole list is asked for no more often than this.
constexpr auto kScanInterval = std::chrono::seconds(1);
constexpr std::string_view kMenuBarOwner = "Window Server";

/// From the window list's coordinates (y grows downwards) to screen coordinates.
Rect toScreen(Rect const& bounds, double top) { return { bounds.x, top - bounds.maxY(), bounds.width, bounds.height }; }

std::optional<std::uint32_t> usableNumber(WindowInfo const& info)
{
    if (!info.number || *info.number < 0 || *info.number > std::numeric_limits<std::uint32_t>::max())
        return std::nullopt;
    return static_cast<std::uint32_t>(*info.number);
}

} // namespace

std::vector<Rect> MenuBarFinder::menuBarFrames()
{
    auto const screens = m_screens.frames();
    if (screens.empty())
        return {};
    double const top = screens.front().maxY();
    if (std::exchange(m_expectsOthers, false)) {
        auto const before = m_known;
        if (auto all = scan(top); !all.empty())
            return all;
        m_known = before; // hidden for now, not gone
    }
    auto known = framesOfKnown(top);
    if (!known.empty())
        return known;
    return mayScan() ? scan(top) : std::vector<Rect> {};
}

std::vector<Rect> MenuBarFinder::framesOfKnown(double top) const
{
    std::vector<Rect> frames;
    for (auto const number : m_known) {
        auto const info = m_windows.window(number);
        if (info && info->isOnscreen && info->bounds)
            frames.push_back(toScreen(*info->bounds, top));
    }
    return frames;
}

bool MenuBarFinder::mayScan() const { return m_known.empty() || !m_lastScan || m_clock.monotonic() - *m_lastScan >= kScanInterval; }

std::vector<Rect> MenuBarFinder::scan(double top)
{
    m_lastScan = m_clock.monotonic();
    std::vector<std::uint32_t> found;
    std::vector<Rect> frames;
    for (auto const& info : m_windows.onScreenWindows()) {
        if (!isMenuBar(info) || !info.bounds)
            continue;
        if (auto const number = usableNumber(info))
            found.push_back(*number);
        frames.push_back(toScreen(*info.bounds, top));
    }
    m_known = std::move(found);
    return frames;
}

bool MenuBarFinder::isMenuBar(WindowInfo const& info) const { return info.ownerName == kMenuBarOwner && info.layer == m_windows.mainMenuLevel(); }

} // namespace zv
