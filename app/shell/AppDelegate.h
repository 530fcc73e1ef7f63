#pragma once

#include "app/shell/Begging.h"
#include "app/shell/DockIconController.h"
#include "app/shell/ProgramParts.h"

#include <memory>
#include <string>
#include <vector>

namespace zv {

/// Receives the system's calls to the application and owns the program's objects: the stored menu
/// from the start, the rest from launching on. Main thread only.
class AppDelegate {
public:
    /// The objects that `system` and `surface` refer to outlive the delegate.
    AppDelegate(System system, Surface surface);
    ~AppDelegate();
    AppDelegate(AppDelegate const&) = delete;
    AppDelegate& operator=(AppDelegate const&) = delete;

    enum class Launch { running, relocated };
    /// Starts the program. `relocated` when a copy of it takes over: then nothing else is built,
    /// and this process ends.
    Launch applicationDidFinishLaunching();
    /// Opens the settings when the program is opened once more, whatever windows it has. Always true.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);

    void openSettings() { m_settings.open(); }
    /// Returns at once. The failure is a sentence for the caller.
    [[nodiscard]] Result<void> addFiles(std::vector<Url> files);

    [[nodiscard]] System const& system() const { return m_system; }
    [[nodiscard]] Surface const& surface() const { return m_surface; }
    [[nodiscard]] Preferences& preferences() { return m_preferences; }
    [[nodiscard]] MenuStore& store() { return m_store; }
    /// Created on first use.
    [[nodiscard]] ProgramParts& parts();
    [[nodiscard]] bool hasParts() const { return m_parts != nullptr; }
    /// Null before launching, and when a copy takes over.
    [[nodiscard]] StatusItemController* statusItem() { return m_statusItem.get(); }

private:
    [[nodiscard]] bool relocateIfNeeded();
    void setServicesProvider();
    void settingsChangedElsewhere(std::vector<std::string> const& keys);

    System m_system;
    Surface m_surface;
    Preferences m_preferences;
    MenuShortcut m_menuShortcut;
    MenuBackups m_backups;
    MenuStore m_store;
    Begging m_begging;
    SettingsOpener m_settings;
    std::unique_ptr<ProgramParts> m_parts;
    std::unique_ptr<StatusItemController> m_statusItem;
    std::unique_ptr<DockIconController> m_dockIcon;
    bool m_takesFiles = false; ///< other programs reach the service only once it is provided
};

} // namespace zv
