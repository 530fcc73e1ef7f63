#import "platform/macos/cocoa/ClosingWindow.h"
#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/cocoa/Observers.h"
#import "platform/macos/settings/AboutView.h"
#import "platform/macos/settings/GalleryView.h"
#import "platform/macos/settings/MenuEditorView.h"
#import "platform/macos/settings/SettingsPage.h"

#include "app/settings/SettingsTexts.h"

/// Tells when another tab was chosen.
@interface ZVSettingsTabs : NSTabViewController {
    std::function<void()> _selected;
}
- (void)setSelected:(std::function<void()>)selected;
@end

@implementation ZVSettingsTabs
- (void)setSelected:(std::function<void()>)selected
{
    _selected = std::move(selected);
}
- (void)tabView:(NSTabView*)tabView didSelectTabViewItem:(NSTabViewItem*)item
{
    [super tabView:tabView didSelectTabViewItem:item];
    if (_selected)
        _selected();
}
@end

/// Gives the window the editor's undo stack, and tells when the window closes.
@interface ZVSettingsWindowDelegate : NSObject <NSWindowDelegate> {
    NSUndoManager* _undoManager;
    std::function<void()> _closing;
}
- (instancetype)initWithUndoManager:(NSUndoManager*)undoManager closing:(std::function<void()>)closing;
@end

@implementation ZVSettingsWindowDelegate
- (instancetype)initWithUndoManager:(NSUndoManager*)undoManager closing:(std::function<void()>)closing
{
    if (!(self = [super init]))
        return nil;
    _undoManager = undoManager;
    _closing = std::move(closing);
    return self;
}
- (NSUndoManager*)windowWillReturnUndoManager:(NSWindow*)window
{
    return _undoManager;
}
- (void)windowWillClose:(NSNotification*)notification
{
    _closing();
}
@end

namespace zv {

namespace {

constexpr NSInteger menuTab = 1;
NSSize const usualSize = NSMakeSize(900, 620);
NSSize const smallestSize = NSMakeSize(620, 400);
NSString* const frameName = @"Settings";

/// The window with its three tabs; made when first opened, kept when closed.
class MacSettings {
public:
    explicit MacSettings(SettingsModels& models)
        : m_models(models)
        , m_general(models)
        , m_editor([[ZVMenuEditor alloc] initWithModels:models])
        , m_about(models)
        , m_tabs([[ZVSettingsTabs alloc] init])
    {
        m_tabs.tabStyle = NSTabViewControllerTabStyleToolbar;
        addTab(settingsTexts::generalTab, @"gearshape", m_general.view());
        addTab(settingsTexts::menuTab, @"list.bullet.indent", m_editor.view);
        addTab(settingsTexts::aboutTab, @"info.circle", m_about.view());
        makeWindow();
        bringPlaceBack();
        [m_tabs setSelected:m_lifetime.guard([this] { focusTab(); })];
        m_models.general().onChanged = m_lifetime.guard([this] { refresh(); });
        // The login item may have been changed in the system's own settings meanwhile.
        m_observers.observe(NSApplicationDidBecomeActiveNotification, ^(NSNotification*) { refresh(); });
        refresh();
    }
    ~MacSettings()
    {
        m_models.general().onChanged = nullptr;
        [m_window unbind:NSTitleBinding];
        m_window.delegate = nil;
        [m_window orderOut:nil];
    }

    void bringToFront()
    {
        bool const wasShown = [m_window isVisible] != NO;
        [m_window makeKeyAndOrderFront:nil];
        [m_window orderFrontRegardless]; // the system may decline to activate the program
        if (!wasShown)
            focusTab();
    }

    void showItem(Uuid const& item)
    {
        [m_tabs setSelectedTabViewItemIndex:menuTab];
        [m_editor showItem:item];
    }

private:
    void focusTab()
    {
        if (m_tabs.selectedTabViewItemIndex == menuTab)
            [m_editor focusSearch];
    }

    void addTab(settingsTexts::Text const& said, NSString* symbol, NSView* view)
    {
        NSString* const title = toNSString(tr(said));
        NSViewController* const page = [[NSViewController alloc] initWithNibName:nil bundle:nil];
        page.view = view;
        page.title = title;
        view.autoresizingMask = NSViewWidthSizable | NSViewHeightSizable;
        NSTabViewItem* const item = [NSTabViewItem tabViewItemWithViewController:page];
        item.label = title;
        item.image = [NSImage imageWithSystemSymbolName:symbol accessibilityDescription:title];
        [m_tabs addTabViewItem:item];
    }

    void makeWindow()
    {
        NSUInteger const style = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable | NSWindowStyleMaskMiniaturizable | NSWindowStyleMaskResizable;
        m_window = [[ZVClosingWindow alloc] initWithContentRect:NSMakeRect(0, 0, usualSize.width, usualSize.height)
                                                      styleMask:style
                                                        backing:NSBackingStoreBuffered
                                                          defer:YES];
        m_delegate =
            [[ZVSettingsWindowDelegate alloc] initWithUndoManager:m_editor.undoManager
                                                          closing:m_lifetime.guard([this] { m_models.place().keepTab(m_tabs.selectedTabViewItemIndex); })];
        m_window.releasedWhenClosed = NO;
        m_window.contentViewController = m_tabs;
        [m_window bind:NSTitleBinding toObject:m_tabs withKeyPath:@"title" options:nil]; // the selected page's
        m_window.toolbarStyle = NSWindowToolbarStylePreference;
        m_window.contentMinSize = smallestSize;
        m_window.autorecalculatesKeyViewLoop = YES;
        m_window.delegate = m_delegate;
    }

    void bringPlaceBack()
    {
        [m_window setContentSize:usualSize];
        [m_window center];
        [m_window setFrameUsingName:frameName]; // where it was last
        [m_window setFrameAutosaveName:frameName];
        auto const count = static_cast<std::int64_t>(m_tabs.tabViewItems.count);
        m_tabs.selectedTabViewItemIndex = static_cast<NSInteger>(m_models.place().tab(count));
    }

    /// Shows the current settings, and follows them.
    void refresh()
    {
        std::vector<SettingsSection> sections;
        m_observation = withObservationTracking([&] { sections = m_models.general().sections(); }, [this] { performLater(); });
        m_general.show(sections);
    }

    void performLater()
    {
        later(m_lifetime.guard([this] { refresh(); }));
    }

    SettingsModels& m_models;
    SettingsPage m_general;
    ZVMenuEditor* m_editor;
    AboutView m_about;
    ZVSettingsTabs* m_tabs;
    NSWindow* m_window = nil;
    ZVSettingsWindowDelegate* m_delegate = nil;
    Observers m_observers { NSNotificationCenter.defaultCenter };
    Observation m_observation;
    Lifetime m_lifetime;
};

class MacSettingsWindow : public SettingsWindow {
public:
    explicit MacSettingsWindow(std::function<SettingsModels&()> models)
        : m_models(std::move(models))
    {
    }
    void openOrRaise() override
    {
        if (!m_settings)
            m_settings = std::make_unique<MacSettings>(m_models());
        m_settings->bringToFront();
    }
    void openAt(Uuid const& item) override
    {
        openOrRaise();
        m_settings->showItem(item);
    }
    void openGallery() override
    {
        m_gallery = [[ZVGallery alloc] initWithModels:m_models()];
        [m_gallery open];
    }

private:
    std::function<SettingsModels&()> m_models;
    std::unique_ptr<MacSettings> m_settings;
    ZVGallery* m_gallery = nil;
};

} // namespace

std::unique_ptr<SettingsWindow> makeSettingsWindow(std::function<SettingsModels&()> models) { return std::make_unique<MacSettingsWindow>(std::move(models)); }

} // namespace zv
