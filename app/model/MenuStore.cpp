#include "app/model/MenuStore.h"

#include "app/model/PlainText.h"
#include "base/Log.h"
#include "base/MainThread.h"
#include "base/Translation.h"
#include "platform/text/PropertyListFormat.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace zv {

namespace {

enum Property : int { itemsProperty, unresolvedItemIDsProperty, lastSaveProperty };

/// The fallback when the default menu's resource is unusable.
constexpr MenuItemKind::Case builtInMenu[] = { MenuItemKind::aboutThisMac, MenuItemKind::separator, MenuItemKind::simpleSystemPrefs,
    MenuItemKind::customizeZantheVell, MenuItemKind::separator, MenuItemKind::sleep, MenuItemKind::restart, MenuItemKind::shutdown };

void refresh(std::vector<MenuItem>& items, LocationServices services, std::set<Uuid>& unresolved)
{
    for (auto& item : items) {
        if (item.location) {
            auto const resolution = item.location->resolve(services);
            if (resolution.kind == ItemLocation::Resolution::Kind::needsRefresh)
                item.location->refresh(*resolution.url, services);
            if (resolution.kind == ItemLocation::Resolution::Kind::unresolved)
                unresolved.insert(item.id);
        }
        refresh(item.children, services, unresolved);
    }
}

std::vector<MenuItem> builtInItems()
{
    std::vector<MenuItem> items;
    std::transform(std::begin(builtInMenu), std::end(builtInMenu), std::back_inserter(items), MenuItem::ofKind);
    return items;
}

void cleanTitles(std::vector<MenuItem>& items)
{
    for (auto& item : items) {
        if (item.title)
            item.title = withoutControls(*item.title);
        cleanTitles(item.children);
    }
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
    m_items.insert(m_items.begin() + offset, std::make_move_iterator(items.begin()), std::make_move_iterator(items.end()));
    didChange();
}

void MenuStore::remove(std::set<Uuid> const& ids)
{
    assertMainThread();
    std::erase_if(m_items, [&](MenuItem const& item) { return ids.contains(item.id); });
    didChange();
}

void MenuStore::replace(Uuid const& id, MenuItem item)
{
    assertMainThread();
    auto const found = std::find_if(m_items.begin(), m_items.end(), [&](MenuItem const& candidate) { return candidate.id == id; });
    if (found == m_items.end())
        return;
    *found = std::move(item);
    didChange();
}

void MenuStore::move(std::set<std::size_t> const& offsets, std::size_t destination)
{
    assertMainThread();
    std::vector<MenuItem> before;
    std::vector<MenuItem> moved;
    std::vector<MenuItem> after;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        auto& part = offsets.contains(i) ? moved : i < destination ? before : after;
        part.push_back(std::move(m_items[i]));
    }
    m_items = std::move(before);
    std::move(moved.begin(), moved.end(), std::back_inserter(m_items));
    std::move(after.begin(), after.end(), std::back_inserter(m_items));
    didChange();
}

void MenuStore::replaceAll(std::vector<MenuItem> items, Keeping keeping)
{
    assertMainThread();
    m_items = std::move(items);
    didChange(keeping);
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
    refreshLocations();
}

/// Notifies observers only after the refresh, so that nobody sees a half-made change.
void MenuStore::refreshLocations()
{
    std::set<Uuid> unresolved;
    refresh(m_items, m_services.locations, unresolved);
    bool const differs = std::exchange(m_unresolvedItemIDs, unresolved) != unresolved;
    m_registrar.changed(itemsProperty);
    if (differs)
        m_registrar.changed(unresolvedItemIDsProperty);
}

void MenuStore::didChange(Keeping keeping)
{
    if (isLocked())
        load(); // in the place of what was changed
    cleanTitles(m_items);
    refreshLocations();
    save(keeping);
    if (m_itemsSink)
        m_itemsSink->menuItemsChanged(m_items);
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
    auto const before = std::exchange(m_lastSave, write(keeping));
    if (before.ok() != m_lastSave.ok() || (!before && before.error() != m_lastSave.error()))
        m_registrar.changed(lastSaveProperty);
    if (!m_lastSave)
        logLine("could not save menu to " + std::string(defaultsKey) + ": " + m_lastSave.error());
}

Result<void> MenuStore::write(Keeping keeping)
{
    if (isLocked())
        return Failure { tr("an administrator of this computer has locked it.") };
    if (auto const unwritable = findUnwritable(m_items))
        return Failure { unwritable->description() };
    auto const backedUp = backUp(keeping);
    m_loadFailure.reset();
    auto saved = m_services.defaults.setObject(defaultsKey, toPropertyList(m_items));
    if (saved && !backedUp)
        logLine(backedUp.error());
    return saved;
}

} // namespace zv
