#include "app/shell/AppDelegate.h"

#include "base/MainThread.h"

namespace zv {

AppDelegate::Launch AppDelegate::applicationDidFinishLaunching()
{
    assertMainThread();
    if (m_steps.relocateIfNeeded())
        return Launch::relocated;
    m_steps.makeStatusItem();
    m_steps.makeDockIcon();
    m_steps.setServicesProvider();
    m_steps.startUpdater();
    m_steps.showNotesIfDue();
    return Launch::running;
}

bool AppDelegate::applicationShouldHandleReopen(bool)
{
    assertMainThread();
    m_steps.openSettings();
    return true;
}

} // namespace zv
