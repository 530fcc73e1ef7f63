#pragma once

#include "app/shell/Begging.h"
#include "app/shell/DockIconController.h"
#include "app/shell/ProgramParts.h"

#include <memory>
#include <string>
#include <vector>

namespace zv {

/// Receives what the system tells the application, and owns all that it leads to: the stored
/// menu from the start, the rest from launching on. Main thread only.
class AppDelegate {
public:
    /// What `system` and `surface` name outlives the delegate.
    AppDelegate(System system, Surface surface);
    ~AppDelegate();
    AppDelegate(AppDelegate const&) = delete;
    AppDelegate& operator=(AppDelegate const&) = delete;

    enum class Launch { running, relocated };
    /// The start-up sequence, in its order. `relocated` when a copy of the program takes over:
    /// then nothing else is built, and this process ends.
    Launch applicationDidFinishLaunching();
    /// The program was opened once more while it runs, whatever windows it has: true, as it
    /// was dealt with by opening the settings.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);

    void openSettings() { m_settings.open(); }
    /// Returns at once. The failure is a sentence for who asked.
    [[nodiscard]] Result<void> addFiles(std::vector<Url> files);

    [[nodiscard]] System const& system() const { return m_system; }
    [[nodiscard]] Surface const& surface() const { return m_surface; }
    [[nodiscard]] Preferences& preferences() { return m_preferences; }
    [[nodiscard]] MenuStore& store() { return m_store; }
    /// Made when first asked for.
    [[nodiscard]] ProgramParts& parts();
    [[nodiscard]] bool hasParts() const { return m_parts != nullptr; }
    /// Null until launched, and when a copy takes over.
    [[nodiscard]] StatusItemController* statusItem() { return m_statusItem.get(); }

private:
    [[nodiscard]] bool relocateIfNeeded();
    void setServicesProvider();
    void settingsChangedElsewhere(std::vector<std::string> const& keys);

    System m_system;
    Surface m_surface;
    Preferences m_preferences;
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
