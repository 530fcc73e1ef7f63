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

    auto const wanted = hasOpenWindow() || !hasMenuBarPresence ? ActivationPolicy::regular : ActivationPolicy::accessory;
    if (!m_services.application.isHidden() && wanted != m_services.application.activationPolicy())
        apply(wanted);
}

void DockIconController::apply(ActivationPolicy policy)
{
    auto& application = m_services.application;
    application.setActivationPolicy(policy);
    // A window that opened before may be in front without the keyboard, as the system may decline a
    // program without a Dock icon; one already active gets its menu bar only on coming there again.
    if (policy == ActivationPolicy::regular && (hasOpenWindow() || application.isActive()))
        application.activate();
}

bool DockIconController::hasOpenWindow() const
{
    auto const windows = m_services.application.windows();
    return std::any_of(windows.begin(), windows.end(), [](auto const& w) { return w.isTitled && (w.isVisible || w.isMiniaturized); });
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
