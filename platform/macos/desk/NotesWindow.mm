#import "platform/macos/cocoa/ClosingWindow.h"
#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

namespace zv {

namespace {

constexpr double unlimited = 1e7; // as in the system's own text views

class MacRichText : public RichText {
public:
    explicit MacRichText(NSAttributedString* text)
        : m_text(text)
    {
    }
    double height(double width) const override
    {
        NSStringDrawingOptions const options = NSStringDrawingUsesLineFragmentOrigin | NSStringDrawingUsesFontLeading;
        return [m_text boundingRectWithSize:NSMakeSize(width, unlimited) options:options context:nil].size.height;
    }
    NSAttributedString* text() const { return m_text; }

private:
    NSAttributedString* m_text;
};

/// Adapts a text made for white paper: black becomes the system's text colour, which
/// follows the appearance by itself. The view maps other colours.
NSAttributedString* adapted(NSAttributedString* given)
{
    NSMutableAttributedString* const text = [given mutableCopy];
    [text beginEditing];
    [given enumerateAttribute:NSForegroundColorAttributeName
                      inRange:NSMakeRange(0, given.length)
                      options:0
                   usingBlock:^(id color, NSRange range, BOOL*) {
                       NSColor* const plain = [color colorUsingColorSpace:NSColorSpace.sRGBColorSpace];
                       bool const isBlack = !plain || (plain.redComponent + plain.greenComponent + plain.blueComponent) < 0.05;
                       if (isBlack)
                           [text addAttribute:NSForegroundColorAttributeName value:NSColor.textColor range:range];
                   }];
    [text endEditing];
    return text;
}

NSTextView* textViewFor(NotesWindowLayout const& layout, NSAttributedString* text)
{
    NSTextView* const view = [[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, layout.width, layout.height)];
    view.editable = NO;
    view.selectable = YES;
    view.drawsBackground = NO;
    view.textContainerInset = NSMakeSize(layout.textInset, layout.textInset);
    view.textContainer.widthTracksTextView = YES;
    view.verticallyResizable = YES;
    view.horizontallyResizable = NO;
    view.maxSize = NSMakeSize(unlimited, unlimited);
    view.autoresizingMask = NSViewWidthSizable;
    view.usesAdaptiveColorMappingForDarkAppearance = YES;
    view.linkTextAttributes = @ { NSForegroundColorAttributeName : NSColor.linkColor, NSCursorAttributeName : NSCursor.pointingHandCursor };
    if (text)
        [view.textStorage setAttributedString:text];
    return view;
}

NSScrollView* scrollViewAround(NSTextView* view, NotesWindowLayout const& layout)
{
    NSScrollView* const scroll = [[NSScrollView alloc] initWithFrame:NSMakeRect(0, 0, layout.width, layout.height)];
    scroll.hasVerticalScroller = YES;
    scroll.hasHorizontalScroller = NO;
    scroll.autohidesScrollers = YES;
    scroll.drawsBackground = NO;
    scroll.autoresizingMask = NSViewWidthSizable | NSViewHeightSizable;
    scroll.documentView = view;
    return scroll;
}

class MacNotesWindow : public NotesWindow {
public:
    MacNotesWindow(NotesWindowLayout const& layout, NSAttributedString* text)
    {
        NSUInteger const style = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable | NSWindowStyleMaskResizable;
        m_window = [[ZVClosingWindow alloc] initWithContentRect:NSMakeRect(0, 0, layout.width, layout.height)
                                                      styleMask:style
                                                        backing:NSBackingStoreBuffered
                                                          defer:NO];
        m_window.title = toNSString(layout.title);
        m_window.contentView = scrollViewAround(textViewFor(layout, text), layout);
        m_window.contentMinSize = NSMakeSize(layout.minimumWidth, layout.minimumHeight);
        m_window.releasedWhenClosed = NO;
        [m_window center];
    }
    void bringToFront() override
    {
        [m_window makeKeyAndOrderFront:nil];
        [m_window orderFrontRegardless]; // the system may decline to activate the program
    }

private:
    NSWindow* m_window;
};

class MacNotesWindows : public NotesWindows {
public:
    std::shared_ptr<RichText> read(std::vector<std::byte> const& rtf) override
    {
        NSAttributedString* const text = [[NSAttributedString alloc] initWithRTF:toNSData(rtf) documentAttributes:nullptr];
        return text ? std::make_shared<MacRichText>(adapted(text)) : nullptr;
    }
    std::unique_ptr<NotesWindow> make(NotesWindowLayout const& layout, std::shared_ptr<RichText> const& text) override
    {
        return std::make_unique<MacNotesWindow>(layout, text ? std::static_pointer_cast<MacRichText>(text)->text() : nil);
    }
};

} // namespace

std::unique_ptr<NotesWindows> makeNotesWindows() { return std::make_unique<MacNotesWindows>(); }

} // namespace zv
