#pragma once

#import <Cocoa/Cocoa.h>

NS_ASSUME_NONNULL_BEGIN

namespace zv {

/// Puts a window before those of other programs, for a question that holds up our main thread:
/// the system may decline to activate the program, and then shows the question behind them.
inline void bringToFront(NSWindow* window)
{
    window.level = NSFloatingWindowLevel;
    [window orderFrontRegardless];
}

} // namespace zv

NS_ASSUME_NONNULL_END
