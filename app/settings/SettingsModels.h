#pragma once

#include "app/settings/AboutText.h"
#include "app/settings/GeneralSettings.h"
#include "app/settings/LibraryPalette.h"
#include "app/settings/MenuEditor.h"
#include "app/settings/MenuFileCommands.h"
#include "app/settings/MenuOutline.h"
#include "base/Lifetime.h"
#include "platform/System.h"

#include <functional>
#include <string>

namespace zv {

class MenuIcons;

/// All that the settings window shows and does, without the window. All services outlive it.
/// Main thread only.
class SettingsModels {
public:
    struct Services {
        System const& system;
        Surface const& surface;
        MenuStore& store;
        Preferences& preferences;
        HotkeyCenter& hotkeys;
        MenuBackups const& backups;
        LoginItem& loginItem;
        KresUpdater& updater;
        MenuIcons& icons;
        std::function<std::optional<std::string>()> overlayProblem; ///< why there is no overlay, as a sentence; nothing where there is
        std::function<void()> showReadMe;
        std::function<void(std::string_view)> openSettingsPane;
    };

    explicit SettingsModels(Services services);
    SettingsModels(SettingsModels const&) = delete;
    SettingsModels& operator=(SettingsModels const&) = delete;

    [[nodiscard]] MenuStore& store() { return m_services.store; }
    [[nodiscard]] Preferences const& preferences() const { return m_services.preferences; }
    [[nodiscard]] MenuEditor& editor() { return m_editor; }
    [[nodiscard]] MenuOutline const& outline() const { return m_outline; }
    [[nodiscard]] LibraryPalette const& palette() const { return m_palette; }
    [[nodiscard]] MenuFileCommands& menuFile() { return m_menuFile; }
    [[nodiscard]] GeneralSettings& general() { return m_general; }
    [[nodiscard]] AboutText const& about() const { return m_about; }
    [[nodiscard]] MenuIcons& icons() { return m_services.icons; }
    [[nodiscard]] FilePanels& panels() { return m_services.surface.windows.filePanels; }
    [[nodiscard]] Alerts& alerts() { return m_services.surface.desk.alerts; }
    /// Where the window keeps its size and its tab.
    [[nodiscard]] UserDefaults& defaults() { return m_services.system.files.defaults; }

    void reveal(MenuItem const& item);
    void showReadMe();
    void copyDiagnostics();
    /// While a shortcut is recorded no global hotkey is held, so that any combination reaches
    /// the recorder.
    void beginRecording();
    void endRecording();

private:
    [[nodiscard]] std::optional<std::string> statusItemProblem() const;

    Services m_services;
    MenuEditor m_editor;
    MenuOutline m_outline;
    LibraryPalette m_palette;
    MenuFileCommands m_menuFile;
    GeneralSettings m_general;
    AboutText m_about;
    bool m_isRecording = false;
    Lifetime m_lifetime;
};

} // namespace zv
