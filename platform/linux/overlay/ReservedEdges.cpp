#include "platform/linux/overlay/ReservedEdges.h"

#include <algorithm>

namespace zv {

namespace {

/// The edges in the order of _NET_WM_STRUT and _NET_WM_STRUT_PARTIAL, which goes on with each edge's first and last pixel:
/// https://specifications.freedesktop.org/wm-spec, "Application Window Properties"
constexpr BarEdge kStrutEdges[] = { BarEdge::left, BarEdge::right, BarEdge::top, BarEdge::bottom };
constexpr std::size_t kEdges = std::size(kStrutEdges);
constexpr std::size_t kPartialWords = 3 * kEdges;

bool isUpright(BarEdge edge) { return edge == BarEdge::left || edge == BarEdge::right; }

XRect roomAt(BarEdge edge, int depth, XRect const& desktop)
{
    auto room = desktop;
    (isUpright(edge) ? room.width : room.height) = depth;
    if (edge == BarEdge::right)
        room.x = desktop.right() - depth;
    if (edge == BarEdge::bottom)
        room.y = desktop.bottom() - depth;
    return room;
}

void limit(XRect& room, BarEdge edge, int first, int last)
{
    (isUpright(edge) ? room.y : room.x) = first;
    (isUpright(edge) ? room.height : room.width) = last - first + 1;
}

void cut(XRect& area, BarEdge edge, XRect const& room)
{
    int const left = edge == BarEdge::left ? std::max(area.x, room.right()) : area.x;
    int const top = edge == BarEdge::top ? std::max(area.y, room.bottom()) : area.y;
    int const right = edge == BarEdge::right ? std::min(area.right(), room.x) : area.right();
    int const bottom = edge == BarEdge::bottom ? std::min(area.bottom(), room.y) : area.bottom();
    area = { left, top, std::max(0, right - left), std::max(0, bottom - top) };
}

} // namespace

std::vector<ReservedEdge> reservedEdges(std::span<std::uint32_t const> strut, XRect const& desktop)
{
    std::vector<ReservedEdge> reserved;
    for (std::size_t i = 0; i < kEdges && strut.size() >= kEdges; ++i) {
        if (strut[i] == 0)
            continue;
        ReservedEdge claim { kStrutEdges[i], roomAt(kStrutEdges[i], static_cast<int>(strut[i]), desktop) };
        if (strut.size() >= kPartialWords)
            limit(claim.room, claim.edge, static_cast<int>(strut[kEdges + 2 * i]), static_cast<int>(strut[kEdges + 2 * i + 1]));
        reserved.push_back(claim);
    }
    return reserved;
}

XRect freeArea(XRect const& monitor, std::span<ReservedEdge const> reserved)
{
    auto area = monitor;
    for (auto const& [edge, room] : reserved) {
        auto const shared = room.intersected(monitor);
        bool const reachesAcross = isUpright(edge) ? shared.width == monitor.width : shared.height == monitor.height;
        if (shared.width > 0 && shared.height > 0 && !reachesAcross)
            cut(area, edge, shared);
    }
    return area;
}

} // namespace zv
