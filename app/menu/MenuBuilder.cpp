#include "app/menu/MenuBuilder.h"

#include "app/menu/DisplayText.h"
#include "app/menu/DockMenu.h"
#include "app/menu/DynamicSubmenu.h"
#include "app/menu/EntryMenus.h"
#include "app/menu/FileEntry.h"
#include "app/menu/MenuKeyEquivalent.h"
#include "base/MainThread.h"
#include "base/Translation.h"

#include <algorithm>
#include <utility>

namespace zv {

namespace {

constexpr Sentence noItemsTitle = mark("No Items");
constexpr Sentence missingFileToolTip = mark("This item points at a file that no longer exists. Choose a new target in Settings.");
constexpr char const* systemInformationIdentifier = "com.apple.SystemProfiler";

/// An entry with a submenu; the menu has the same title.
MenuEntry entryWithSubmenu(std::string title)
{
    MenuEntry entry;
    entry.submenu = std::make_shared<Menu>(title);
    entry.title = std::move(title);
    return entry;
}

MenuEntry itemWithTarget(std::string title, std::shared_ptr<MenuActionTarget> target)
{
    MenuEntry entry;
    entry.title = std::move(title);
    entry.representedObject = target;
    entry.target = std::move(target);
    return entry;
}

/// Null for an item without choices.
FolderChoicesRef choicesOf(MenuItem const& item)
{
    auto choices = folderChoicesOf(item);
    return choices == FolderChoices {} ? nullptr : std::make_shared<FolderChoices const>(std::move(choices));
}

KeyEquivalentSpec commandKey(char const* character) { return { .trigger = KeyEquivalentSpec::Trigger::character(character) }; }

/// Guesses from the name, as remote files are not touched before their submenu opens: a name
/// without an extension counts as a folder's.
FileTraits presumedTraits(Url const& url) { return { pathExtension(url.lastPathComponent()).empty(), false }; }

} // namespace

MenuBuilder::MenuBuilder(Services services, SubmenuSources const& sources)
    : m_services(services)
    , m_sources(sources)
{
}

void MenuBuilder::buildMenu(Menu& menu, std::vector<MenuItem> const& items, OptionKey option) const
{
    appendItems(menu, items, option);
    appendStandardItems(menu, option == OptionKey::held ? AppCommands::included : AppCommands::omitted,
        menuContainsQuitItem(menu) ? QuitCommand::omitted : QuitCommand::included);
}

void MenuBuilder::appendItems(Menu& menu, std::vector<MenuItem> const& items, OptionKey option) const
{
    assertMainThread();
    menu.entries.clear();
    menu.entries.reserve(items.size());
    for (auto const& item : items) {
        if (!item.isHidden)
            menu.entries.push_back(makeItem(item, option));
    }
}

void MenuBuilder::appendStandardItems(Menu& menu, AppCommands appCommands, QuitCommand quit) const
{
    menu.entries.push_back(MenuEntry::separator());
    menu.entries.push_back(makeCustomizeItem());
    if (appCommands == AppCommands::omitted)
        return;
    menu.entries.push_back(makeUpdateItem());
    if (quit == QuitCommand::included)
        menu.entries.push_back(makeTrailingQuitItem());
}

bool MenuBuilder::menuContainsQuitItem(Menu const& menu)
{
    return std::any_of(menu.entries.begin(), menu.entries.end(),
        [](MenuEntry const& entry) { return entry.identifier == quitIdentifier || (entry.submenu && menuContainsQuitItem(*entry.submenu)); });
}

/// Gives the entry what its own menu acts on; not to one that only Option shows, for which Option
/// would mean two things.
MenuEntry MenuBuilder::makeItem(MenuItem const& item, OptionKey option) const
{
    if (item.kind == MenuItemKind::aboutThisMac && option == OptionKey::held)
        return makeSystemInformationItem(item);
    auto entry = makeItemOfKind(item, option);
    if (entry.type == MenuEntry::Type::separator)
        return entry;
    applyPicture(item, entry);
    if (!entry.subject.menus)
        entry.subject = subjectOf(item);
    if (option == OptionKey::held && entry.submenu && entry.submenu->delegate.expired())
        m_services.entryMenus.addHead(*entry.submenu, entry.subject);
    return entry;
}

MenuEntry MenuBuilder::makeItemOfKind(MenuItem const& item, OptionKey option) const
{
    switch (item.kind.value()) {
    case MenuItemKind::separator:
        return MenuEntry::separator();
    case MenuItemKind::submenu:
        return makeGroupSubmenu(item, item.children, option);
    case MenuItemKind::fsObject:
        return makeFileItem(item);
    case MenuItemKind::dockMenu: {
        auto entry = makeGroupSubmenu(item, dockChildren(), option);
        applyKindIcon(item.kind, entry);
        return entry;
    }
    case MenuItemKind::quitZantheVell:
        return makeQuitItem(item);
    default:
        return makeGenericItem(item, option);
    }
}

MenuEntry MenuBuilder::makeGenericItem(MenuItem const& item, OptionKey option) const
{
    if (!item.children.empty())
        return makeGroupSubmenu(item, item.children, option);
    if (!item.kind.fillsItself())
        return makeCommandItem(item);
    auto entry = makeDynamicSubmenuItem(displayText(item.displayTitle()), DynamicMenuSource::kind(item.kind, item.location, depthOf(item)), subjectOf(item));
    applyKindIcon(item.kind, entry);
    return entry;
}

MenuEntry MenuBuilder::makeGroupSubmenu(MenuItem const& item, std::vector<MenuItem> const& children, OptionKey option) const
{
    auto entry = entryWithSubmenu(displayText(item.displayTitle()));
    appendItems(*entry.submenu, children, option);
    if (entry.submenu->entries.empty())
        entry.submenu->entries.push_back(MenuEntry::disabled(tr(noItemsTitle)));
    return entry;
}

MenuEntry MenuBuilder::makeCommandItem(MenuItem const& item) const
{
    auto title = displayText(item.displayTitle());
    auto entry = item.kind.isLegacy() ? MenuEntry::disabled(std::move(title))
                                      : makeActionItem(std::move(title), [&commands = m_services.commands, item] { commands.perform(item); });
    entry.toolTip = item.kind.unavailabilityReason().value_or("");
    applyKindIcon(item.kind, entry);
    if (item.keyEquivalent)
        applyKeyEquivalent(*item.keyEquivalent, entry);
    return entry;
}

MenuEntry MenuBuilder::makeFileItem(MenuItem const& item) const
{
    if (item.location && item.location->path) {
        auto const url = Url::fromPath(*item.location->path);
        if (m_sources.folders.isRemote(url))
            return makeFileItemForURL(item, url, presumedTraits(url));
    }
    auto const found = item.location ? item.location->resolve(m_services.locations) : ItemLocation::Resolution {};
    if (found.url)
        return makeFileItemForURL(item, *found.url, m_services.locations.files.traits(*found.url).value_or(FileTraits {}));
    if (found.kind == ItemLocation::Resolution::Kind::onUnmountedServer)
        return makeServerFileItem(item);
    auto missing = MenuEntry::disabled(displayText(item.displayTitle()));
    missing.toolTip = tr(missingFileToolTip);
    return missing;
}

MenuEntry MenuBuilder::makeFileItemForURL(MenuItem const& item, Url url, FileTraits traits) const
{
    auto title = displayText(item.displayTitle());
    if (auto reason = reasonFor(traits.fault))
        return makeUnavailableFile({ .title = title, .fileURL = url, .unavailabilityReason = std::move(reason) });
    bool const isFolder = traits.isDirectory && !traits.isPackage;
    auto subject = subjectOf(item);
    subject.entry = std::make_shared<DynamicEntry const>(
        DynamicEntry { .title = title, .url = url, .fileURL = url, .isDirectory = traits.isDirectory, .isPackage = traits.isPackage });
    bool const isScript = m_sources.scripts && m_sources.scripts->isScriptMenu(url);
    auto entry = isScript ? makeDynamicSubmenuItem(std::move(title), DynamicMenuSource::script(url), subject)
        : isFolder        ? makeDynamicSubmenuItem(std::move(title), DynamicMenuSource::folder(url, depthOf(item), choicesOf(item)), subject)
                          : makeActionItem(std::move(title), [&commands = m_services.commands, url] { commands.open(url); });
    entry.subject = std::move(subject);
    applyFileIcon(url, entry);
    if (item.keyEquivalent)
        applyKeyEquivalent(*item.keyEquivalent, entry);
    return entry;
}

/// Choosing it mounts the server; until then not even the kind of the file is known.
MenuEntry MenuBuilder::makeServerFileItem(MenuItem const& item) const
{
    auto entry = makeActionItem(displayText(item.displayTitle()), [&commands = m_services.commands, item] { commands.perform(item); });
    if (m_services.preferences.showIcons())
        entry.image = m_services.icons.networkIcon();
    if (item.keyEquivalent)
        applyKeyEquivalent(*item.keyEquivalent, entry);
    return entry;
}

MenuEntry MenuBuilder::makeSystemInformationItem(MenuItem const& item) const
{
    auto entry = makeActionItem(tr("System Information"), [&workspace = m_services.workspace] {
        if (auto const application = workspace.applicationWithIdentifier(systemInformationIdentifier))
            workspace.open(*application);
    });
    if (m_services.preferences.showIcons())
        applyFileIcon(m_services.workspace.applicationWithIdentifier(systemInformationIdentifier), entry);
    if (item.keyEquivalent)
        applyKeyEquivalent(*item.keyEquivalent, entry);
    return entry;
}

MenuEntry MenuBuilder::makeQuitItem(MenuItem const& item) const
{
    auto entry = makeCommandItem(item);
    entry.identifier = quitIdentifier;
    return entry;
}

MenuEntry MenuBuilder::makeCustomizeItem() const
{
    auto entry = makeActionItem(tr("Customize Zanthe Vell…"), [&commands = m_services.commands] { commands.openSettingsWindow(); });
    applyKeyEquivalent(commandKey(","), entry);
    applyKindIcon(MenuItemKind::customizeZantheVell, entry);
    return entry;
}

MenuEntry MenuBuilder::makeUpdateItem() const
{
    auto entry = makeActionItem(tr("Check for Updates…"), [&commands = m_services.commands] { commands.checkForUpdates(); });
    entry.enabled = m_services.commands.canCheckForUpdates();
    return entry;
}

MenuEntry MenuBuilder::makeTrailingQuitItem() const
{
    auto entry = makeActionItem(tr("Quit Zanthe Vell"), [&commands = m_services.commands] { commands.terminate(); });
    applyKeyEquivalent(commandKey("q"), entry);
    return entry;
}

MenuEntry MenuBuilder::makeEntryItem(std::shared_ptr<DynamicEntry const> const& entry, std::int64_t remainingDepth, FolderChoicesRef const& choices) const
{
    if (entry->isSeparator)
        return MenuEntry::separator();
    if (!entry->url && !entry->unavailabilityReason)
        return MenuEntry::disabled(entry->title);
    auto item = makeItemWithoutIcon(entry, remainingDepth, choices);
    applyFileIcon(entry->fileURL, item);
    return item;
}

MenuEntry MenuBuilder::makeItemWithoutIcon(std::shared_ptr<DynamicEntry const> const& entry, std::int64_t remainingDepth, FolderChoicesRef const& choices) const
{
    if (entry->unavailabilityReason) {
        auto missing = makeUnavailableFile(*entry);
        if (entry->recentList) // to be let go
            missing.subject = { &m_services.entryMenus, entry, {} };
        return missing;
    }
    if (entry->isDirectory && !entry->isPackage && remainingDepth >= 1)
        return makeDynamicSubmenuItem(entry->title, DynamicMenuSource::folder(*entry->url, remainingDepth - 1, choices), { &m_services.entryMenus, entry, {} });
    // Two pointers fit into the function object; the target keeps the entry alive.
    auto open = [commands = &m_services.commands, opened = entry.get()] { commands->open(*opened); };
    auto item = itemWithTarget(entry->title, std::make_shared<MenuActionTarget>(open, entry));
    item.subject = { &m_services.entryMenus, entry, {} };
    return item;
}

MenuEntry MenuBuilder::makeDynamicSubmenuItem(std::string title, DynamicMenuSource source, EntrySubject subject) const
{
    auto entry = entryWithSubmenu(std::move(title));
    entry.subject = std::move(subject);
    auto const delegate = std::make_shared<DynamicSubmenuDelegate>(std::move(source), entry.subject, *this, m_sources);
    entry.submenu->delegate = delegate;
    entry.representedObject = delegate;
    showLoading(*entry.submenu);
    return entry;
}

MenuEntry MenuBuilder::makeUnavailableItem(std::string title, std::string reason)
{
    auto entry = MenuEntry::disabled(std::move(title));
    entry.attributedTitle = AttributedTitle { .text = entry.title, .italic = true };
    entry.toolTip = std::move(reason);
    return entry;
}

/// Keeps its picture: a column of icons with gaps reads as if something had failed.
MenuEntry MenuBuilder::makeUnavailableFile(DynamicEntry const& entry) const
{
    auto item = makeUnavailableItem(entry.title, *entry.unavailabilityReason);
    if (entry.fileURL)
        applyFileIcon(*entry.fileURL, item);
    return item;
}

MenuEntry MenuBuilder::makeActionItem(std::string title, std::function<void()> run)
{
    return itemWithTarget(std::move(title), std::make_shared<MenuActionTarget>(std::move(run)));
}

EntrySubject MenuBuilder::subjectOf(MenuItem const& item) const { return { &m_services.entryMenus, nullptr, item.id }; }

void MenuBuilder::applyKindIcon(MenuItemKind const& kind, MenuEntry& entry) const
{
    if (m_services.preferences.showIcons())
        entry.image = m_services.icons.iconForKind(kind);
}

void MenuBuilder::applyCategoryIcon(ApplicationCategory category, MenuEntry& entry) const
{
    if (m_services.preferences.showIcons())
        entry.image = m_services.icons.iconForCategory(category);
}

void MenuBuilder::applyFileIcon(std::optional<Url> const& url, MenuEntry& entry) const
{
    if (url && m_services.preferences.showIcons())
        entry.image = m_services.icons.iconForFile(*url);
}

void MenuBuilder::applyPicture(MenuItem const& item, MenuEntry& entry) const
{
    auto const picture = m_services.preferences.showIcons() ? pictureOf(item) : std::nullopt;
    if (picture)
        entry.image = m_services.icons.iconForPicture(*picture, entry.image);
}

std::int64_t MenuBuilder::depthOf(MenuItem const& item) const { return item.scanDepth.value_or(m_services.preferences.maximumScanDepth()); }

std::vector<MenuItem> const& MenuBuilder::dockChildren() const
{
    if (!m_dockChildren)
        m_dockChildren = loadDockMenu(m_services.resources);
    return *m_dockChildren;
}

} // namespace zv
