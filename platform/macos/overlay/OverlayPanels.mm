#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/cocoa/FileDropView.h"
#import "platform/macos/overlay/LogoCanvas.h"
#import "platform/macos/overlay/OverlayPanelStyle.h"

/// A panel without a title bar, never moved to make room for one; never takes the keyboard.
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
@property (nonatomic, assign) zv::OverlayPanelContent* content;
@end

@implementation ZVOverlayView
@synthesize content = _content;
- (void)drawRect:(NSRect)dirty
{
    NSGraphicsContext* const context = NSGraphicsContext.currentContext;
    double const height = self.bounds.size.height;
    if (!_content)
        return;
    if (!context || !context.CGContext)
        return _content->draw(nullptr, height);
    zv::LogoCanvas canvas(context);
    _content->draw(&canvas, height);
}
/// Returns when the menu has closed. The menu bar may have gone meanwhile, and the panel
/// with it: both are kept until the end.
- (BOOL)press
{
    __attribute__((objc_precise_lifetime, unused)) NSWindow* const panel = self.window;
    __attribute__((objc_precise_lifetime, unused)) ZVOverlayView* const view = self;
    if (!_content)
        return NO;
    _content->press();
    return YES;
}
- (void)drop:(std::vector<zv::Url>)files
{
    if (_content)
        _content->drop(std::move(files));
}
- (void)mouseDown:(NSEvent*)event
{
    [self press];
}
- (void)rightMouseDown:(NSEvent*)event
{
    [self press];
}
- (BOOL)acceptsFirstMouse:(NSEvent*)event
{
    return YES;
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
    return [self press];
}
@end

namespace zv {

namespace {

NSRect toNSRect(Rect const& rect) { return NSMakeRect(rect.x, rect.y, rect.width, rect.height); }

class MacOverlayPanel : public OverlayPanel {
public:
    MacOverlayPanel(Rect const& frame, OverlayPanelContent& content)
        : m_panel([[ZVOverlayPanel alloc] initWithContentRect:toNSRect(frame)
                                                    styleMask:NSWindowStyleMaskNonactivatingPanel
                                                      backing:NSBackingStoreBuffered
                                                        defer:NO])
        , m_view([[ZVOverlayView alloc] initWithFrame:NSMakeRect(0, 0, frame.width, frame.height)])
    {
        style();
        m_view.content = &content;
        __weak ZVOverlayView* const view = m_view;
        [ZVFileDropView cover:m_view dropped:[view](std::vector<Url> files) { [view drop:std::move(files)]; }];
        m_panel.contentView = m_view;
    }
    ~MacOverlayPanel() override
    {
        m_view.content = nullptr;
        [m_panel orderOut:nil];
    }

    Rect frame() const override
    {
        NSRect const frame = m_panel.frame;
        return { frame.origin.x, frame.origin.y, frame.size.width, frame.size.height };
    }
    void setFrame(Rect const& frame) override { [m_panel setFrame:toNSRect(frame) display:YES]; }
    void show() override { [m_panel orderFrontRegardless]; }
    void hide() override { [m_panel orderOut:nil]; }
    void redraw() override { m_view.needsDisplay = YES; }

private:
    void style()
    {
        m_panel.opaque = NO;
        m_panel.backgroundColor = [NSColor colorWithSRGBRed:0 green:0 blue:0 alpha:overlayPanelStyle::backgroundAlpha];
        m_panel.hasShadow = NO;
        m_panel.level = overlayPanelStyle::level;
        m_panel.collectionBehavior = static_cast<NSWindowCollectionBehavior>(overlayPanelStyle::collectionBehavior);
        m_panel.movable = NO;
        m_panel.hidesOnDeactivate = NO;
        m_panel.releasedWhenClosed = NO;
        m_panel.restorable = NO;
        m_panel.animationBehavior = NSWindowAnimationBehaviorNone;
    }

    ZVOverlayPanel* m_panel;
    ZVOverlayView* m_view;
};

class MacOverlayPanels : public OverlayPanels {
public:
    std::unique_ptr<OverlayPanel> create(Rect const& frame, OverlayPanelContent& content) override { return std::make_unique<MacOverlayPanel>(frame, content); }
};

} // namespace

std::unique_ptr<OverlayPanels> makeOverlayPanels() { return std::make_unique<MacOverlayPanels>(); }

} // namespace zv
