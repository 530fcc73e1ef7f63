#pragma once

#include <string_view>

namespace zv {

/// A folder that is shown as one thing: an application with all it needs inside.
[[nodiscard]] constexpr bool isPackageFolderName(std::string_view name) { return name.ends_with(".app") || name.ends_with(".AppDir"); }

/// A file that stands for an application.
[[nodiscard]] constexpr bool isApplicationEntryName(std::string_view name) { return name.ends_with(".desktop"); }

} // namespace zv
