#include "app/shell/DockIconController.h"

#include "base/MainThread.h"

#include <algorithm>

namespace zv {

DockIconController::DockIconController(Services services)
    : m_services(services)
{
    m_services.application.onWindowsChanged = [this] { scheduleUpdate(); };
    update();
}

DockIconController::~DockIconController() { m_services.application.onWindowsChanged = nullptr; }

void DockIconController::update()
{
    assertMainThread();
    bool hasMenuBarPresence = false;
    m_preferencesObservation = withObservationTracking(
        [&] {
            // Reads both, to observe both.
            bool const showsStatusItem = m_services.preferences.showsStatusItem();
            bool const replacesAppleMenu = m_services.preferences.replacesAppleMenu();
            hasMenuBarPresence = showsStatusItem || replacesAppleMenu;
        },
        [this] { scheduleUpdate(); });

    auto const wanted = wantedPolicy(hasMenuBarPresence);
    if (!m_services.application.isHidden() && wanted != m_services.application.activationPolicy())
        m_services.application.setActivationPolicy(wanted);
}

ActivationPolicy DockIconController::wantedPolicy(bool hasMenuBarPresence) const
{
    auto const windows = m_services.application.windows();
    bool const hasOpenWindow = std::any_of(windows.begin(), windows.end(), [](auto const& w) { return w.isTitled && (w.isVisible || w.isMiniaturized); });
    return hasOpenWindow || !hasMenuBarPresence ? ActivationPolicy::regular : ActivationPolicy::accessory;
}

void DockIconController::scheduleUpdate()
{
    assertMainThread();
    if (m_isUpdateScheduled)
        return;
    m_isUpdateScheduled = true;
    m_services.tasks.runOnMain(m_lifetime.guard([this] {
        m_isUpdateScheduled = false;
        update();
    }));
}

} // namespace zv
