#include "app/settings/SettingsModels.h"

#include "app/doctor/HotkeyCheck.h"
#include "app/menu/MenuIcon.h"
#include "app/menu/ShownShortcut.h"
#include "app/model/Locations.h"
#include "app/settings/FolderForm.h"
#include "app/settings/OwnItemForm.h"
#include "app/settings/RecorderRules.h"
#include "app/settings/SettingsTexts.h"

#include <algorithm>

namespace zv {

namespace {

std::vector<LibraryEntry> withOwnEntries(std::vector<LibraryEntry> entries)
{
    struct Row {
        OwnItem::Kind kind;
        Sentence title, description;
    };
    static constexpr Row rows[] = {
        { OwnItem::Kind::link, markc("of the user’s own", "Link…"), mark("Opens an address in the browser.") },
        { OwnItem::Kind::command, markc("of the user’s own", "Command…"), mark("Runs a line in your shell or in a terminal.") },
        { OwnItem::Kind::scriptMenu, markc("of the user’s own", "Script menu…"), mark("A submenu that a program fills each time it opens.") },
    };
    for (auto const& row : rows) {
        LibraryEntry entry { std::string("own:") + row.title.english, tr(row.title), tr(row.description), MenuItem::ofKind(MenuItemKind::fsObject),
            tr("Your Own"), row.kind };
        entries.insert(entries.begin() + (&row - rows), std::move(entry));
    }
    return entries;
}

std::map<Url, std::string> shown(std::map<Url, std::string> shortcuts, SystemKind system)
{
    for (auto& [file, shortcut] : shortcuts)
        shortcut = shownShortcut(shortcut, system);
    return shortcuts;
}

void showOwn(OwnItem const& own, InspectorFields& fields)
{
    static constexpr Sentence titles[]
        = { markc("of the user’s own", "Link"), markc("of the user’s own", "Command"), markc("of the user’s own", "Script menu") };
    fields.kindTitle = tr(titles[static_cast<int>(own.kind)]);
    fields.targetPath = own.text;
    fields.chooseTitle = tr(settingsTexts::editOwn);
    fields.hasDepth = fields.hasListing = false;
}

} // namespace

SettingsModels::SettingsModels(Services services)
    : m_services(std::move(services))
    , m_ownItems(m_services.system.kind, m_services.system.places.itemsFolder, *m_services.system.files.disk)
    , m_editor({ m_services.store, locationsOf(m_services.system) })
    , m_outline({ m_services.store, m_services.hotkeys })
    , m_palette(withOwnEntries(loadItemLibrary(m_services.system.files.resources, locationsOf(m_services.system), LibraryMode::everything)))
    , m_setup({ .editor = m_editor,
                  .files = *m_services.system.files.disk,
                  .panels = m_services.surface.windows.filePanels,
                  .alerts = m_services.surface.windows.settingsAlerts,
                  .clock = m_services.system.time.clock,
                  .backupsFolder = m_services.system.places.backupsFolder,
                  .locations = locationsOf(m_services.system),
                  .preferencesChanged = [this] { preferencesChanged(); } },
          { .system = m_services.system.kind,
              .files = m_services.system.files,
              .home = m_services.system.places.home,
              .itemsFolder = m_services.system.places.itemsFolder })
    , m_menuFile({ .editor = m_editor,
          .backups = m_services.backups,
          .files = *m_services.system.files.disk,
          .locations = locationsOf(m_services.system),
          .panels = m_services.surface.windows.filePanels,
          .alerts = m_services.surface.windows.settingsAlerts,
          .importsSetup = [this](Url const& file) { return m_setup.imports(file); } })
    , m_pictures({ m_editor, m_services.system, m_services.surface })
    , m_gallery({ m_editor, m_services.store, m_services.system })
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
          .hotkeyProblem = [this] { return hotkeyProblem(); },
          .saveProblem = [this] { return saveProblem(); },
          .permissions = m_services.surface.home.permissions,
          .openSettingsPane = m_services.openSettingsPane,
          .fileShortcuts = [this] { return shown(m_services.hotkeys.registeredFiles(), m_services.system.kind); },
          .rename = [this](Url const& file, Url const& renamed) { return rename(file, renamed); },
          .extension = m_services.surface.home.extension,
          .desktopKey = m_services.surface.home.desktopKey,
          .hotkeySupport = [this] { return m_services.hotkeys.support(); },
          .bindingLines = [this] { return m_services.hotkeys.bindingLines(); },
          .copy = [this](std::string const& text) { m_services.surface.desk.clipboard.setText(text); },
          .exportAll = [this] { m_setup.exportAll(); } })
    , m_about(aboutText(m_services.system.files.resources))
    , m_place(m_services.system.files.defaults)
{
    if (auto const& list = m_services.surface.home.installedApplications)
        list(m_lifetime.guard([this](auto applications) { m_palette.setApplications(std::move(applications)); }));
    removeUnusedImages();
}

void SettingsModels::removeUnusedImages()
{
    std::vector<Url> files;
    for (auto const& backup : m_services.backups.list())
        files.push_back(backup.file);
    m_pictures.removeUnusedImages(m_services.store, std::move(files));
}

std::optional<std::string> SettingsModels::statusItemProblem() const
{
    if (m_services.surface.presence.showsStatusItems())
        return std::nullopt;
    return wording().statusItemIsNotShown;
}

std::optional<std::string> SettingsModels::hotkeyProblem() const
{
    auto const* key = m_services.surface.home.desktopKey;
    return noteOf(hotkeyCheck(m_services.hotkeys.support(), m_services.hotkeys.bindingOfShow(), key ? key->state() : DesktopKey::State {}));
}

bool SettingsModels::menuShortcutIsTaken() const
{
    auto const& conflicts = m_services.hotkeys.conflicts();
    return std::any_of(conflicts.begin(), conflicts.end(), [](auto const& conflict) { return conflict.target.isMenu(); });
}

void SettingsModels::preferencesChanged()
{
    m_services.preferences.reload();
    m_services.menuShortcut.reload();
}

std::optional<std::string> SettingsModels::saveProblem() const
{
    auto const problem = m_services.store.saveProblem();
    // TRANSLATORS: the full stop after a sentence that has none
    return problem ? std::optional(tr("%1.", *problem)) : std::nullopt;
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

std::vector<MenuItem const*> SettingsModels::itemsFound(std::string_view search) const
{
    return search.empty() ? std::vector<MenuItem const*>() : LibraryPalette::itemsFound(m_services.store.items(), search);
}

ImageRef SettingsModels::iconOf(MenuItem const& item)
{
    bool const isFile = item.kind == MenuItemKind::fsObject && item.location && item.location->path;
    auto const own = isFile ? m_services.icons.iconForFile(Url::fromPath(*item.location->path)) : m_services.icons.iconForKind(item.kind);
    auto const picture = pictureOf(item);
    return picture ? m_services.icons.iconForPicture(*picture, own) : own;
}

InspectorFields SettingsModels::inspectorFieldsOf(MenuItem const& item) const
{
    TargetFacts const target { m_services.store.unresolvedItemIDs().contains(item.id), mayBeFolder(item) };
    auto fields = inspectorFields(item, m_services.preferences, target);
    auto note = m_outline.shortcutNote(item, m_services.system.kind);
    fields.shortcutNote = std::move(note.text);
    fields.shortcutOwner = note.owner;
    auto const own = fields.hasTarget ? m_ownItems.read(Url::fromPath(fields.targetPath)) : std::nullopt;
    if (own)
        showOwn(*own, fields);
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
    auto const& title = kind == FilePanelKind::folder ? settingsTexts::chooseFolder : settingsTexts::chooseFiles;
    auto const chosen = m_services.surface.windows.filePanels.chooseToOpen({ tr(title), kind });
    return takeFiles(chosen, m_editor, position);
}

void SettingsModels::chooseTarget(Uuid const& id)
{
    auto const edited = id; // a copy: the caller's may change while the panel is open
    auto const* item = m_services.store.find(edited);
    if (!item)
        return;
    auto const file = item->location && item->location->path ? std::optional(Url::fromPath(*item->location->path)) : std::nullopt;
    if (auto const own = file ? m_ownItems.read(*file) : std::nullopt)
        return changeOwn(edited, *file, *own);
    auto const chosen = m_services.surface.windows.filePanels.chooseToOpen({ tr(settingsTexts::chooseTarget), FilePanelKind::filesAndFolders });
    if (!chosen.empty())
        m_editor.setTarget(edited, chosen.front());
}

DropOutcome SettingsModels::addEntry(LibraryEntry const& entry, MenuEditor::Position const& position)
{
    if (entry.own)
        return addOwn(entry, position);
    if (entry.itemTemplate.kind == MenuItemKind::fsObject && !entry.itemTemplate.location)
        return addChosenFiles(FilePanelKind::filesAndFolders, position);
    m_editor.addEntry(entry, position);
    return { true, std::nullopt };
}

DropOutcome SettingsModels::addOwn(LibraryEntry entry, MenuEditor::Position const& position)
{
    auto const own = askFor({ .kind = *entry.own });
    if (!own)
        return {};
    auto const file = m_ownItems.write(*own);
    if (!file)
        return { false, Alert { AlertStyle::warning, tr(settingsTexts::itemsNotAdded), settingsTexts::asSentence(file.error()) } };
    entry.itemTemplate.setOwnTitle(own->title);
    entry.itemTemplate.location = ItemLocation::forURL(*file, locationsOf(m_services.system));
    entry.title = own->title;
    m_editor.addEntry(entry, position);
    return { true, std::nullopt };
}

void SettingsModels::changeOwn(Uuid const& id, Url const& file, OwnItem const& own)
{
    auto const changed = askFor(own);
    if (!changed)
        return;
    if (auto const written = m_ownItems.write(*changed, file))
        m_editor.setOwnTarget(id, *written, changed->title);
    else
        alerts().run({ AlertStyle::warning, tr(settingsTexts::itemNotChanged), settingsTexts::asSentence(written.error()) });
}

std::optional<OwnItem> SettingsModels::askFor(OwnItem const& own)
{
    auto const answers = m_services.surface.windows.forms.ask(ownItemForm(own));
    return answers ? std::optional(ownItemOf(own.kind, *answers)) : std::nullopt;
}

void SettingsModels::chooseListing(Uuid const& id)
{
    Uuid const listed = id;
    auto const* item = m_services.store.find(listed);
    if (!item)
        return;
    if (auto const answers = m_services.surface.windows.forms.ask(folderForm(folderChoicesOf(*item))))
        m_editor.setFolderChoices(listed, folderChoicesIn(*answers));
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
