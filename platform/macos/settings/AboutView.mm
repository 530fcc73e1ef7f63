#import "platform/macos/settings/AboutView.h"

#import "platform/macos/cocoa/ClosingWindow.h"
#import "platform/macos/cocoa/Conversions.h"

namespace zv {

namespace {

constexpr double iconSize = 96;
constexpr double noteWidth = 460;

NSImageView* programIcon()
{
    NSImageView* const picture = [[NSImageView alloc] initWithFrame:NSMakeRect(0, 0, iconSize, iconSize)];
    picture.image = NSApp.applicationIconImage;
    setWidth(picture, iconSize);
    return picture;
}

NSTextField* sized(NSTextField* label, NSFont* font)
{
    label.font = font;
    label.selectable = YES;
    return label;
}

} // namespace

AboutView::AboutView(SettingsModels& models)
    : m_models(models)
    , m_view([[NSView alloc] initWithFrame:NSMakeRect(0, 0, 700, 480)])
{
    auto const& about = models.about();
    NSTextField* const privacy = note(about.privacy);
    privacy.alignment = NSTextAlignmentCenter;
    setWidth(privacy, noteWidth);
    NSView* const buttons = stack(Direction::row,
        {
            pushButton(about.readMeButton, {}, m_actions, [this] { m_models.showReadMe(); }),
            pushButton(about.licencesButton, {}, m_actions, [this] { showLicences(); }),
            pushButton(about.diagnosticsButton, {}, m_actions, [this] { m_models.copyDiagnostics(); }),
        });
    NSStackView* const column = stack(Direction::column,
        { programIcon(), sized(label(about.name), [NSFont boldSystemFontOfSize:24]), sized(label(about.version), [NSFont systemFontOfSize:13]),
            sized(label(about.purpose), [NSFont systemFontOfSize:14]), buttons, privacy });
    column.alignment = NSLayoutAttributeCenterX;
    column.spacing = 10;
    column.translatesAutoresizingMaskIntoConstraints = NO;
    [m_view addSubview:column];
    [NSLayoutConstraint activateConstraints:@[
        [column.centerXAnchor constraintEqualToAnchor:m_view.centerXAnchor], [column.centerYAnchor constraintEqualToAnchor:m_view.centerYAnchor]
    ]];
}

void AboutView::showLicences()
{
    if (!m_licences) {
        NSUInteger const style = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable | NSWindowStyleMaskResizable;
        m_licences = [[ZVClosingWindow alloc] initWithContentRect:NSMakeRect(0, 0, 560, 420) styleMask:style backing:NSBackingStoreBuffered defer:NO];
        m_licences.releasedWhenClosed = NO;
        m_licences.title = toNSString(m_models.about().licencesButton);
        NSTextView* const text = [[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 560, 420)];
        text.editable = NO;
        text.autoresizingMask = NSViewWidthSizable;
        text.string = toNSString(m_models.about().licences);
        text.textColor = NSColor.textColor;
        text.font = [NSFont systemFontOfSize:NSFont.systemFontSize];
        text.textContainerInset = NSMakeSize(14, 14);
        m_licences.contentView = scrollAround(text);
        [m_licences center];
        [m_licences setFrameUsingName:@"Licences"];
        [m_licences setFrameAutosaveName:@"Licences"];
    }
    [m_licences makeKeyAndOrderFront:nil];
}

} // namespace zv
