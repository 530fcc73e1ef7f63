#pragma once

#import <Cocoa/Cocoa.h>

#include <string>
#include <vector>

NS_ASSUME_NONNULL_BEGIN

namespace zv {

/// The type of our items, declared in the property list.
NSString* recordType();
/// The pasteboard item of a menu item, with its record.
NSPasteboardItem* pasteboardItemOf(std::string const& record);
std::vector<std::string> recordsOn(NSPasteboard* pasteboard);

} // namespace zv

NS_ASSUME_NONNULL_END
