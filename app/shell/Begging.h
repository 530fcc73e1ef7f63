#pragma once

#include "base/Lifetime.h"
#include "platform/desk/Application.h"
#include "platform/desk/NotesWindow.h"
#include "platform/files/Resources.h"
#include "platform/files/UserDefaults.h"
#include "platform/program/Installation.h"
#include "platform/time/Tasks.h"

#include <memory>

namespace zv {

/// The small notes window that three early launches show, and no other. Main thread only.
class Begging {
public:
    struct Services {
        UserDefaults& defaults;
        Resources const& resources;
        NotesWindows& windows;
        Application& application;
        Tasks& tasks;
    };

    explicit Begging(Services services)
        : m_services(services)
    {
    }

    /// Counts the launch and shows the window on the launches 2, 9 and 13. Nothing is
    /// counted a second time, within a test run, or where nothing can be kept.
    void showIfDue(Environment const& environment, bool onReadOnlyVolume);
    void show();

private:
    Services m_services;
    std::unique_ptr<NotesWindow> m_window; ///< kept when closed, and used again
    bool m_hasNotedLaunch = false;
    Lifetime m_lifetime;
};

} // namespace zv
