#import "platform/macos/cocoa/FileDropView.h"

#import "platform/macos/cocoa/Conversions.h"

#include <utility>

@implementation ZVFileDropView

+ (void)cover:(NSView*)view dropped:(std::function<void(std::vector<zv::Url>)>)dropped
{
    ZVFileDropView* const made = [[ZVFileDropView alloc] initWithFrame:view.bounds];
    made->_dropped = std::move(dropped);
    made.autoresizingMask = NSViewWidthSizable | NSViewHeightSizable;
    [made registerForDraggedTypes:@[ NSPasteboardTypeFileURL ]];
    [view addSubview:made];
}

- (BOOL)acceptsFirstMouse:(NSEvent*)event
{
    return YES;
}

/// A link where the source allows it, as the files stay where they are.
- (NSDragOperation)draggingEntered:(id<NSDraggingInfo>)sender
{
    NSDragOperation const allowed = sender.draggingSourceOperationMask;
    return (allowed & NSDragOperationLink) != 0 ? NSDragOperationLink : allowed & NSDragOperationCopy;
}

- (BOOL)performDragOperation:(id<NSDraggingInfo>)sender
{
    auto files = zv::filesOn(sender.draggingPasteboard);
    if (files.empty())
        return NO;
    // Later, as an alert may follow, and the source waits.
    zv::performOnMain([dropped = _dropped, files = std::move(files)] { dropped(files); });
    return YES;
}

@end

namespace zv {

std::vector<Url> filesOn(NSPasteboard* pasteboard)
{
    NSDictionary<NSString*, id>* const options = @{NSPasteboardURLReadingFileURLsOnlyKey : @YES};
    std::vector<Url> files;
    for (NSURL* url in [pasteboard readObjectsForClasses:@[ [NSURL class] ] options:options])
        files.push_back(fromNSURL(url));
    return files;
}

} // namespace zv
