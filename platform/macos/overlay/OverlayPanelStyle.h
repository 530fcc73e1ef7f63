#pragma once

#include <cstdint>

/// The properties that keep a panel over the menu bar wherever that is.
namespace zv::overlayPanelStyle {

inline constexpr int level = 25; ///< kCGStatusWindowLevel of CGWindowLevel.h: one above the menu bar
/// NSWindowCollectionBehavior of AppKit's NSWindow.h: joins all spaces (1), is stationary (16), is skipped
/// when cycling (64), may stand beside a full-screen window (256).
inline constexpr std::uint32_t collectionBehavior = 1 | 16 | 64 | 256;
/// Black that looks transparent and yet receives clicks.
inline constexpr double backgroundAlpha = 0.004;

} // namespace zv::overlayPanelStyle
