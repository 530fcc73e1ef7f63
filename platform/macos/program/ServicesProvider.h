#pragma once

#import <Cocoa/Cocoa.h>

#include "base/Result.h"
#include "base/Url.h"

#include <functional>
#include <vector>

/// Receives files that other programs send through their Services menu.
@interface ZVServicesProvider : NSObject {
    std::function<zv::Result<void>(std::vector<zv::Url>)> _add;
}
- (instancetype)initWithFunction:(std::function<zv::Result<void>(std::vector<zv::Url>)>)add;
/// The property list names this message. The sender shows an error's text.
- (void)addToZantheVellItems:(NSPasteboard*)pasteboard userData:(NSString*)data error:(NSString* __autoreleasing*)error;
@end
