#pragma once

#include "app/model/Preferences.h"
#include "base/Lifetime.h"
#include "base/Observation.h"
#include "platform/desk/Application.h"
#include "platform/time/Tasks.h"

namespace zv {

/// Decides whether the program shows a Dock icon: while it has an open titled window, and when the
/// menu bar offers no way to it. Main thread only.
class DockIconController {
public:
    struct Services {
        Application& application;
        Preferences const& preferences;
        Tasks& tasks;
    };

    /// Applies the policy once, then follows the preferences and the windows.
    explicit DockIconController(Services services);
    ~DockIconController();
    DockIconController(DockIconController const&) = delete;
    DockIconController& operator=(DockIconController const&) = delete;

    void update();
    /// Merges the window changes of one turn of the main loop into one update.
    void scheduleUpdate();

private:
    void apply(ActivationPolicy policy);
    [[nodiscard]] bool hasOpenWindow() const;

    Services m_services;
    bool m_isUpdateScheduled = false;
    Observation m_preferencesObservation;
    Lifetime m_lifetime;
};

} // namespace zv
