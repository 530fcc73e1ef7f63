#pragma once

#include "base/Translation.h"

/// The titles in the program's own menu bar, on systems that have one for each program.
namespace zv::mainMenuTexts {

inline constexpr Sentence program = { "Zanthe Vell" };
// TRANSLATORS: this and the following as macOS has them in the menu bar of every application
inline constexpr Sentence settings = mark("Settings…");
inline constexpr Sentence services = markc("menu bar", "Services");
inline constexpr Sentence hide = mark("Hide Zanthe Vell");
inline constexpr Sentence hideOthers = mark("Hide Others");
inline constexpr Sentence showAll = mark("Show All");
inline constexpr Sentence quit = mark("Quit Zanthe Vell");

inline constexpr Sentence edit = markc("menu bar", "Edit");
inline constexpr Sentence undo = mark("Undo");
inline constexpr Sentence redo = mark("Redo");
inline constexpr Sentence cut = mark("Cut");
inline constexpr Sentence copy = markc("menu bar", "Copy");
inline constexpr Sentence paste = mark("Paste");
inline constexpr Sentence duplicate = mark("Duplicate");
inline constexpr Sentence deleteSelected = markc("menu bar", "Delete");
inline constexpr Sentence selectAll = mark("Select All");

inline constexpr Sentence window = markc("menu bar", "Window");
inline constexpr Sentence close = markc("menu bar", "Close");
inline constexpr Sentence minimize = mark("Minimize");

} // namespace zv::mainMenuTexts
