#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/menu/MenuMirror.h"

namespace zv {

namespace {

constexpr unsigned short downArrow = 125; // kVK_DownArrow of HIToolbox/Events.h

/// Has the menu that opens next select its first entry: its tracking takes the key from the queue.
void queueDownArrow()
{
    unichar const character = NSDownArrowFunctionKey;
    NSString* const typed = [NSString stringWithCharacters:&character length:1];
    NSEvent* const key = [NSEvent keyEventWithType:NSEventTypeKeyDown
                                          location:NSZeroPoint
                                     modifierFlags:NSEventModifierFlagFunction | NSEventModifierFlagNumericPad
                                         timestamp:NSProcessInfo.processInfo.systemUptime
                                      windowNumber:0
                                           context:nil
                                        characters:typed
                       charactersIgnoringModifiers:typed
                                         isARepeat:NO
                                           keyCode:downArrow];
    [NSApp postEvent:key atStart:NO];
}

/// The pointer's place; without a screen around it, the middle of the main screen.
NSPoint placeForKey()
{
    NSPoint const pointer = NSEvent.mouseLocation;
    for (NSScreen* screen in NSScreen.screens) {
        if (NSMouseInRect(pointer, screen.frame, NO))
            return pointer;
    }
    NSRect const visible = NSScreen.mainScreen.visibleFrame;
    return NSMakePoint(NSMidX(visible), NSMidY(visible));
}

/// Returns when the menu has closed. Keeps the mirror until the next menu, as the chosen
/// action, and the news of the closing, may come after that.
class PopUpMenuHost : public MenuHost {
public:
    explicit PopUpMenuHost(MenuTracking& tracking)
        : m_tracking(tracking)
    {
    }

    void popUp(std::shared_ptr<Menu> const& menu, Point at) override
    {
        m_mirror = [[ZVMenuMirror alloc] initWithMenu:menu tracking:&m_tracking];
        open(NSMakePoint(at.x, at.y));
    }

    void popUpByKey(std::shared_ptr<Menu> const& menu) override
    {
        if (m_tracking.isOpen)
            return;
        m_mirror = [[ZVMenuMirror alloc] initWithMenu:menu tracking:&m_tracking];
        [m_mirror ignoreOption];
        queueDownArrow();
        open(placeForKey());
    }

private:
    void open(NSPoint at)
    {
        [m_mirror.menu popUpMenuPositioningItem:nil atLocation:at inView:nil];
        if (m_tracking.isOpen)
            [m_mirror menuDidClose:m_mirror.menu]; // not told yet
    }

    MenuTracking& m_tracking;
    ZVMenuMirror* m_mirror = nil;
};

} // namespace

std::unique_ptr<MenuHost> makeMenuHost(MenuTracking& tracking) { return std::make_unique<PopUpMenuHost>(tracking); }

} // namespace zv
