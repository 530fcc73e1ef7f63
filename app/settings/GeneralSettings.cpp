#include "app/settings/GeneralSettings.h"

#include "app/menu/DisplayText.h"
#include "app/model/FinderPopName.h"
#include "app/settings/LockedRows.h"
#include "app/settings/SettingsTexts.h"
#include "base/Translation.h"
#include "platform/text/DateText.h"

namespace zv {

namespace {

using Kind = SettingsRow::Kind;

SettingsRow row(Kind kind, std::string id, std::string title)
{
    SettingsRow made;
    made.kind = kind;
    made.id = std::move(id);
    made.title = std::move(title);
    return made;
}

SettingsRow toggle(std::string id, std::string title, std::string help, bool isOn, std::function<void(bool)> set)
{
    auto made = row(Kind::toggle, std::move(id), std::move(title));
    made.help = std::move(help);
    made.isOn = isOn;
    made.toggle = std::move(set);
    return made;
}

SettingsRow choice(
    std::string id, std::string title, std::string help, std::int64_t value, std::vector<SettingsChoice> offered, std::function<void(std::int64_t)> set)
{
    auto made = row(Kind::choice, std::move(id), std::move(title));
    made.help = std::move(help);
    made.value = value;
    made.choices = choicesWith(value, std::move(offered));
    made.choose = std::move(set);
    return made;
}

SettingsRow button(std::string id, std::string title, std::function<void()> press)
{
    auto made = row(Kind::button, std::move(id), std::move(title));
    made.press = std::move(press);
    return made;
}

SettingsRow note(std::string id, std::string text) { return row(Kind::note, std::move(id), std::move(text)); }

using Problem = std::function<std::optional<std::string>()>;

void addNote(SettingsSection& section, std::string id, Problem const& problem)
{
    if (auto text = problem ? problem() : std::nullopt)
        section.rows.push_back(note(std::move(id), std::move(*text)));
}

/// The file's name as it would be without "-*[cmd+E]*".
std::string nameWithoutShortcut(Url const& file)
{
    FinderPopName const name(file.lastPathComponent());
    return name.orderingPrefix.value_or("") + name.title;
}

std::vector<SettingsChoice> numbers(std::initializer_list<std::int64_t> values)
{
    std::vector<SettingsChoice> choices;
    for (auto const value : values)
        choices.push_back({ number(value), value });
    return choices;
}

} // namespace

GeneralSettings::GeneralSettings(Services services)
    : m_services(std::move(services))
{
    if (m_services.desktopKey)
        m_desktopKey.emplace(DesktopKeyRows::Services {
            *m_services.desktopKey, m_services.alerts, [this](auto const& spec) { return warningOf(spec); }, [this] { tellChanged(); } });
}

std::vector<SettingsSection> GeneralSettings::sections()
{
    std::vector<SettingsSection> sections { presence(), login(), menus(), updates(), menuFile() };
    if (auto held = fileShortcuts(); !held.rows.empty())
        sections.insert(sections.begin() + 3, std::move(held));
    if (m_services.permissions)
        sections.insert(sections.begin() + 2, permissionSection(*m_services.permissions, m_services.openSettingsPane));
    markLockedRows(sections, [this](std::string_view key) { return m_services.preferences.isLocked(key); });
    return sections;
}

SettingsSection GeneralSettings::presence()
{
    auto& preferences = m_services.preferences;
    auto const& wording = m_services.wording;
    bool const replaces = preferences.replacesAppleMenu();
    bool const showsItem = preferences.showsStatusItem();

    SettingsSection section { tr("Where the menu is"), {} };
    section.rows.push_back(
        toggle("replaceAppleMenu", wording.replaceMenu, wording.replaceMenuHelp, replaces, [&](bool on) { preferences.setReplacesAppleMenu(on); }));
    auto logo = toggle("rainbowLogo", wording.logo, "", preferences.drawsRainbowAppleLogo(), [&](bool on) { preferences.setDrawsRainbowAppleLogo(on); });
    logo.isEnabled = replaces;
    logo.isIndented = true;
    section.rows.push_back(std::move(logo));
    if (replaces && !(m_services.extension && m_services.extension->state() == DesktopExtension::State::on))
        addNote(section, "overlayProblem", m_services.overlayProblem);
    addExtension(section);
    section.rows.push_back(
        toggle("showStatusItem", wording.statusItem, wording.statusItemHelp, showsItem, [&](bool on) { preferences.setShowsStatusItem(on); }));
    if (showsItem)
        addNote(section, "statusItemProblem", m_services.statusItemProblem);
    if (!replaces && !showsItem)
        section.rows.push_back(note("noPresence", wording.noPresenceNote));
    addKeys(section);
    return section;
}

void GeneralSettings::addExtension(SettingsSection& section)
{
    using State = DesktopExtension::State;
    auto const state = m_services.extension ? m_services.extension->state() : State::missing;
    if (state == State::missing)
        return;
    section.rows.push_back(toggle("extension", tr("Laurel in GNOME’s top bar"),
        tr("Switches on our extension of GNOME Shell: a laurel at the left end, shortcuts, and the pointer’s place."), state != State::off, [this](bool on) {
            if (!m_services.extension->switchTo(on))
                m_services.alerts.run({ AlertStyle::warning, tr("The extension of GNOME Shell could not be switched."), {} });
            tellChanged();
        }));
    if (state == State::onFromNextLogin)
        section.rows.push_back(note("extensionNote", tr("It takes effect at the next login.")));
}

/// The desktop's own key stands alone where a shortcut of ours would do nothing; one that is left from then can be taken back.
void GeneralSettings::addKeys(SettingsSection& section)
{
    auto const key = m_desktopKey ? m_services.desktopKey->state() : DesktopKey::State {};
    bool const standsAlone = key.isOffered && m_services.hotkeySupport() == HotkeySupport::none;
    if (!standsAlone)
        addMenuShortcut(section);
    if (standsAlone || key.value)
        m_desktopKey->addTo(section);
}

/// Always adds a note, so that the page keeps its rows, and the recorder its key, when a conflict comes or goes.
void GeneralSettings::addMenuShortcut(SettingsSection& section)
{
    auto& shortcut = m_services.menuShortcut;
    auto made = row(Kind::shortcut, "menuShortcut", tr("Open by a key"));
    made.shortcut = shortcut.value();
    made.record = [&shortcut](auto const& spec) { shortcut.set(spec); };
    section.rows.push_back(std::move(made));
    section.rows.push_back(note("menuShortcutNote", menuShortcutNote()));
}

std::string GeneralSettings::menuShortcutNote() const
{
    auto const& value = m_services.menuShortcut.value();
    if (m_services.hotkeySupport && m_services.hotkeySupport() == HotkeySupport::none)
        return tr("This desktop does not let programs have shortcuts of their own.");
    if (m_services.menuShortcutIsTaken())
        return tr("Another program has this combination. Record a different one.");
    auto const warning = value ? warningOf(*value) : std::string();
    return warning.empty() ? tr("Opens the menu at the pointer, whatever program is in front.") : warning;
}

std::string GeneralSettings::warningOf(KeyEquivalentSpec const& spec) const
{
    return m_services.shortcutWarning ? m_services.shortcutWarning(spec) : std::string();
}

SettingsSection GeneralSettings::login()
{
    auto const state = m_services.loginItem.state();
    SettingsSection section { tr("Login"), {} };
    bool const isOn = state != LoginItem::State::disabled;
    section.rows.push_back(toggle("openAtLogin", tr("Open at login"), m_services.wording.openAtLoginHelp, isOn, [this](bool on) { setOpensAtLogin(on); }));
    if (state != LoginItem::State::requiresApproval)
        return section;
    section.rows.push_back(note("loginApproval", m_services.wording.loginApprovalNote));
    section.rows.push_back(button("loginSettings", m_services.wording.loginApprovalButton, [this] { m_services.loginItem.openSettings(); }));
    return section;
}

void GeneralSettings::setOpensAtLogin(bool opens)
{
    auto const tell = [this](auto const& changed) {
        if (!changed)
            m_services.alerts.run(LoginItem::alertFor(m_services.wording.loginFailure(changed.error().description)));
    };
    if (opens)
        tell(m_services.loginItem.enable());
    else
        tell(m_services.loginItem.disable());
    tellChanged();
}

void GeneralSettings::tellChanged() const
{
    if (onChanged)
        onChanged();
}

SettingsSection GeneralSettings::menus()
{
    auto& preferences = m_services.preferences;
    SettingsSection section { tr("Menus"), {} };
    section.rows.push_back(
        toggle("showIcons", tr("Icons"), tr("Shows a picture beside each entry."), preferences.showIcons(), [&](bool on) { preferences.setShowIcons(on); }));
    if (!m_services.wording.commandIcons.empty()) {
        section.rows.push_back(toggle("showCommandIcons", m_services.wording.commandIcons, m_services.wording.commandIconsHelp, preferences.showCommandIcons(),
            [&](bool on) { preferences.setShowCommandIcons(on); }));
        section.rows.back().isIndented = true;
        section.rows.back().isEnabled = preferences.showIcons();
    }
    section.rows.push_back(toggle("showHiddenFiles", tr("Hidden files"), tr("Lists files in folder submenus that are hidden otherwise."),
        preferences.showHiddenFiles(), [&](bool on) { preferences.setShowHiddenFiles(on); }));
    section.rows.push_back(toggle("sortFoldersFirst", tr("Folders first"), tr("Lists folders before files."), preferences.sortFoldersFirst(),
        [&](bool on) { preferences.setSortFoldersFirst(on); }));
    section.rows.push_back(choice("recentItems", tr("Recent items"), tr("How many entries a list of recent items has."), preferences.recentItemsLimit(),
        numbers({ 5, 10, 15, 20, 30, 50 }), [&](std::int64_t value) { preferences.setRecentItemsLimit(value); }));
    section.rows.push_back(choice("scanDepth", tr("Levels of folders"), tr("How deep folders open as submenus; the last level opens in the file manager."),
        preferences.maximumScanDepth(), numbers({ 1, 2, 3, 5, 10, 20 }), [&](std::int64_t value) { preferences.setMaximumScanDepth(value); }));
    section.rows.push_back(choice("itemsPerFolder", tr("Items per folder"), tr("How many entries of a folder are listed; the rest is counted."),
        preferences.maximumItemsPerFolder(), numbers({ 50, 100, 250, 500, 1000 }), [&](std::int64_t value) { preferences.setMaximumItemsPerFolder(value); }));
    section.rows.push_back(choice("prescanDepth", tr("Look for shortcuts in file names"),
        tr("Searches the folders of your menu for names such as “Example-*[cmd+opt+E]*” when Zanthe Vell starts. A folder that you opened in the menu is known "
           "without it."),
        preferences.hotkeyPrescanDepth(), { { trc("looking for shortcuts", "Off"), 0 }, choiceOfLevels(1), choiceOfLevels(2), choiceOfLevels(3) },
        [&](std::int64_t value) { preferences.setHotkeyPrescanDepth(value); }));
    section.rows.push_back(toggle("rememberChoices", tr("Remember what was chosen"),
        tr("What was chosen last comes first when you search in the menu. Turning this off forgets it."), preferences.remembersChoices(),
        [&](bool on) { preferences.setRemembersChoices(on); }));
    addNote(section, "hotkeyProblem", m_services.hotkeyProblem);
    addBindingLines(section);
    return section;
}

void GeneralSettings::addBindingLines(SettingsSection& section)
{
    auto const lines = m_services.bindingLines ? m_services.bindingLines() : std::vector<KeyBindingLine>();
    if (lines.empty())
        return;
    std::string text;
    for (auto const& each : lines)
        text += each.line + "\n";
    auto copy = button("copyBindings", tr("Copy Lines"), [this, text] { m_services.copy(text); });
    copy.help = tr("Copies a line for each shortcut of your menu, to be pasted into %1.", lines.front().file);
    section.rows.push_back(std::move(copy));
}

SettingsSection GeneralSettings::fileShortcuts()
{
    SettingsSection section { tr("Shortcuts in file names"), {} };
    auto const held = m_services.fileShortcuts ? m_services.fileShortcuts() : std::map<Url, std::string>();
    for (auto const& [file, shortcut] : held) {
        auto const id = file.toString();
        section.rows.push_back(note("shortcut " + id, displayText(shortcut + "   " + file.path())));
        auto remove = button("takeAway " + id, tr("Take Away"), [this, url = file] { takeShortcutAway(url); });
        remove.help = tr("Renames the file to %1.", quoted(displayText(nameWithoutShortcut(file))));
        remove.isIndented = true;
        section.rows.push_back(std::move(remove));
    }
    return section;
}

void GeneralSettings::takeShortcutAway(Url const& file)
{
    auto const renamed = m_services.rename(file, file.parent().appending(nameWithoutShortcut(file)));
    if (!renamed)
        m_services.alerts.run(
            { AlertStyle::warning, tr("%1 could not be renamed.", quoted(displayText(file.lastPathComponent()))), settingsTexts::asSentence(renamed.error()) });
}

SettingsSection GeneralSettings::updates()
{
    auto& updater = m_services.updater;
    auto const problem = updater.startProblem();
    SettingsSection section { tr("Updates"), {} };
    if (problem)
        section.rows.push_back(note("startProblem", *problem));
    if (problem && !updater.canCheckForUpdates())
        return section; // nothing else would do anything
    section.rows.push_back(toggle(
        "checksAutomatically", tr("Look for updates automatically"), "", updater.checksAutomatically(), [&](bool on) { updater.setChecksAutomatically(on); }));
    section.rows.push_back(
        note("updatePrivacy", tr("Once a day, Zanthe Vell asks for the list of its versions. The request says nothing about you or this computer.")));
    auto check = button("checkNow", tr("Check Now"), [&] { updater.checkForUpdates(); });
    check.isEnabled = updater.canCheckForUpdates();
    section.rows.push_back(std::move(check));
    auto const last = updater.lastCheckDate();
    section.rows.push_back(note("lastCheck", last ? tr("Last check: %1", localizedDateAndTime(*last)) : tr("Last check: never")));
    return section;
}

SettingsSection GeneralSettings::menuFile()
{
    auto& file = m_services.menuFile;
    SettingsSection section { tr("Menu file"), {} };
    addNote(section, "saveProblem", m_services.saveProblem);
    section.rows.push_back(button("exportMenu", tr("Export…"), [&] { file.exportMenu(); }));
    if (m_services.exportAll) {
        section.rows.push_back(button("exportAll", tr("Export All…"), m_services.exportAll));
        section.rows.back().help = tr("The menu, the preferences, your own items and pictures in one file, for another machine. Import takes it in.");
    }
    section.rows.push_back(button("importMenu", tr("Import…"), [&] { file.importMenu(); }));
    section.rows.push_back(button("resetMenu", tr("Restore Default Menu…"), [&] { file.restoreDefaultMenu(); }));
    auto const backups = file.backups();
    if (backups.empty())
        return section;
    std::vector<SettingsChoice> choices;
    for (std::size_t i = 0; i < backups.size(); ++i) {
        auto const time = localizedDateAndTime(backups[i].time);
        // TRANSLATORS: a menu of that date and time, which the program could not read
        choices.push_back({ backups[i].isReadable ? time : tr("%1 (was not readable)", time), static_cast<std::int64_t>(i) });
    }
    auto restore = row(Kind::pullDown, "backups", tr("Restore a Backup…"));
    restore.help = tr("The last menus, each kept before it was changed. What one holds is said before it is restored.");
    restore.choices = std::move(choices);
    restore.choose = [this, &file, backups](auto index) {
        file.restoreBackup(backups.at(static_cast<std::size_t>(index)));
        tellChanged();
    };
    section.rows.push_back(std::move(restore));
    if (file.isRestored()) {
        section.rows.push_back(note("restored", tr("Restored.")));
        section.rows.push_back(button("undoRestoring", tr("Undo"), [this, &file] {
            file.undoRestoring();
            tellChanged();
        }));
    }
    return section;
}

} // namespace zv
