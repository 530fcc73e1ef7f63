#include "app/search/SubmenuSearch.h"

#include "app/menu/ApplicationMenu.h"
#include "app/menu/EntryIdentity.h"
#include "app/menu/FileEntry.h"
#include "app/menu/MenuBuilder.h"
#include "base/MainThread.h"
#include "base/Translation.h"

#include <algorithm>
#include <utility>

namespace zv {

namespace {

constexpr std::chrono::milliseconds firstStep { 8 }; ///< the first answer comes within a frame
constexpr std::chrono::milliseconds laterSteps { 150 };
constexpr char const* openIsolate = "\u2068";
constexpr char const* closeIsolate = "\u2069";

std::vector<std::string> extended(std::vector<std::string> way, std::string title)
{
    way.push_back(std::move(title));
    return way;
}

std::shared_ptr<EntryWay const> wayOf(std::vector<std::string> const& titles)
{
    EntryWay way;
    for (auto const& title : titles)
        way.text += (way.text.empty() ? "" : " ▸ ") + (openIsolate + title) + closeIsolate;
    // TRANSLATORS: where a search found an entry, for screen readers: the titles of the submenus that lead to it
    way.spoken = tr("in %1", listed(titles));
    return std::make_shared<EntryWay const>(std::move(way));
}

/// The system's whole disk is left out: it holds all that the menu's folders hold, and little else that is looked for.
bool isWorthReading(Url const& folder) { return folder.path() != "/"; }

std::optional<SearchRoot> rootBelow(DynamicEntry const& entry, std::int64_t depth, std::vector<std::string> const& way)
{
    bool const hasSubmenu = entry.isDirectory && !entry.isPackage && !entry.unavailabilityReason && depth >= 1;
    if (!hasSubmenu || !entry.url || !entry.url->isFile() || !isWorthReading(*entry.url))
        return std::nullopt;
    return SearchRoot { *entry.url, depth - 1, extended(way, entry.title) };
}

DynamicMenuSource const* sourceOf(Menu const& menu)
{
    auto const filling = std::dynamic_pointer_cast<DynamicSubmenuDelegate>(menu.delegate.lock());
    return filling ? &filling->source() : nullptr;
}

} // namespace

SubmenuSearch::SubmenuSearch(Services services, Menu const& start)
    : m_services(std::move(services))
    , m_start(start.weak_from_this())
    , m_walk(std::make_shared<FolderWalk>(m_services.sources.folders.reader(), m_services.files,
          m_services.builder.preferences().showHiddenFiles() ? HiddenFiles::included : HiddenFiles::skipped))
    , m_ages(m_services.chosen ? m_services.chosen->ages() : std::make_shared<ChosenAges const>())
{
}

SubmenuSearch::~SubmenuSearch() { m_walk->stop(); }

void SubmenuSearch::find(std::string text, std::size_t matches)
{
    assertMainThread();
    m_answered = m_rankings; // answers to earlier texts are late
    bool const isWanted = matches < enoughMatches && !SearchQuery(text).isEmpty();
    m_text = isWanted ? std::move(text) : std::string();
    if (!m_text.empty() && !std::exchange(m_hasBegun, true))
        begin();
    if (!m_text.empty() && !(isComplete() && m_places.empty()))
        goOn();
    else if (onFound)
        onFound({ {}, true });
}

void SubmenuSearch::begin()
{
    auto const start = m_start.lock();
    if (!start)
        return;
    for (auto const& entry : start->entries)
        m_shown.insert(identityOf(entry.subject));
    collect(*start, {});
    askNextList();
}

/// Notes the submenus of a menu, and the entries of those that are filled already.
void SubmenuSearch::collect(Menu const& menu, Way const& way)
{
    for (auto const& entry : menu.entries) {
        if (!entry.submenu)
            continue;
        auto const wayBelow = extended(way, entry.visibleTitle());
        if (auto const* source = sourceOf(*entry.submenu)) {
            collectSource(*source, wayBelow);
        } else if (entry.submenu->delegate.expired()) {
            addGroup(entry.submenu->entries, wayBelow);
            collect(*entry.submenu, wayBelow);
        }
    }
}

void SubmenuSearch::collectSource(DynamicMenuSource const& source, Way const& way)
{
    if (auto const* list = std::get_if<DynamicMenuSource::List>(&source.value))
        m_unasked.push_back([this, asked = *list, way] { ask(asked, way); });
    else if (auto const* folder = std::get_if<DynamicMenuSource::Folder>(&source.value))
        collectFolder(*folder, way);
    else if (auto const* script = std::get_if<DynamicMenuSource::Script>(&source.value))
        collectScript(script->url, way);
}

void SubmenuSearch::collectFolder(DynamicMenuSource::Folder const& folder, Way const& way)
{
    auto const* applications = m_services.sources.applications;
    if (applications && applications->contains(folder.url))
        m_unasked.push_back([this, way] { askApplications(way); });
    else if (isWorthReading(folder.url))
        m_roots.push_back({ folder.url, folder.depth, way });
}

/// Takes what the script gave last: typing runs none.
void SubmenuSearch::collectScript(Url const& script, Way const& way)
{
    auto* scripts = m_services.sources.scripts;
    auto const* known = scripts ? scripts->last(script) : nullptr;
    if (!known)
        return;
    auto const shown = std::make_shared<Menu>();
    shown->entries = scripts->entriesFor(script, *known, OptionKey::released);
    addGroup(shown->entries, way);
    collect(*shown, way);
}

void SubmenuSearch::addGroup(std::vector<MenuEntry> entries, Way const& way)
{
    SearchPlace place { .way = way, .titles = {}, .folder = std::nullopt };
    for (auto const& entry : entries) {
        bool const isFound = entry.type == MenuEntry::Type::item && entry.enabled;
        place.titles.add(isFound ? entry.visibleTitle() : std::string());
        place.identities.push_back(identityOf(entry.subject));
    }
    addPlace(std::move(place), std::move(entries));
}

void SubmenuSearch::addList(Listed listed, Way const& way)
{
    SearchPlace place { .way = way, .titles = {}, .folder = std::nullopt };
    for (auto const& entry : listed.entries) {
        bool const isFound = !entry.isSeparator && entry.url && !entry.unavailabilityReason;
        place.titles.add(isFound ? entry.title : std::string());
        place.identities.push_back(identityOf(entry));
        if (auto root = rootBelow(entry, listed.depth, way))
            m_roots.push_back(std::move(*root));
    }
    addPlace(std::move(place), std::move(listed));
}

void SubmenuSearch::addPlace(SearchPlace place, std::variant<std::vector<MenuEntry>, Listed> entries)
{
    place.number = m_entries.size();
    m_entries.push_back(std::move(entries));
    std::vector<SearchPlace> places;
    places.push_back(std::move(place));
    m_places.push_back(std::make_shared<std::vector<SearchPlace> const>(std::move(places)));
}

void SubmenuSearch::ask(DynamicMenuSource::List const& source, Way const& way)
{
    auto* const list = m_services.sources.lists.listOf(source.kind);
    if (!list)
        return;
    list->fill(m_lifetime.guard([this, depth = source.depth, way](ListContent content) {
        if (auto* entries = std::get_if<std::vector<DynamicEntry>>(&content))
            addList({ std::move(*entries), depth }, way);
        else
            addGroup(std::get<std::vector<MenuEntry>>(std::move(content)), way);
        goOn();
    }));
}

void SubmenuSearch::askApplications(Way const& way)
{
    m_services.sources.applications->list(m_lifetime.guard([this, way](std::vector<InstalledApplication> const& found) {
        if (found.size() < fewestGroupedApplications)
            addList({ applicationEntries(found), 0 }, way);
        else
            for (auto& group : groupedByCategory(found))
                addList({ std::move(group.entries), 0 }, extended(way, std::string(titleOf(group.category))));
        goOn();
    }));
}

/// Asks one list in each turn of the loop, which goes on drawing and taking keys in between.
void SubmenuSearch::askNextList()
{
    if (m_unasked.empty())
        return;
    m_services.tasks.runOnMain(m_lifetime.guard([this] {
        auto const askList = std::move(m_unasked.front());
        m_unasked.pop_front();
        askNextList();
        askList();
    }));
}

/// Reads on, and answers with what is known.
void SubmenuSearch::goOn()
{
    if (m_text.empty())
        return;
    readOn();
    rank();
}

void SubmenuSearch::readOn()
{
    if (m_isReading || (m_walk->isDone() && m_roots.empty()))
        return;
    m_isReading = true;
    bool const isFirst = !std::exchange(m_hasRead, true);
    auto done = m_lifetime.guard([this](SearchPlaces const& read) {
        m_isReading = false;
        m_places.push_back(read);
        goOn();
    });
    m_services.tasks.runDetached([walk = m_walk, roots = std::exchange(m_roots, {}), duration = isFirst ? firstStep : laterSteps, done] {
        auto places = walk->step(roots, duration);
        return std::function<void()>([done, places]() mutable { done(places); });
    });
}

/// Rankings run side by side: an earlier one that ends later knows less, and is dropped.
void SubmenuSearch::rank()
{
    auto answered = [this, number = ++m_rankings, isFinal = isComplete()](std::vector<SearchMatch> const& matches) {
        if (number > m_answered)
            answer(matches, isFinal);
        m_answered = std::max(m_answered, number);
    };
    m_services.tasks.inBackground(
        TaskPriority::user, [places = m_places, text = m_text, ages = m_ages] { return bestMatches(places, SearchQuery(text), *ages, 2 * mostFound); },
        m_lifetime.guard(answered));
}

void SubmenuSearch::answer(std::vector<SearchMatch> const& matches, bool isFinal)
{
    Found found { {}, isFinal };
    auto seen = m_shown;
    for (auto const& match : matches) {
        auto entry = entryFor(match);
        auto const identity = identityOf(entry.subject);
        bool const isNew = identity.empty() || seen.insert(identity).second;
        if (isNew && found.entries.size() < mostFound)
            found.entries.push_back(std::move(entry));
    }
    if (onFound)
        onFound(std::move(found));
}

MenuEntry SubmenuSearch::entryFor(SearchMatch const& match) const
{
    auto const& place = *match.place;
    MenuEntry entry;
    if (place.folder) {
        auto const item = place.folder->contents[match.index];
        auto const url = place.folder->url.appending(item.name);
        entry = m_services.builder.makeEntryItem(listedEntry(url, { item.name, item.localizedName, item.traits }), place.folder->depth);
    } else if (auto const* made = std::get_if<std::vector<MenuEntry>>(&m_entries[place.number])) {
        entry = (*made)[match.index];
        entry.keyEquivalent.clear(); // it is shown, and acts, at its own place
    } else {
        auto const& listed = std::get<Listed>(m_entries[place.number]);
        entry = m_services.builder.makeEntryItem(listed.entries[match.index], listed.depth);
    }
    entry.way = wayOf(place.way);
    return entry;
}

} // namespace zv
