#pragma once

#include "app/settings/AboutText.h"
#include "app/settings/GeneralSettings.h"
#include "app/settings/ItemInspector.h"
#include "app/settings/LibraryPalette.h"
#include "app/settings/MenuDrop.h"
#include "app/settings/MenuEditor.h"
#include "app/settings/MenuFileCommands.h"
#include "app/settings/MenuOutline.h"
#include "app/settings/PictureChooser.h"
#include "app/settings/SettingsPlace.h"
#include "app/settings/SetupCommands.h"
#include "app/settings/StartGallery.h"
#include "base/Lifetime.h"
#include "platform/System.h"

#include <functional>
#include <string>

namespace zv {

class MenuIcons;

/// The settings window's content and operations, without the window. All services outlive it. Main thread only.
class SettingsModels {
public:
    struct Services {
        System const& system;
        Surface const& surface;
        MenuStore& store;
        Preferences& preferences;
        MenuShortcut& menuShortcut;
        HotkeyCenter& hotkeys;
        MenuBackups const& backups;
        LoginItem& loginItem;
        KresUpdater& updater;
        MenuIcons& icons;
        std::function<std::optional<std::string>()> overlayProblem; ///< the reason for having no overlay, a sentence; empty when there is one
        std::function<void(Url const&)> fileWasRenamed; ///< told of a file that has lost its shortcut
        std::function<void()> showReadMe;
        std::function<void(std::string_view)> openSettingsPane;
    };

    explicit SettingsModels(Services services);
    SettingsModels(SettingsModels const&) = delete;
    SettingsModels& operator=(SettingsModels const&) = delete;

    [[nodiscard]] MenuStore& store() { return m_services.store; }
    [[nodiscard]] MenuEditor& editor() { return m_editor; }
    [[nodiscard]] MenuOutline const& outline() const { return m_outline; }
    [[nodiscard]] LibraryPalette const& palette() const { return m_palette; }
    /// The menu's items that a search of the library finds, too. Observed only while there is a search.
    [[nodiscard]] std::vector<MenuItem const*> itemsFound(std::string_view search) const;
    [[nodiscard]] MenuFileCommands& menuFile() { return m_menuFile; }
    [[nodiscard]] PictureChooser& pictures() { return m_pictures; }
    [[nodiscard]] StartGallery& gallery() { return m_gallery; }
    [[nodiscard]] GeneralSettings& general() { return m_general; }
    [[nodiscard]] AboutText const& about() const { return m_about; }
    [[nodiscard]] SettingsWording wording() const { return SettingsWording::of(m_services.system.kind); }
    [[nodiscard]] SettingsPlace& place() { return m_place; }
    [[nodiscard]] Alerts& alerts() { return m_services.surface.windows.settingsAlerts; }

    /// Reads all that the outline shows, to observe it.
    void readOutline() const;
    [[nodiscard]] ImageRef iconOf(MenuItem const& item);
    [[nodiscard]] InspectorFields inspectorFieldsOf(MenuItem const& item) const;

    /// Adds what the library offers; asks for the file, or for what an item of the user's own is to do, first.
    DropOutcome addEntry(LibraryEntry const& entry, MenuEditor::Position const& position);
    /// Lets the user choose files, and adds them.
    DropOutcome addChosenFiles(FilePanelKind kind, MenuEditor::Position const& position);
    /// Lets the user choose the item's new target, or change an item of the user's own.
    void chooseTarget(Uuid const& id);
    /// Asks for the order and choice of the item's folder.
    void chooseListing(Uuid const& id);
    void reveal(Uuid const& id);
    void showReadMe();
    void copyDiagnostics();
    /// Releases all global hotkeys while a shortcut is recorded, so that every combination reaches
    /// the recorder.
    void beginRecording();
    void endRecording();

private:
    DropOutcome addOwn(LibraryEntry entry, MenuEditor::Position const& position);
    void changeOwn(Uuid const& id, Url const& file, OwnItem const& own);
    [[nodiscard]] std::optional<OwnItem> askFor(OwnItem const& own);
    void removeUnusedImages();
    [[nodiscard]] bool mayBeFolder(MenuItem const& item) const;
    [[nodiscard]] std::optional<std::string> statusItemProblem() const;
    [[nodiscard]] std::optional<std::string> hotkeyProblem() const;
    [[nodiscard]] bool menuShortcutIsTaken() const;
    [[nodiscard]] Result<void> rename(Url const& file, Url const& renamed);
    [[nodiscard]] std::optional<std::string> saveProblem() const;
    void preferencesChanged();

    Services m_services;
    OwnItems m_ownItems;
    MenuEditor m_editor;
    MenuOutline m_outline;
    LibraryPalette m_palette;
    SetupCommands m_setup;
    MenuFileCommands m_menuFile;
    PictureChooser m_pictures;
    StartGallery m_gallery;
    GeneralSettings m_general;
    AboutText m_about;
    SettingsPlace m_place;
    bool m_isRecording = false;
    Lifetime m_lifetime;
};

} // namespace zv
