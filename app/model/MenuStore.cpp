#include "app/model/MenuStore.h"

#include "app/model/PlainText.h"
#include "base/Log.h"
#include "base/MainThread.h"
#include "base/Translation.h"
#include "platform/text/PropertyListFormat.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>
#include <utility>

namespace zv {

namespace {

enum Property : int { itemsProperty, unresolvedItemIDsProperty, lastSaveProperty };

/// The fallback when the default menu's resource is unusable.
constexpr MenuItemKind::Case builtInMenu[] = { MenuItemKind::aboutThisMac, MenuItemKind::separator, MenuItemKind::simpleSystemPrefs,
    MenuItemKind::customizeZantheVell, MenuItemKind::separator, MenuItemKind::sleep, MenuItemKind::restart, MenuItemKind::shutdown };

/// Whether its location, or one below it, was refreshed.
bool refresh(MenuItem& item, LocationServices services, std::set<Uuid>& unresolved)
{
    using Kind = ItemLocation::Resolution::Kind;
    auto const found = item.location ? item.location->resolve(services) : ItemLocation::Resolution { Kind::bookmark, {} };
    bool isRefreshed = found.kind == Kind::needsRefresh;
    if (isRefreshed)
        item.location->refresh(*found.url, services);
    if (found.kind == Kind::unresolved)
        unresolved.insert(item.id);
    for (auto& child : item.children)
        isRefreshed = refresh(child, services, unresolved) || isRefreshed;
    return isRefreshed;
}

std::vector<MenuItem> builtInItems()
{
    std::vector<MenuItem> items;
    std::transform(std::begin(builtInMenu), std::end(builtInMenu), std::back_inserter(items), MenuItem::ofKind);
    return items;
}

void cleanTitles(std::span<MenuItem> items)
{
    for (auto& item : items) {
        if (item.title)
            item.title = withoutControls(*item.title);
        cleanTitles(item.children);
    }
}

template <class T> void moveIn(std::vector<T>& list, std::set<std::size_t> const& offsets, std::size_t destination)
{
    std::vector<T> parts[3]; // before, moved, after
    for (std::size_t i = 0; i < list.size(); ++i)
        parts[offsets.contains(i) ? 1 : i < destination ? 0 : 2].push_back(std::move(list[i]));
    list.clear();
    for (auto& part : parts)
        std::move(part.begin(), part.end(), std::back_inserter(list));
}

/// The shortest one that covers both, the second of which comes later.
MenuStretch united(MenuStretch const& stretch, std::size_t index)
{
    auto const first = std::min(stretch.first, index);
    auto const end = std::max(stretch.first + stretch.after, index + 1);
    return { first, end - first + stretch.before - stretch.after, end - first };
}

bool isDictionary(PropertyList const& value) { return value.dictionary() != nullptr; }

} // namespace

MenuStore::MenuStore(Services services)
    : m_services(services)
{
    assertMainThread();
    load();
}

void MenuStore::load()
{
    auto stored = storedMenu();
    setItems(stored ? std::move(*stored) : defaultMenu());
}

std::vector<MenuItem> const& MenuStore::items() const
{
    m_registrar.access(itemsProperty);
    return m_items;
}

std::set<Uuid> const& MenuStore::unresolvedItemIDs() const
{
    m_registrar.access(unresolvedItemIDsProperty);
    return m_unresolvedItemIDs;
}

Result<void> const& MenuStore::lastSave() const
{
    m_registrar.access(lastSaveProperty);
    return m_lastSave;
}

std::optional<std::string> MenuStore::saveProblem() const
{
    auto const& saved = lastSave();
    return saved ? std::nullopt : std::optional(tr("The menu could not be saved: %1", saved.error()));
}

MenuItem const* MenuStore::find(Uuid const& id) const { return findItem(items(), id); }

void MenuStore::insert(std::vector<MenuItem> items, std::optional<std::ptrdiff_t> position)
{
    assertMainThread();
    auto const count = std::ssize(m_items);
    auto const offset = std::clamp(position.value_or(count), std::ptrdiff_t { 0 }, count);
    replaceStretch(static_cast<std::size_t>(offset), 0, std::move(items));
}

void MenuStore::remove(std::set<Uuid> const& ids)
{
    assertMainThread();
    std::size_t at = 0; // all items have a record, or none has
    std::erase_if(m_records, [&](PropertyList const&) { return ids.contains(m_items[at++].id); });
    std::erase_if(m_items, [&](MenuItem const& item) { return ids.contains(item.id); });
    didChange({});
}

void MenuStore::replace(Uuid const& id, MenuItem item)
{
    assertMainThread();
    auto const found = std::find_if(m_items.begin(), m_items.end(), [&](MenuItem const& candidate) { return candidate.id == id; });
    if (found == m_items.end())
        return;
    *found = std::move(item);
    didChange({ static_cast<std::size_t>(found - m_items.begin()), 1, 1 });
}

void MenuStore::move(std::set<std::size_t> const& offsets, std::size_t destination)
{
    assertMainThread();
    moveIn(m_items, offsets, destination);
    moveIn(m_records, offsets, destination);
    didChange({});
}

MenuStretch MenuStore::replaceStretch(std::size_t first, std::size_t count, std::vector<MenuItem> items, Keeping keeping)
{
    assertMainThread();
    MenuStretch const changed { first, count, items.size() };
    zv::replaceStretch(m_items, first, count, std::move(items));
    return didChange(changed, keeping);
}

void MenuStore::replaceAll(std::vector<MenuItem> items, Keeping keeping)
{
    assertMainThread();
    replaceStretch(0, m_items.size(), std::move(items), keeping);
}

void MenuStore::reload()
{
    assertMainThread();
    auto stored = storedMenu();
    if (m_loadFailure || (stored && *stored == m_items))
        return;
    setItems(stored ? std::move(*stored) : defaultMenu());
    if (m_itemsSink)
        m_itemsSink->menuItemsChanged(m_items);
}

std::optional<std::vector<MenuItem>> MenuStore::givenMenu() const
{
    auto const given = m_services.defaults.givenObject(defaultsKey);
    auto items = given ? menuItemsFromPropertyList(*given) : Failure { ReadFailure {} };
    return items ? std::optional(std::move(items).value()) : std::nullopt;
}

std::vector<MenuItem> MenuStore::programMenu() const
{
    auto menu = resourceMenu();
    return menu ? std::move(*menu) : builtInItems();
}

std::vector<MenuItem> MenuStore::defaultMenu() const
{
    auto given = givenMenu();
    return given ? std::move(*given) : programMenu();
}

std::optional<std::vector<MenuItem>> MenuStore::storedMenu()
{
    auto const stored = m_services.defaults.object(defaultsKey);
    m_loadFailure.reset();
    if (!stored)
        return std::nullopt;
    auto items = menuItemsFromPropertyList(*stored);
    if (items)
        return std::move(items).value();
    m_loadFailure = items.error();
    return std::nullopt;
}

std::optional<std::vector<MenuItem>> MenuStore::resourceMenu() const
{
    auto const bytes = m_services.resources.load("Default Apple Menu", "plist");
    if (!bytes)
        return std::nullopt;
    auto const resource = readPropertyList(*bytes);
    auto const* top = resource ? resource->dictionary() : nullptr;
    auto const* description = top ? top->find("MenuDesc") : nullptr;
    auto const* records = description ? description->array() : nullptr;
    if (!records || !std::all_of(records->begin(), records->end(), isDictionary))
        return std::nullopt;
    auto items = menuItemsFromOlderArray(*records, m_services.locations);
    return items.empty() ? std::nullopt : std::optional(std::move(items));
}

void MenuStore::setItems(std::vector<MenuItem> items)
{
    m_items = std::move(items);
    m_records.clear();
    m_isWritable = false;
    (void)refreshLocations({});
}

/// Notifies observers only after the refresh, so that nobody sees a half-made change.
MenuStretch MenuStore::refreshLocations(MenuStretch changed)
{
    std::set<Uuid> unresolved;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (refresh(m_items[i], m_services.locations, unresolved))
            changed = united(changed, i);
    }
    bool const differs = std::exchange(m_unresolvedItemIDs, unresolved) != unresolved;
    m_registrar.changed(itemsProperty);
    if (differs)
        m_registrar.changed(unresolvedItemIDsProperty);
    return changed;
}

MenuStretch MenuStore::didChange(MenuStretch changed, Keeping keeping)
{
    if (isLocked()) {
        auto const before = m_items.size() - changed.after + changed.before;
        load(); // in the place of what was changed
        changed = { 0, before, m_items.size() };
    }
    cleanTitles(std::span(m_items).subspan(changed.first, changed.after));
    changed = refreshLocations(changed);
    record(changed);
    save(keeping);
    if (m_itemsSink)
        m_itemsSink->menuItemsChanged(m_items);
    return changed;
}

void MenuStore::record(MenuStretch const& changed)
{
    if (m_records.empty())
        return;
    auto const items = std::span(m_items).subspan(changed.first, changed.after);
    PropertyListArray records(items.size());
    std::transform(items.begin(), items.end(), records.begin(), [](MenuItem const& item) { return PropertyList(toPropertyList(item)); });
    zv::replaceStretch(m_records, changed.first, changed.before, std::move(records));
    m_isWritable = m_isWritable && std::all_of(items.begin(), items.end(), isWritable);
}

/// Backs up before the first save over an unreadable menu, before the menu is replaced, and else when one is due.
Result<void> MenuStore::backUp(Keeping keeping)
{
    bool const isAsked = m_loadFailure || keeping == Keeping::always;
    if (!m_backupSink || (!isAsked && !m_backupSink->isDue()))
        return {};
    auto const stored = m_services.defaults.objectToOverwrite(defaultsKey);
    return stored ? m_backupSink->menuWillBeOverwritten(*stored, menuItemsFromPropertyList(*stored).ok()) : Result<void>();
}

void MenuStore::save() { save(Keeping::whenDue); }

void MenuStore::save(Keeping keeping)
{
    assertMainThread();
    if (auto const reason = obstacle())
        return noteSaved(Failure { *reason });
    auto const backedUp = backUp(keeping);
    m_loadFailure.reset();
    m_isWritable = true;
    if (m_records.empty())
        m_records = toPropertyList(m_items);
    m_services.defaults.save(defaultsKey, m_records, m_lifetime.guard([this, backedUp](Result<void> saved) {
        if (saved && !backedUp)
            logLine(backedUp.error());
        noteSaved(std::move(saved));
    }));
}

/// Why the menu cannot be saved.
std::optional<std::string> MenuStore::obstacle() const
{
    if (isLocked())
        return tr("an administrator of this computer has locked it.");
    auto const unwritable = m_isWritable ? std::nullopt : findUnwritable(m_items);
    return unwritable ? std::optional(unwritable->description()) : std::nullopt;
}

void MenuStore::noteSaved(Result<void> saved)
{
    auto const before = std::exchange(m_lastSave, std::move(saved));
    if (before.ok() != m_lastSave.ok() || (!before && before.error() != m_lastSave.error()))
        m_registrar.changed(lastSaveProperty);
    if (!m_lastSave)
        logLine("could not save menu to " + std::string(defaultsKey) + ": " + m_lastSave.error());
}

} // namespace zv
