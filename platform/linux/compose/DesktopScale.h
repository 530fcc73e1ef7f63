#pragma once

namespace zv {

/// The desktop's own factor for windows, where the dots per inch that the toolkit reads do not hold it already; 1
/// without an X server.
[[nodiscard]] int desktopScale();

} // namespace zv
