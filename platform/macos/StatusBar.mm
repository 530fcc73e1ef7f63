#import "platform/macos/Conversions.h"
#import "platform/macos/Factories.h"
#import "platform/macos/MenuMirror.h"

namespace zv {

namespace {

/// The bar does not keep the item: this does.
class MacStatusItem : public StatusItem {
public:
    MacStatusItem(StatusItemLook const& look, std::shared_ptr<Menu> const& menu, MenuTracking& tracking)
        : m_mirror([[ZVMenuMirror alloc] initWithMenu:menu tracking:&tracking])
        , m_item([[NSStatusBar systemStatusBar] statusItemWithLength:NSSquareStatusItemLength])
    {
        show(look);
        [m_item setMenu:[m_mirror menu]];
    }
    ~MacStatusItem() override { [[NSStatusBar systemStatusBar] removeStatusItem:m_item]; }

private:
    void show(StatusItemLook const& look)
    {
        NSString* const description = toNSString(look.accessibilityDescription);
        NSImage* const symbol = [NSImage imageWithSystemSymbolName:toNSString(look.symbol) accessibilityDescription:description];
        [symbol setTemplate:YES];
        if (symbol)
            [[m_item button] setImage:symbol];
        else
            [[m_item button] setTitle:description];
    }

    ZVMenuMirror* m_mirror;
    NSStatusItem* m_item;
};

class MacStatusBar : public StatusBar {
public:
    explicit MacStatusBar(MenuTracking& tracking)
        : m_tracking(tracking)
    {
    }
    std::unique_ptr<StatusItem> add(StatusItemLook const& look, std::shared_ptr<Menu> menu) override
    {
        return std::make_unique<MacStatusItem>(look, menu, m_tracking);
    }

private:
    MenuTracking& m_tracking;
};

} // namespace

std::unique_ptr<StatusBar> makeStatusBar(MenuTracking& tracking) { return std::make_unique<MacStatusBar>(tracking); }

} // namespace zv
