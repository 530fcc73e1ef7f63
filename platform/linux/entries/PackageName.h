#pragma once

#include <string_view>

namespace zv {

/// Whether the name is that of a folder shown as one item: an application with all it needs inside.
[[nodiscard]] constexpr bool isPackageFolderName(std::string_view name) { return name.ends_with(".app") || name.ends_with(".AppDir"); }

/// Whether the name is that of an application entry.
[[nodiscard]] constexpr bool isApplicationEntryName(std::string_view name) { return name.ends_with(".desktop"); }

} // namespace zv
