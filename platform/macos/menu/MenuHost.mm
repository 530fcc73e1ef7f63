#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/menu/MenuMirror.h"

namespace zv {

namespace {

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
        [m_mirror.menu popUpMenuPositioningItem:nil atLocation:NSMakePoint(at.x, at.y) inView:nil];
        if (m_tracking.isOpen)
            [m_mirror menuDidClose:m_mirror.menu]; // not told yet
    }

private:
    MenuTracking& m_tracking;
    ZVMenuMirror* m_mirror = nil;
};

} // namespace

std::unique_ptr<MenuHost> makeMenuHost(MenuTracking& tracking) { return std::make_unique<PopUpMenuHost>(tracking); }

} // namespace zv
