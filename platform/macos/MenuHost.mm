#import "platform/macos/Factories.h"
#import "platform/macos/MenuMirror.h"

namespace zv {

namespace {

/// Returns when the menu has closed.
class PopUpMenuHost : public MenuHost {
public:
    explicit PopUpMenuHost(MenuTracking& tracking)
        : m_tracking(tracking)
    {
    }

    void popUp(std::shared_ptr<Menu> const& menu, Point at) override
    {
        ZVMenuMirror* const mirror = [[ZVMenuMirror alloc] initWithMenu:menu tracking:&m_tracking];
        [[mirror menu] popUpMenuPositioningItem:nil atLocation:NSMakePoint(at.x, at.y) inView:nil];
        [[mirror menu] setDelegate:nil]; // keeps the mirror until here
    }

private:
    MenuTracking& m_tracking;
};

} // namespace

std::unique_ptr<MenuHost> makeMenuHost(MenuTracking& tracking) { return std::make_unique<PopUpMenuHost>(tracking); }

} // namespace zv
