#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/overlay/MenuBarWindows.h"

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
        info.number = number.longLongValue;
    info.isOnscreen = [valueOf(description, kCGWindowIsOnscreen, [NSNumber class]) boolValue]; // absent when it is not
    return info;
}

NSArray* describe(CGWindowListOption option, CGWindowID relativeTo) { return CFBridgingRelease(CGWindowListCopyWindowInfo(option, relativeTo)); }

/// The upper edge of the primary screen; nothing without screens.
std::optional<double> topOfScreens()
{
    NSScreen* const primary = NSScreen.screens.firstObject;
    return primary ? std::optional<double>(NSMaxY(primary.frame)) : std::nullopt;
}

class MacMenuBars : public MenuBars {
public:
    std::vector<MenuBar> onScreen() const override
    {
        auto const top = topOfScreens();
        if (!top)
            return {};
        std::vector<WindowInfo> windows;
        for (NSDictionary* description in describe(kCGWindowListOptionOnScreenOnly, kCGNullWindowID))
            windows.push_back(infoOf(description));
        return menuBarsAmong(windows, CGWindowLevelForKey(kCGMainMenuWindowLevelKey), *top);
    }

    std::optional<Rect> frame(MenuBarID id) const override
    {
        auto const top = topOfScreens();
        for (NSDictionary* description in describe(kCGWindowListOptionIncludingWindow, id)) {
            auto const window = infoOf(description);
            if (top && window.number == static_cast<std::int64_t>(id))
                return visibleFrameOf(window, *top);
        }
        return std::nullopt;
    }
};

} // namespace

std::unique_ptr<MenuBars> makeMenuBars() { return std::make_unique<MacMenuBars>(); }

} // namespace zv
