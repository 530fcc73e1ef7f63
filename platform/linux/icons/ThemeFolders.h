#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Icon themes as folders: https://specifications.freedesktop.org/icon-theme-spec. Any thread.
namespace zv {

/// What pictures in a theme end with.
inline constexpr std::string_view pictureExtensions[] = { ".png", ".svg", ".svgz", ".xpm" };

[[nodiscard]] std::vector<std::string> namesInFolder(std::string const& folder);
/// The folders with pictures of the theme that lies in a folder.
[[nodiscard]] std::vector<std::string> pictureFoldersOf(std::string const& theme);
/// The names of all icons of a theme, of those that it inherits from, and of those that stand outside of themes, each
/// once. Left out are symbols ("-symbolic"), which are drawn in a program's own colour.
[[nodiscard]] std::vector<std::string> iconsOfTheme(std::string const& theme, std::vector<std::string> const& searchPaths);

} // namespace zv
