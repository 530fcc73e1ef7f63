#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"

#import <CoreGraphics/CoreGraphics.h>

namespace zv {

namespace {

id valueOf(NSDictionary* description, CFStringRef key, Class type)
{
    id const value = [description objectForKey:(__bridge NSString*)key];
    return [value isKindOfClass:type] ? value : nil;
}

std::optional<Rect> boundsOf(NSDictionary* description)
{
    id const bounds = valueOf(description, kCGWindowBounds, [NSDictionary class]);
    CGRect rect {};
    if (!bounds || !CGRectMakeWithDictionaryRepresentation((__bridge CFDictionaryRef)bounds, &rect))
        return std::nullopt;
    return Rect { rect.origin.x, rect.origin.y, rect.size.width, rect.size.height };
}

WindowInfo infoOf(NSDictionary* description)
{
    WindowInfo info;
    info.ownerName = fromNSString(valueOf(description, kCGWindowOwnerName, [NSString class]));
    info.layer = [valueOf(description, kCGWindowLayer, [NSNumber class]) intValue];
    info.bounds = boundsOf(description);
    if (NSNumber* const number = valueOf(description, kCGWindowNumber, [NSNumber class]))
        info.number = [number longLongValue];
    info.isOnscreen = [valueOf(description, kCGWindowIsOnscreen, [NSNumber class]) boolValue]; // absent for one that is not
    return info;
}

NSArray* describe(CGWindowListOption option, CGWindowID relativeTo) { return CFBridgingRelease(CGWindowListCopyWindowInfo(option, relativeTo)); }

class MacWindowList : public WindowList {
public:
    std::optional<WindowInfo> window(std::uint32_t number) const override
    {
        for (NSDictionary* description in describe(kCGWindowListOptionIncludingWindow, number)) {
            auto info = infoOf(description);
            if (info.number == static_cast<std::int64_t>(number))
                return info;
        }
        return std::nullopt;
    }

    std::vector<WindowInfo> onScreenWindows() const override
    {
        std::vector<WindowInfo> windows;
        for (NSDictionary* description in describe(kCGWindowListOptionOnScreenOnly, kCGNullWindowID))
            windows.push_back(infoOf(description));
        return windows;
    }

    int mainMenuLevel() const override { return CGWindowLevelForKey(kCGMainMenuWindowLevelKey); }
};

} // namespace

std::unique_ptr<WindowList> makeWindowList() { return std::make_unique<MacWindowList>(); }

} // namespace zv
