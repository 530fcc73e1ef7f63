#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/cocoa/Observers.h"
#import "platform/macos/settings/AboutView.h"
#import "platform/macos/settings/MenuEditorView.h"
#import "platform/macos/settings/SettingsPage.h"

/// Lends the window the editor's undo stack, and tells when the window closes.
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

constexpr char const* widthKey = "SettingsWidth";
constexpr char const* heightKey = "SettingsHeight";
constexpr char const* tabKey = "SettingsTab";
constexpr double usualWidth = 900;
constexpr double usualHeight = 620;
constexpr double smallestWidth = 760;
constexpr double smallestHeight = 440;

void keep(UserDefaults& defaults, char const* key, std::int64_t value)
{
    if (defaults.integerForKey(key) != value)
        defaults.keep(key, value);
}

/// The window with its three tabs; made when first opened, kept when closed.
class MacSettings {
public:
    explicit MacSettings(SettingsModels& models)
        : m_models(models)
        , m_editor([[ZVMenuEditor alloc] initWithModels:models])
        , m_about(models)
        , m_tabs([[NSTabViewController alloc] init])
    {
        [m_tabs setTabStyle:NSTabViewControllerTabStyleToolbar];
        addTab(@"General", @"gearshape", m_general.view());
        addTab(@"Menu", @"list.bullet.indent", [m_editor view]);
        addTab(@"About", @"info.circle", m_about.view());
        makeWindow();
        bringPlaceBack();
        m_models.general().onChanged = m_lifetime.guard([this] { refresh(); });
        // The login item may have been changed in the system's own settings meanwhile.
        m_observers.observe(NSApplicationDidBecomeActiveNotification, ^(NSNotification*) { refresh(); });
        refresh();
    }
    ~MacSettings()
    {
        m_models.general().onChanged = nullptr;
        [m_window unbind:NSTitleBinding];
        [m_window setDelegate:nil];
        [m_window orderOut:nil];
    }

    void bringToFront()
    {
        [m_window makeKeyAndOrderFront:nil];
        [m_window orderFrontRegardless]; // becoming active is a request, which the system may decline
    }

private:
    void addTab(NSString* title, NSString* symbol, NSView* view)
    {
        NSViewController* const page = [[NSViewController alloc] initWithNibName:nil bundle:nil];
        [page setView:view];
        [page setTitle:title];
        [view setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
        NSTabViewItem* const item = [NSTabViewItem tabViewItemWithViewController:page];
        [item setLabel:title];
        [item setImage:[NSImage imageWithSystemSymbolName:symbol accessibilityDescription:title]];
        [m_tabs addTabViewItem:item];
    }

    void makeWindow()
    {
        NSUInteger const style = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable | NSWindowStyleMaskMiniaturizable | NSWindowStyleMaskResizable;
        m_window = [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, usualWidth, usualHeight) styleMask:style backing:NSBackingStoreBuffered defer:YES];
        m_delegate = [[ZVSettingsWindowDelegate alloc] initWithUndoManager:[m_editor undoManager] closing:m_lifetime.guard([this] { keepPlace(); })];
        [m_window setReleasedWhenClosed:NO];
        [m_window setContentViewController:m_tabs];
        [m_window bind:NSTitleBinding toObject:m_tabs withKeyPath:@"title" options:nil]; // the selected page's
        [m_window setToolbarStyle:NSWindowToolbarStylePreference];
        [m_window setContentMinSize:NSMakeSize(smallestWidth, smallestHeight)];
        [m_window setDelegate:m_delegate];
    }

    void bringPlaceBack()
    {
        auto& defaults = m_models.defaults();
        auto const width = static_cast<double>(defaults.integerForKey(widthKey));
        auto const height = static_cast<double>(defaults.integerForKey(heightKey));
        bool const isKept = width >= smallestWidth && height >= smallestHeight;
        [m_window setContentSize:isKept ? NSMakeSize(width, height) : NSMakeSize(usualWidth, usualHeight)];
        [m_window center];
        auto const tab = defaults.integerForKey(tabKey);
        auto const count = static_cast<std::int64_t>([[m_tabs tabViewItems] count]);
        [m_tabs setSelectedTabViewItemIndex:static_cast<NSInteger>(tab >= 0 && tab < count ? tab : 0)];
    }

    void keepPlace()
    {
        NSSize const size = [[m_window contentView] frame].size;
        keep(m_models.defaults(), widthKey, static_cast<std::int64_t>(size.width));
        keep(m_models.defaults(), heightKey, static_cast<std::int64_t>(size.height));
        keep(m_models.defaults(), tabKey, [m_tabs selectedTabViewItemIndex]);
    }

    /// Shows what holds now, and follows it.
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
    NSTabViewController* m_tabs;
    NSWindow* m_window = nil;
    ZVSettingsWindowDelegate* m_delegate = nil;
    Observers m_observers { [NSNotificationCenter defaultCenter] };
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

private:
    std::function<SettingsModels&()> m_models;
    std::unique_ptr<MacSettings> m_settings;
};

} // namespace

std::unique_ptr<SettingsWindow> makeSettingsWindow(std::function<SettingsModels&()> models) { return std::make_unique<MacSettingsWindow>(std::move(models)); }

} // namespace zv
