#pragma once

struct xcb_connection_t;

namespace zv {

/// The desktop's own factor for windows, where the dots per inch that the toolkit reads do not hold it already; 1
/// where nothing is published.
[[nodiscard]] int desktopScale(xcb_connection_t* connection);

} // namespace zv
