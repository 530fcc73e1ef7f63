#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/overlay/LogoCanvas.h"

/// A panel without a title bar is never moved to make room for one, and never takes the keys.
@interface ZVOverlayPanel : NSPanel
@end

@implementation ZVOverlayPanel
- (NSRect)constrainFrameRect:(NSRect)frame toScreen:(NSScreen*)screen
{
    return frame;
}
- (BOOL)canBecomeKeyWindow
{
    return NO;
}
- (BOOL)canBecomeMainWindow
{
    return NO;
}
@end

@interface ZVOverlayView : NSView {
    zv::OverlayPanelContent* _content; // null once the panel has gone
}
- (void)setContent:(zv::OverlayPanelContent*)content;
@end

@implementation ZVOverlayView
- (void)setContent:(zv::OverlayPanelContent*)content
{
    _content = content;
}
- (void)drawRect:(NSRect)dirty
{
    NSGraphicsContext* const context = [NSGraphicsContext currentContext];
    double const height = [self bounds].size.height;
    if (!_content)
        return;
    if (!context || ![context CGContext])
        return _content->draw(nullptr, height);
    zv::LogoCanvas canvas(context);
    _content->draw(&canvas, height);
}
/// A press returns when the menu has closed. The menu bar may have gone meanwhile, and the
/// panel with it: both are kept until the end.
- (BOOL)press:(bool (*)(zv::OverlayPanelContent&))act
{
    __attribute__((objc_precise_lifetime, unused)) NSWindow* const panel = [self window];
    __attribute__((objc_precise_lifetime, unused)) ZVOverlayView* const view = self;
    return _content && act(*_content) ? YES : NO;
}
- (void)mouseDown:(NSEvent*)event
{
    [self press:[](zv::OverlayPanelContent& content) {
        content.mouseDown();
        return true;
    }];
}
- (void)rightMouseDown:(NSEvent*)event
{
    [self press:[](zv::OverlayPanelContent& content) {
        content.rightMouseDown();
        return true;
    }];
}
- (BOOL)acceptsFirstMouse:(NSEvent*)event
{
    return _content && _content->acceptsFirstMouse() ? YES : NO;
}
- (BOOL)isAccessibilityElement
{
    return YES;
}
- (NSString*)accessibilityRole
{
    return NSAccessibilityMenuBarItemRole;
}
- (NSString*)accessibilityLabel
{
    return _content ? zv::toNSString(_content->accessibilityLabel()) : nil;
}
- (BOOL)accessibilityPerformPress
{
    return [self press:[](zv::OverlayPanelContent& content) { return content.accessibilityPerformPress(); }];
}
@end

namespace zv {

namespace {

NSRect toNSRect(Rect const& rect) { return NSMakeRect(rect.x, rect.y, rect.width, rect.height); }

class MacOverlayPanel : public OverlayPanel {
public:
    MacOverlayPanel(Rect const& frame, OverlayPanelStyle const& style, OverlayPanelContent& content)
        : m_panel([[ZVOverlayPanel alloc] initWithContentRect:toNSRect(frame)
                                                    styleMask:NSWindowStyleMaskNonactivatingPanel
                                                      backing:NSBackingStoreBuffered
                                                        defer:NO])
        , m_view([[ZVOverlayView alloc] initWithFrame:NSMakeRect(0, 0, frame.width, frame.height)])
    {
        apply(style);
        [m_view setContent:&content];
        [m_panel setContentView:m_view];
    }
    ~MacOverlayPanel() override
    {
        [m_view setContent:nullptr];
        [m_panel orderOut:nil];
    }

    Rect frame() const override
    {
        NSRect const frame = [m_panel frame];
        return { frame.origin.x, frame.origin.y, frame.size.width, frame.size.height };
    }
    void setFrameAndDisplay(Rect const& frame) override { [m_panel setFrame:toNSRect(frame) display:YES]; }
    void orderFrontRegardless() override { [m_panel orderFrontRegardless]; }
    void orderOut() override { [m_panel orderOut:nil]; }
    void setNeedsDisplay() override { [m_view setNeedsDisplay:YES]; }

private:
    void apply(OverlayPanelStyle const& style)
    {
        auto const& color = style.background;
        [m_panel setOpaque:NO];
        [m_panel setBackgroundColor:[NSColor colorWithSRGBRed:color.red green:color.green blue:color.blue alpha:color.alpha]];
        [m_panel setHasShadow:NO];
        [m_panel setLevel:style.level];
        [m_panel setCollectionBehavior:static_cast<NSWindowCollectionBehavior>(style.collectionBehavior)];
        [m_panel setMovable:NO];
        [m_panel setHidesOnDeactivate:NO];
        [m_panel setReleasedWhenClosed:NO];
        [m_panel setRestorable:NO];
        [m_panel setAnimationBehavior:NSWindowAnimationBehaviorNone];
    }

    ZVOverlayPanel* m_panel;
    ZVOverlayView* m_view;
};

class MacOverlayPanels : public OverlayPanels {
public:
    std::unique_ptr<OverlayPanel> create(Rect const& frame, OverlayPanelStyle const& style, OverlayPanelContent& content) override
    {
        return std::make_unique<MacOverlayPanel>(frame, style, content);
    }
};

} // namespace

std::unique_ptr<OverlayPanels> makeOverlayPanels() { return std::make_unique<MacOverlayPanels>(); }

} // namespace zv
