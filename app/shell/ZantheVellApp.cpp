#include "app/shell/ZantheVellApp.h"

namespace zv {

/// Opens the settings if neither icon nor overlay leads to the program; on a Mac its Dock icon does.
AppDelegate::Launch ZantheVellApp::launch()
{
    auto const outcome = m_delegate.applicationDidFinishLaunching();
    bool const isReached
        = m_delegate.system().kind == SystemKind::macOS || m_delegate.preferences().showsStatusItem() || m_delegate.preferences().replacesAppleMenu();
    if (outcome == AppDelegate::Launch::running && !isReached)
        openSettings();
    return outcome;
}

} // namespace zv
