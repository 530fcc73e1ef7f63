#pragma once

#include "app/hotkeys/HotkeyReport.h"
#include "app/shell/AppDelegate.h"

namespace zv {

/// The application: its delegate, and its one scene, the settings. The front ends call it. Main thread only.
class ZantheVellApp {
public:
    ZantheVellApp(System system, Surface surface)
        : m_delegate(std::move(system), std::move(surface))
    {
    }

    AppDelegate::Launch launch();
    /// Called when the program is opened once more.
    void reopen() { m_delegate.applicationShouldHandleReopen(false); }
    void openSettings() { m_delegate.openSettings(); }
    [[nodiscard]] Result<void> addFiles(std::vector<Url> files) { return m_delegate.addFiles(std::move(files)); }
    /// Registrations and conflicts, in the form printed by `hotkeys --json`.
    [[nodiscard]] std::string hotkeyReport() { return zv::hotkeyReport(m_delegate.hasParts() ? &m_delegate.parts().hotkeys() : nullptr); }
    [[nodiscard]] SettingsModels& settingsModels() { return m_delegate.parts().settingsModels(); }
    [[nodiscard]] AppDelegate& delegate() { return m_delegate; }

private:
    AppDelegate m_delegate;
};

} // namespace zv
