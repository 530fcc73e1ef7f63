#import "platform/macos/cocoa/Factories.h"

#include <dlfcn.h>

namespace zv {

namespace {

using MainConnection = int (*)();
using ActiveSpace = std::size_t (*)(int connection);
using IsMenuBarVisible = bool (*)(int connection, long space);

template <class Function> Function lookedUp(char const* name) { return reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, name)); }

/// Uses three functions of the window server that no header of the system declares: all of them,
/// or none. The first two are described in CGSConnection.h and CGSSpace.h of
/// https://github.com/NUIKit/CGSInternal; the third is bool CGSIsMenuBarVisibleOnSpace(CGSConnectionID, long).
class SpaceMenuBar : public MenuBarVisibility {
public:
    static std::unique_ptr<SpaceMenuBar> find()
    {
        auto const mainConnection = lookedUp<MainConnection>("CGSMainConnectionID");
        auto const activeSpace = lookedUp<ActiveSpace>("CGSGetActiveSpace");
        auto const isVisible = lookedUp<IsMenuBarVisible>("CGSIsMenuBarVisibleOnSpace");
        if (!mainConnection || !activeSpace || !isVisible)
            return nullptr;
        return std::unique_ptr<SpaceMenuBar>(new SpaceMenuBar(mainConnection(), activeSpace, isVisible));
    }

    bool isMenuBarVisibleOnActiveSpace() const override { return m_isVisible(m_connection, static_cast<long>(m_activeSpace(m_connection))); }

private:
    SpaceMenuBar(int connection, ActiveSpace activeSpace, IsMenuBarVisible isVisible)
        : m_connection(connection)
        , m_activeSpace(activeSpace)
        , m_isVisible(isVisible)
    {
    }

    int m_connection;
    ActiveSpace m_activeSpace;
    IsMenuBarVisible m_isVisible;
};

} // namespace

std::unique_ptr<MenuBarVisibility> makeMenuBarVisibility() { return SpaceMenuBar::find(); }

} // namespace zv
