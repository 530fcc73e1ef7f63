#include "app/settings/SettingsModels.h"

#include "app/doctor/HotkeyCheck.h"
#include "app/menu/MenuIcon.h"
#include "app/model/Locations.h"
#include "app/settings/RecorderRules.h"
#include "app/settings/SettingsTexts.h"

#include <algorithm>

namespace zv {

SettingsModels::SettingsModels(Services services)
    : m_services(std::move(services))
    , m_editor({ m_services.store, locationsOf(m_services.system) })
    , m_outline({ m_services.store, m_services.hotkeys })
    , m_palette(loadItemLibrary(m_services.system.files.resources, locationsOf(m_services.system), LibraryMode::everything))
    , m_menuFile({ .editor = m_editor,
          .backups = m_services.backups,
          .files = *m_services.system.files.disk,
          .locations = locationsOf(m_services.system),
          .panels = m_services.surface.windows.filePanels,
          .alerts = m_services.surface.windows.settingsAlerts })
    , m_general({ .preferences = m_services.preferences,
          .loginItem = m_services.loginItem,
          .updater = m_services.updater,
          .menuFile = m_menuFile,
          .alerts = m_services.surface.windows.settingsAlerts,
          .wording = wording(),
          .menuShortcut = m_services.menuShortcut,
          .menuShortcutIsTaken = [this] { return menuShortcutIsTaken(); },
          .shortcutWarning = [this](auto const& spec) { return shortcutWarning(spec, m_services.system.kind); },
          .statusItemProblem = [this] { return statusItemProblem(); },
          .overlayProblem = m_services.overlayProblem,
          .hotkeyProblem = [this] { return noteOf(hotkeyCheck(m_services.hotkeys.support())); },
          .saveProblem = [this] { return saveProblem(); },
          .permissions = m_services.surface.home.permissions,
          .openSettingsPane = m_services.openSettingsPane,
          .fileShortcuts = [this] { return m_services.hotkeys.registeredFiles(); },
          .rename = [this](Url const& file, Url const& renamed) { return rename(file, renamed); } })
    , m_about(aboutText(m_services.system.files.resources))
    , m_place(m_services.system.files.defaults)
{
    if (auto const& list = m_services.surface.home.installedApplications)
        list(m_lifetime.guard([this](auto applications) { m_palette.setApplications(std::move(applications)); }));
}

std::optional<std::string> SettingsModels::statusItemProblem() const
{
    if (m_services.surface.presence.showsStatusItems())
        return std::nullopt;
    return wording().statusItemIsNotShown;
}

bool SettingsModels::menuShortcutIsTaken() const
{
    auto const& conflicts = m_services.hotkeys.conflicts();
    return std::any_of(conflicts.begin(), conflicts.end(), [](auto const& conflict) { return conflict.target.isMenu(); });
}

std::optional<std::string> SettingsModels::saveProblem() const
{
    auto const problem = m_services.store.saveProblem();
    return problem ? std::optional(*problem + ".") : std::nullopt;
}

Result<void> SettingsModels::rename(Url const& file, Url const& renamed)
{
    auto done = m_services.system.files.disk->rename(file, renamed);
    if (done)
        m_services.fileWasRenamed(file);
    return done;
}

void SettingsModels::readOutline() const
{
    (void)m_services.store.items();
    (void)m_services.store.unresolvedItemIDs();
    (void)m_outline.row(MenuItem::ofKind(MenuItemKind::sleep)); // observes the conflicts
}

ImageRef SettingsModels::iconOf(MenuItem const& item)
{
    bool const isFile = item.kind == MenuItemKind::fsObject && item.location && item.location->path;
    return isFile ? m_services.icons.iconForFile(Url::fromPath(*item.location->path)) : m_services.icons.iconForKind(item.kind);
}

InspectorFields SettingsModels::inspectorFieldsOf(MenuItem const& item) const
{
    TargetFacts const target { m_services.store.unresolvedItemIDs().contains(item.id), mayBeFolder(item) };
    auto fields = inspectorFields(item, m_services.preferences, target);
    auto note = m_outline.shortcutNote(item, m_services.system.kind);
    fields.shortcutNote = std::move(note.text);
    fields.shortcutOwner = note.owner;
    return fields;
}

/// True for what cannot be looked at without waiting.
bool SettingsModels::mayBeFolder(MenuItem const& item) const
{
    auto const& files = m_services.system.files;
    if (!item.location || !item.location->path)
        return true;
    auto const url = Url::fromPath(*item.location->path);
    if (!url.isFile() || files.folders->isRemote(url))
        return true;
    auto const traits = files.disk->traits(url);
    return !traits || (traits->isDirectory && !traits->isPackage);
}

DropOutcome SettingsModels::addChosenFiles(FilePanelKind kind, MenuEditor::Position const& position)
{
    auto const* title = kind == FilePanelKind::folder ? settingsTexts::chooseFolder : settingsTexts::chooseFiles;
    auto const chosen = m_services.surface.windows.filePanels.chooseToOpen({ title, kind });
    return takeFiles(chosen, m_editor, position);
}

void SettingsModels::chooseTarget(Uuid const& id)
{
    auto const edited = id; // a copy: the caller's may change while the panel is open
    if (!m_services.store.find(edited))
        return;
    auto const chosen = m_services.surface.windows.filePanels.chooseToOpen({ settingsTexts::chooseTarget, FilePanelKind::filesAndFolders });
    if (!chosen.empty())
        m_editor.setTarget(edited, chosen.front());
}

void SettingsModels::reveal(Uuid const& id)
{
    auto const* item = m_services.store.find(id);
    auto const url = item && item->location ? item->location->resolvedURL(locationsOf(m_services.system)) : std::nullopt;
    if (url)
        m_services.system.session.workspace.reveal(*url);
}

void SettingsModels::showReadMe() { m_services.showReadMe(); }

void SettingsModels::copyDiagnostics() { m_services.surface.desk.clipboard.setText(m_services.surface.home.diagnostics()); }

void SettingsModels::beginRecording()
{
    if (!std::exchange(m_isRecording, true))
        m_services.hotkeys.pause();
}

void SettingsModels::endRecording()
{
    if (std::exchange(m_isRecording, false))
        m_services.hotkeys.resume();
}

} // namespace zv
