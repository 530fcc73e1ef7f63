#pragma once

#import <Cocoa/Cocoa.h>

#include "base/Url.h"

#include <string>
#include <vector>

namespace zv {

/// The type that the property list declares for items of ours.
NSString* recordType();
/// What the pasteboard gets for one item, with its record.
NSPasteboardItem* pasteboardItemOf(std::string const& record);
std::vector<std::string> recordsOn(NSPasteboard* pasteboard);
std::vector<Url> filesOn(NSPasteboard* pasteboard);

} // namespace zv
