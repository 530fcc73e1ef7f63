#pragma once

#import <Cocoa/Cocoa.h>

NS_ASSUME_NONNULL_BEGIN

namespace zv {

/// The menu bar of the program's own windows. Sends the settings command to `target`.
NSMenu* makeMainMenu(id target, SEL openSettings);

} // namespace zv

NS_ASSUME_NONNULL_END
