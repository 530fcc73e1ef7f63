#pragma once

/// The titles in the program's own menu bar, on systems that have one for each program.
namespace zv::mainMenuTexts {

using Text = char const*;

inline constexpr Text program = "Zanthe Vell";
inline constexpr Text settings = "Settings…";
inline constexpr Text services = "Services";
inline constexpr Text hide = "Hide Zanthe Vell";
inline constexpr Text hideOthers = "Hide Others";
inline constexpr Text showAll = "Show All";
inline constexpr Text quit = "Quit Zanthe Vell";

inline constexpr Text edit = "Edit";
inline constexpr Text undo = "Undo";
inline constexpr Text redo = "Redo";
inline constexpr Text cut = "Cut";
inline constexpr Text copy = "Copy";
inline constexpr Text paste = "Paste";
inline constexpr Text duplicate = "Duplicate";
inline constexpr Text deleteSelected = "Delete";
inline constexpr Text selectAll = "Select All";

inline constexpr Text window = "Window";
inline constexpr Text close = "Close";
inline constexpr Text minimize = "Minimize";

} // namespace zv::mainMenuTexts
