#pragma once

#import <Cocoa/Cocoa.h>

#include "base/Url.h"

#include <functional>
#include <vector>

NS_ASSUME_NONNULL_BEGIN

/// Covers a view and takes the files that are dropped there; clicks go on to the view.
@interface ZVFileDropView : NSView {
    std::function<void(std::vector<zv::Url>)> _dropped;
}
+ (void)cover:(NSView*)view dropped:(std::function<void(std::vector<zv::Url>)>)dropped;
@end

namespace zv {

std::vector<Url> filesOn(NSPasteboard* pasteboard);

} // namespace zv

NS_ASSUME_NONNULL_END
