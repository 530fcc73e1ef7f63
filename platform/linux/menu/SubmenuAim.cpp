#include "platform/linux/menu/SubmenuAim.h"

#include <algorithm>

namespace zv {

namespace {

constexpr qint64 memory = 60; // milliseconds: long enough for the direction of a slow hand, short enough to notice a turn
constexpr qint64 hesitation = 30; // milliseconds of movement before its direction counts
constexpr int margin = 8; // pixels above and below the submenu
constexpr double least = 0.5; // pixels: the shortest way forward that places in whole pixels can mean

} // namespace

void SubmenuAim::moved(QPoint at, qint64 time)
{
    std::erase_if(m_trace, [&](Place const& place) { return time - place.time > memory; });
    m_trace.push_back({ at, time });
}

/// Prolongs the way to the submenu's near side. Each place is off by up to half a pixel, so the
/// way may lead anywhere between two lines.
bool SubmenuAim::isAt(QRect const& submenu) const
{
    if (m_trace.empty())
        return false;
    auto const at = m_trace.back().at;
    if (submenu.contains(at) || m_trace.back().time - m_trace.front().time < hesitation)
        return true;
    auto const way = at - m_trace.front().at;
    bool const isRight = submenu.left() >= at.x();
    double const distance = isRight ? submenu.left() - at.x() : at.x() - submenu.right();
    double const forward = isRight ? way.x() : -way.x();
    if (forward < 1 || distance < 0)
        return false;
    double const steep = distance / std::max(least, forward - 1);
    double const flat = distance / (forward + 1);
    double const up = way.y() - 1;
    double const down = way.y() + 1;
    double const highest = at.y() + up * (up < 0 ? steep : flat);
    double const lowest = at.y() + down * (down > 0 ? steep : flat);
    return highest <= submenu.bottom() + margin && lowest >= submenu.top() - margin;
}

} // namespace zv
