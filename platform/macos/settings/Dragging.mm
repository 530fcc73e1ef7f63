#import "platform/macos/settings/Dragging.h"

#import "platform/macos/cocoa/Conversions.h"

#include "app/model/MenuItem.h"

namespace zv {

NSString* recordType() { return toNSString(menuItemDragType); }

NSPasteboardItem* pasteboardItemOf(std::string const& record)
{
    NSPasteboardItem* const item = [[NSPasteboardItem alloc] init];
    [item setData:[NSData dataWithBytes:record.data() length:record.size()] forType:recordType()];
    return item;
}

std::vector<std::string> recordsOn(NSPasteboard* pasteboard)
{
    std::vector<std::string> records;
    for (NSPasteboardItem* item in pasteboard.pasteboardItems) {
        if (NSData* const record = [item dataForType:recordType()])
            records.emplace_back(static_cast<char const*>(record.bytes), record.length);
    }
    return records;
}

} // namespace zv
