#include "app/menu/DynamicSubmenu.h"

#include "app/menu/ApplicationMenu.h"
#include "app/menu/EntryMenus.h"
#include "app/menu/HotkeyHints.h"
#include "app/menu/MenuBuilder.h"
#include "base/MainThread.h"
#include "base/Translation.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace zv {

namespace {

constexpr std::chrono::seconds patience { 10 };
constexpr std::size_t overflowLineCount = 2; ///< a separator and the line
constexpr Sentence loadingTitle = mark("Loading…");
constexpr Sentence noApplicationsTitle = mark("No Applications");
constexpr Sentence noItemsTitle = mark("No Items");
constexpr Sentence emptyFolderTitle = mark("Empty Folder");
constexpr Sentence noVolumeResponseTitle = mark("This volume did not respond.");

/// A stored limit below zero counts as zero.
std::size_t itemLimit(Preferences const& preferences) { return static_cast<std::size_t>(std::max<std::int64_t>(preferences.maximumItemsPerFolder(), 0)); }

FolderListingOptions optionsFor(Preferences const& preferences, FolderChoicesRef const& choices)
{
    FolderListingOptions options { preferences.showHiddenFiles(), preferences.sortFoldersFirst(), itemLimit(preferences) };
    if (!choices)
        return options;
    options.showHiddenFiles = choices->showHidden.value_or(options.showHiddenFiles);
    options.sortFoldersFirst = choices->foldersFirst.value_or(options.sortFoldersFirst);
    options.order = choices->order;
    options.isReversed = choices->isReversed;
    options.filter = choices->filter;
    return options;
}

void replaceEntries(Menu& menu, MenuEntry only)
{
    menu.entries.clear();
    menu.entries.push_back(std::move(only));
}

/// Keeps the entries in one block, which all items made of them share.
void appendItems(Menu& menu, std::vector<DynamicEntry> entries, std::int64_t depth, MenuBuilder const& builder, FolderChoicesRef const& choices)
{
    auto const shared = std::make_shared<std::vector<DynamicEntry> const>(std::move(entries));
    menu.entries.reserve(shared->size() + overflowLineCount);
    for (auto const& entry : *shared)
        menu.entries.push_back(builder.makeEntryItem(std::shared_ptr<DynamicEntry const>(shared, &entry), depth, choices));
    applyHotkeyHints(*shared, menu.entries, builder.text());
}

void appendOverflowLine(Menu& menu, std::size_t leftOut)
{
    menu.entries.push_back(MenuEntry::separator());
    menu.entries.push_back(MenuEntry::disabled(trn("%1 more item…", "%1 more items…", leftOut)));
}

} // namespace

void tidySeparators(std::vector<DynamicEntry>& entries)
{
    auto const isDoubled = [](DynamicEntry const& a, DynamicEntry const& b) { return a.isSeparator && b.isSeparator; };
    auto const firstShown = std::find_if(entries.begin(), entries.end(), [](auto const& entry) { return !entry.isSeparator; });
    entries.erase(entries.begin(), firstShown);
    entries.erase(std::unique(entries.begin(), entries.end(), isDoubled), entries.end());
    if (!entries.empty() && entries.back().isSeparator)
        entries.pop_back();
}

void showLoading(Menu& menu) { replaceEntries(menu, MenuEntry::disabled(tr(loadingTitle))); }

bool isLoading(Menu const& menu) { return !menu.entries.empty() && !menu.entries.back().enabled && menu.entries.back().title == tr(loadingTitle); }

void populate(Menu& menu, EntryList list, std::int64_t depth, std::string_view emptyTitle, MenuBuilder const& builder, FolderChoicesRef const& choices)
{
    assertMainThread();
    auto& entries = list.entries;
    auto const shown = std::min(entries.size(), itemLimit(builder.preferences()));
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(shown), entries.end());
    tidySeparators(entries);
    if (entries.empty()) {
        replaceEntries(menu, MenuEntry::disabled(std::string(emptyTitle)));
        return;
    }
    menu.entries.clear();
    appendItems(menu, std::move(entries), depth, builder, choices);
    if (list.totalCount > shown)
        appendOverflowLine(menu, list.totalCount - shown);
}

DynamicSubmenuDelegate::DynamicSubmenuDelegate(DynamicMenuSource source, EntrySubject subject, MenuBuilder const& builder, SubmenuSources const& sources)
    : m_source(std::move(source))
    , m_subject(std::move(subject))
    , m_builder(builder)
    , m_sources(sources)
{
}

void DynamicSubmenuDelegate::menuNeedsUpdate(Menu& menu)
{
    assertMainThread();
    ++m_opening; // what an earlier opening still waits for is dropped
    m_hasHead = m_sources.openingKeys.option() == OptionKey::held;
    m_isFilling = true;
    std::visit([&](auto const& source) { fill(menu, source); }, m_source.value);
    m_isFilling = false;
    addHead(menu);
}

void DynamicSubmenuDelegate::addHead(Menu& menu) const
{
    if (m_hasHead && m_subject.menus)
        m_subject.menus->addHead(menu, m_subject);
}

void DynamicSubmenuDelegate::fill(Menu& menu, DynamicMenuSource::Folder const& folder)
{
    if (m_sources.applications && m_sources.applications->contains(folder.url))
        return fillApplications(menu);
    auto const& preferences = m_builder.preferences();
    auto const options = optionsFor(preferences, folder.choices);
    if (m_sources.folders.isRemote(folder.url))
        fillRemoteFolder(menu, folder, options);
    else
        show(menu, folder, m_sources.folders.list(folder.url, options));
}

template <class Change> auto DynamicSubmenuDelegate::later(Menu& menu, Change change)
{
    auto const opening = m_opening;
    return m_lifetime.guard([this, opening, weak = menu.weak_from_this(), change = std::move(change)](auto&&... arguments) mutable {
        auto const stillThere = weak.lock();
        if (!stillThere || opening != m_opening)
            return;
        change(*stillThere, std::forward<decltype(arguments)>(arguments)...);
        if (m_isFilling)
            return;
        addHead(*stillThere);
        stillThere->didRefill();
    });
}

void DynamicSubmenuDelegate::fill(Menu& menu, DynamicMenuSource::List const& source)
{
    auto* const list = m_sources.lists.listOf(source.kind);
    if (!list) {
        replaceEntries(menu, MenuEntry::disabled(tr(noItemsTitle)));
        return;
    }
    showLoading(menu);
    if (!list->noResponseTitle().empty())
        startPatience(menu, list->noResponseTitle());
    list->fill(later(menu, [this, list, depth = source.depth](Menu& answered, ListContent content) {
        m_patience.reset();
        show(answered, *list, std::move(content), depth);
    }));
}

/// Shows what the script gave last at once, and what it gives now when that differs.
void DynamicSubmenuDelegate::fill(Menu& menu, DynamicMenuSource::Script const& script)
{
    auto& scripts = *m_sources.scripts;
    if (auto const* known = scripts.last(script.url))
        show(menu, script, *known);
    else
        showLoading(menu);
    scripts.run(script.url, later(menu, [this, script](Menu& answered, ScriptResult const& result) { show(answered, script, result); }));
}

void DynamicSubmenuDelegate::show(Menu& menu, DynamicMenuSource::Script const& script, ScriptResult const& result) const
{
    menu.entries = m_sources.scripts->entriesFor(script.url, result, m_hasHead ? OptionKey::held : OptionKey::released);
}

void DynamicSubmenuDelegate::fillRemoteFolder(Menu& menu, DynamicMenuSource::Folder const& folder, FolderListingOptions const& options)
{
    showLoading(menu);
    startPatience(menu, tr(m_builder.files().volumeName(folder.url) ? noVolumeResponseTitle : silentFolderTitle));
    m_sources.folders.listInBackground(folder.url, options, later(menu, [this, folder](Menu& answered, FolderListing listing) {
        m_patience.reset();
        show(answered, folder, std::move(listing));
    }));
}

void DynamicSubmenuDelegate::fillApplications(Menu& menu)
{
    showLoading(menu);
    m_sources.applications->list(later(menu, [this](Menu& answered, std::vector<InstalledApplication> const& found) { showApplications(answered, found); }));
}

void DynamicSubmenuDelegate::showApplications(Menu& menu, std::vector<InstalledApplication> const& applications) const
{
    if (applications.size() < fewestGroupedApplications)
        return populate(menu, applicationEntries(applications), 0, tr(noApplicationsTitle), m_builder);
    menu.entries.clear();
    for (auto& group : groupedByCategory(applications)) {
        MenuEntry entry;
        entry.title = titleOf(group.category);
        entry.submenu = std::make_shared<Menu>(entry.title);
        m_builder.applyCategoryIcon(group.category, entry);
        populate(*entry.submenu, std::move(group.entries), 0, tr(noApplicationsTitle), m_builder);
        menu.entries.push_back(std::move(entry));
    }
}

void DynamicSubmenuDelegate::startPatience(Menu& menu, std::string reason)
{
    auto giveUp = [reason = std::move(reason)](Menu& silent) { replaceEntries(silent, MenuBuilder::makeUnavailableItem(reason, reason)); };
    m_patience = m_sources.timers.after(patience, later(menu, std::move(giveUp)));
}

void DynamicSubmenuDelegate::show(Menu& menu, DynamicMenuSource::Folder const& folder, FolderListing listing)
{
    m_sources.listedFolders.folderListed(folder.url, listing.withHotkeys);
    populate(menu, { std::move(listing.entries), listing.totalCount }, folder.depth, tr(emptyFolderTitle), m_builder, folder.choices);
}

void DynamicSubmenuDelegate::show(Menu& menu, DynamicList const& list, ListContent content, std::int64_t depth) const
{
    if (auto* const entries = std::get_if<std::vector<DynamicEntry>>(&content))
        return populate(menu, std::move(*entries), depth, list.emptyTitle(), m_builder);
    menu.entries = std::get<std::vector<MenuEntry>>(std::move(content));
    if (menu.entries.empty())
        menu.entries.push_back(MenuEntry::disabled(list.emptyTitle()));
}

} // namespace zv
