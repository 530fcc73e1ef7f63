#pragma once

#import <Cocoa/Cocoa.h>

#include "base/Result.h"
#include "base/Url.h"

#include <functional>
#include <vector>

NS_ASSUME_NONNULL_BEGIN

/// Receives files that other programs send through their Services menu.
@interface ZVServicesProvider : NSObject {
    std::function<zv::Result<void>(std::vector<zv::Url>)> _add;
}
- (instancetype)initWithFunction:(std::function<zv::Result<void>(std::vector<zv::Url>)>)add;
/// The property list names this message. The sender shows an error's text.
- (void)addToZantheVellItems:(NSPasteboard*)pasteboard userData:(NSString* _Nullable)data error:(NSString* _Nullable __autoreleasing* _Nullable)error;
@end

NS_ASSUME_NONNULL_END
