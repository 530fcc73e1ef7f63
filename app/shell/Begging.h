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

/// The notes window that only three early launches show. Main thread only.
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

    /// Counts the launch, and shows the window on launches 2, 9 and 13. Counts only once, and not
    /// in a test run or on a read-only volume.
    void showIfDue(Environment const& environment, bool onReadOnlyVolume);
    /// Whether this launch was counted, as the first.
    [[nodiscard]] bool isFirstLaunch() const { return m_isFirstLaunch; }
    void show();

private:
    Services m_services;
    std::unique_ptr<NotesWindow> m_window; ///< reused after closing
    bool m_hasNotedLaunch = false;
    bool m_isFirstLaunch = false;
    Lifetime m_lifetime;
};

} // namespace zv
