#import "platform/macos/cocoa/Conversions.h"
#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/cocoa/FileDropView.h"
#import "platform/macos/cocoa/KeyObserver.h"
#import "platform/macos/menu/MenuMirror.h"

#include "base/Lifetime.h"

namespace zv {

namespace {

struct ShownItem {
    NSStatusItem* item;
};

/// Owns the item, as the bar does not. The user may drag the item out with Command, which hides it.
class MacStatusItem : public StatusItem {
public:
    MacStatusItem(std::string const& name, std::shared_ptr<Menu> const& menu, MenuTracking& tracking, FilesDropped dropped)
        : m_mirror([[ZVMenuMirror alloc] initWithMenu:menu tracking:&tracking])
        , m_shown(std::make_shared<ShownItem>(ShownItem { [NSStatusBar.systemStatusBar statusItemWithLength:NSSquareStatusItemLength] }))
    {
        NSStatusItem* const item = m_shown->item;
        show(toNSString(name));
        item.menu = m_mirror.menu;
        [ZVFileDropView cover:item.button dropped:std::move(dropped)];
        item.autosaveName = @"ZantheVell";
        item.behavior = NSStatusItemBehaviorRemovalAllowed;
        item.visible = YES; // the system keeps under that name that it was dragged out (Claude-Usage-Tracker#251)
        m_observer = [[ZVKeyObserver alloc] initWithObject:item changed:m_lifetime.guard([this] { tellIfRemoved(); })];
        [m_observer watch:@"visible"];
    }
    ~MacStatusItem() override
    {
        [m_observer stop];
        [NSStatusBar.systemStatusBar removeStatusItem:m_shown->item];
    }

    [[nodiscard]] std::shared_ptr<ShownItem> const& shown() const { return m_shown; }

private:
    void show(NSString* name)
    {
        NSImage* const symbol = [NSImage imageWithSystemSymbolName:@"laurel.leading" accessibilityDescription:name];
        [symbol setTemplate:YES]; // no property in C++, where the word is taken
        if (symbol)
            m_shown->item.button.image = symbol;
        else
            m_shown->item.button.title = name;
    }

    void tellIfRemoved()
    {
        if (!m_shown->item.isVisible && onRemoved)
            onRemoved();
    }

    ZVMenuMirror* m_mirror;
    std::shared_ptr<ShownItem> m_shown;
    ZVKeyObserver* m_observer = nil;
    Lifetime m_lifetime;
};

class SystemStatusBar : public MacStatusBar {
public:
    explicit SystemStatusBar(MenuTracking& tracking)
        : m_tracking(tracking)
    {
    }
    std::unique_ptr<StatusItem> add(std::string const& name, std::shared_ptr<Menu> menu, FilesDropped dropped) override
    {
        auto item = std::make_unique<MacStatusItem>(name, menu, m_tracking, std::move(dropped));
        m_shown = item->shown();
        return item;
    }

    /// Clicks the item: with a menu attached, that opens it in its place, and the button stays
    /// highlighted (robinebers/openusage#671, momoraul/Lupen#28).
    bool openMenu() override
    {
        auto const shown = m_shown.lock();
        if (shown)
            [shown->item.button performClick:nil];
        return shown != nullptr;
    }

private:
    MenuTracking& m_tracking;
    std::weak_ptr<ShownItem> m_shown;
};

} // namespace

std::unique_ptr<MacStatusBar> makeStatusBar(MenuTracking& tracking) { return std::make_unique<SystemStatusBar>(tracking); }

} // namespace zv
