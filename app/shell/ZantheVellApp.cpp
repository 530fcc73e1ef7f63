#include "app/shell/ZantheVellApp.h"

namespace zv {

/// A program that shows itself neither among the icons nor in the corner has a Dock icon on
/// a Mac; elsewhere nothing else would lead to it.
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
