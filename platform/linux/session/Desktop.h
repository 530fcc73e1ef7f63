#pragma once

#include <optional>
#include <string_view>

namespace zv {

/// The desktops whose programs and services are known by name.
enum class Desktop { gnome, kde, xfce, mate, cinnamon, lxqt, other };

/// From the colon-separated text of XDG_CURRENT_DESKTOP, such as "ubuntu:GNOME".
[[nodiscard]] Desktop desktopFromText(std::string_view text);

/// Whether a table's row, for one desktop or for all, applies here. On an unknown desktop all
/// rows are tried, and the installed programs decide.
[[nodiscard]] constexpr bool isForDesktop(std::optional<Desktop> row, Desktop current) { return !row || *row == current || current == Desktop::other; }

} // namespace zv
