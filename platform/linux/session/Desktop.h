#pragma once

#include <optional>
#include <string_view>

namespace zv {

/// The desktops whose own programs and services are known by name.
enum class Desktop { gnome, kde, xfce, mate, cinnamon, lxqt, other };

/// From the colon-separated text of XDG_CURRENT_DESKTOP, such as "ubuntu:GNOME".
[[nodiscard]] Desktop desktopFromText(std::string_view text);

/// A table's row is for one desktop, or for every one. On a desktop that is not known by
/// name all rows are tried, and what is installed decides.
[[nodiscard]] constexpr bool isForDesktop(std::optional<Desktop> row, Desktop current) { return !row || *row == current || current == Desktop::other; }

} // namespace zv
