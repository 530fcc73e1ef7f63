#pragma once

#import <Cocoa/Cocoa.h>

NS_ASSUME_NONNULL_BEGIN

/// A window that Escape closes.
@interface ZVClosingWindow : NSWindow <NSStandardKeyBindingResponding>
@end

NS_ASSUME_NONNULL_END
