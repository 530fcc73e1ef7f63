#pragma once

#include "platform/linux/x11/X11Screens.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace zv {

/// The edges of a screen, in the order in which a panel along them is preferred for the corner.
enum class BarEdge { top, bottom, left, right };

/// The room that a panel claims at an edge of all monitors together.
struct ReservedEdge {
    BarEdge edge = BarEdge::top;
    XRect room;
    friend bool operator==(ReservedEdge const&, ReservedEdge const&) = default;
};

/// Reads the words of _NET_WM_STRUT_PARTIAL, or of the older _NET_WM_STRUT; `desktop` is all monitors together.
[[nodiscard]] std::vector<ReservedEdge> reservedEdges(std::span<std::uint32_t const> strut, XRect const& desktop);

/// The monitor without what is claimed at its edges. A claim from one edge of the monitor to the other comes from a panel
/// of a neighbour, between the two.
[[nodiscard]] XRect freeArea(XRect const& monitor, std::span<ReservedEdge const> reserved);

} // namespace zv
