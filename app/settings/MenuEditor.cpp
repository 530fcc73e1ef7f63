#include "app/settings/MenuEditor.h"

#include "app/model/PlainText.h"
#include "app/settings/MenuDifference.h"
#include "base/MainThread.h"
#include "base/Translation.h"

#include <algorithm>
#include <span>

namespace zv {

namespace {

using Items = std::vector<MenuItem>;

std::set<Uuid> idsOf(Items const& items)
{
    std::set<Uuid> ids;
    for (auto const& item : items)
        ids.insert(item.id);
    return ids;
}

/// The shortest range of top-level items that covers the difference.
MenuEdit differenceOf(std::span<MenuItem const> before, std::span<MenuItem const> after)
{
    auto const [first, firstNow] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    auto last = before.end();
    auto lastNow = after.end();
    while (last != first && lastNow != firstNow && *std::prev(last) == *std::prev(lastNow)) {
        --last;
        --lastNow;
    }
    MenuEdit edit;
    edit.index = static_cast<std::size_t>(first - before.begin());
    edit.before.assign(first, last);
    edit.after.assign(firstNow, lastNow);
    return edit;
}

bool isEmpty(MenuEdit const& edit) { return edit.before.empty() && edit.after.empty(); }

/// The items that are new, else those that the edit selected, else those that differ.
std::set<Uuid> cameBack(Items const& before, Items const& after, MenuEdit const& edit)
{
    auto const idsOf = [](std::vector<MenuItem const*> const& items) {
        std::set<Uuid> ids;
        for (auto const* item : items)
            ids.insert(item->id);
        return ids;
    };
    auto const difference = differenceBetween(before, after);
    if (auto const added = idsOf(difference.added); !added.empty()) {
        auto const topmost = menuTree::outermost(after, added);
        return { topmost.begin(), topmost.end() };
    }
    auto selected = edit.selectionAfter.value_or(std::set<Uuid>());
    std::erase_if(selected, [&](Uuid const& id) { return !findItem(after, id); });
    return selected.empty() ? idsOf(difference.changed) : selected;
}

/// The next remaining sibling, else the one before, else the parent.
std::optional<Uuid> survivorBeside(Items const& siblings, std::size_t index, std::set<Uuid> const& leaving)
{
    auto const stays = [&](auto const& item) { return !leaving.contains(item.id); };
    auto const here = siblings.begin() + static_cast<std::ptrdiff_t>(index);
    if (auto const next = std::find_if(here, siblings.end(), stays); next != siblings.end())
        return next->id;
    auto const previous = std::find_if(std::make_reverse_iterator(here), siblings.rend(), stays);
    return previous == siblings.rend() ? std::nullopt : std::optional(previous->id);
}

} // namespace

MenuEditor::MenuEditor(Services services)
    : m_services(services)
    , m_known(services.store.items())
{
    observe();
}

MenuEditor::Position MenuEditor::positionAfter(Ids const& selection, std::optional<Uuid> const& openSubmenu) const
{
    auto const selected = menuTree::outermost(items(), selection);
    if (selected.empty())
        return { std::nullopt, items().size() };
    auto const& last = selected.back();
    if (openSubmenu == last)
        return { last, 0 };
    auto position = menuTree::positionOf(items(), last).value_or(Position { std::nullopt, items().size() });
    ++position.index;
    return position;
}

void MenuEditor::addEntry(LibraryEntry const& entry, Position const& position)
{
    // TRANSLATORS: an edit that can be undone; %1 is an entry of the library
    add(tr("Add %1", entry.title), { menuTree::withFreshIds(entry.itemTemplate) }, position);
}

void MenuEditor::addSubmenu(Position const& position)
{
    add(trc("edit that can be undone", "Add Submenu"), { MenuItem::ofKind(MenuItemKind::submenu) }, position);
}

void MenuEditor::addSeparator(Position const& position)
{
    add(trc("edit that can be undone", "Add Separator"), { MenuItem::ofKind(MenuItemKind::separator) }, position);
}

std::vector<Url> MenuEditor::addFiles(std::vector<Url> const& files, Position const& position)
{
    std::vector<Url> missing;
    Items added;
    for (auto const& file : files) {
        if (!m_services.locations.files.isTaken(file)) {
            missing.push_back(file);
            continue;
        }
        auto item = MenuItem::ofKind(MenuItemKind::fsObject);
        item.setOwnTitle(titleFor(file));
        item.location = ItemLocation::forURL(file, m_services.locations);
        added.push_back(std::move(item));
    }
    auto name = added.size() == 1 ? trc("edit that can be undone", "Add File") : trc("edit that can be undone", "Add Files");
    if (!added.empty())
        add(std::move(name), std::move(added), position);
    return missing;
}

/// Items show their file's name; one that the system shows differently, such as an application's,
/// needs a title.
std::optional<std::string> MenuEditor::titleFor(Url const& file) const
{
    auto shown = m_services.locations.files.localizedName(file);
    return shown.empty() || shown == file.lastPathComponent() ? std::nullopt : std::optional(withoutControls(shown));
}

bool MenuEditor::move(Ids const& ids, Position const& position)
{
    auto after = items();
    if (!menuTree::move(after, ids, position))
        return false;
    commit(trc("edit that can be undone", "Move"), std::move(after), ids);
    return true;
}

bool MenuEditor::moveUp(Ids const& ids) { return moveBy(ids, -1); }

bool MenuEditor::moveDown(Ids const& ids) { return moveBy(ids, 1); }

bool MenuEditor::canMoveUp(Ids const& ids) const
{
    auto const moved = menuTree::outermost(items(), ids);
    return !moved.empty() && menuTree::positionOf(items(), moved.front())->index > 0;
}

bool MenuEditor::canMoveDown(Ids const& ids) const
{
    auto const moved = menuTree::outermost(items(), ids);
    auto const position = moved.empty() ? std::nullopt : menuTree::positionOf(items(), moved.back());
    auto const* parent = position && position->parent ? findItem(items(), *position->parent) : nullptr;
    return position && position->index + 1 < (parent ? parent->children : items()).size();
}

bool MenuEditor::moveBy(Ids const& ids, int step)
{
    auto const moved = menuTree::outermost(items(), ids);
    if (moved.empty())
        return false;
    // The foremost item in the direction of the move leads, the others follow it.
    auto position = menuTree::positionOf(items(), step < 0 ? moved.front() : moved.back());
    if (!position || (step < 0 && position->index == 0))
        return false;
    position->index = step < 0 ? position->index - 1 : position->index + 2;
    auto after = items();
    if (!menuTree::move(after, ids, *position) || after == items())
        return false;
    commit(step < 0 ? trc("edit that can be undone", "Move Up") : trc("edit that can be undone", "Move Down"), std::move(after), ids);
    return true;
}

void MenuEditor::remove(Ids const& ids)
{
    auto after = items();
    menuTree::remove(after, ids);
    commit(trc("edit that can be undone", "Delete"), std::move(after), neighbourOf(ids));
}

MenuEditor::Ids MenuEditor::neighbourOf(Ids const& ids) const
{
    auto const leaving = menuTree::outermost(items(), ids);
    auto const position = leaving.empty() ? std::nullopt : menuTree::positionOf(items(), leaving.back());
    if (!position)
        return {};
    auto const* parent = position->parent ? findItem(items(), *position->parent) : nullptr;
    if (auto const survivor = survivorBeside(parent ? parent->children : items(), position->index, ids))
        return { *survivor };
    return position->parent ? Ids { *position->parent } : Ids {};
}

void MenuEditor::duplicate(Ids const& ids)
{
    auto after = items();
    Ids selection;
    for (auto const& id : menuTree::outermost(items(), ids)) {
        auto copy = menuTree::withFreshIds(*findItem(items(), id));
        auto position = *menuTree::positionOf(after, id);
        ++position.index;
        selection.insert(copy.id);
        if (!menuTree::insert(after, { std::move(copy) }, position))
            return;
    }
    commit(trc("edit that can be undone", "Duplicate"), std::move(after), std::move(selection));
}

std::vector<std::string> MenuEditor::records(Ids const& ids) const
{
    std::vector<std::string> records;
    for (auto const& id : menuTree::outermost(items(), ids))
        records.push_back(toDragRecord(*findItem(items(), id)));
    return records;
}

Result<void> MenuEditor::drop(std::vector<std::string> const& records, Position const& position, Drop drop)
{
    Items dropped;
    for (auto const& record : records) {
        auto item = menuItemFromDragRecord(record);
        if (!item)
            return Failure { tr("What was dropped is no menu item: %1.", item.error().description()) };
        dropped.push_back(std::move(*item));
    }
    auto const ids = idsOf(dropped);
    bool const areAllHere = std::all_of(ids.begin(), ids.end(), [&](auto const& id) { return findItem(items(), id) != nullptr; });
    if (drop == Drop::move && areAllHere) {
        if (!move(ids, position))
            return Failure { tr("A submenu cannot be put into itself.") };
        return {};
    }
    std::transform(dropped.begin(), dropped.end(), dropped.begin(), menuTree::withFreshIds);
    auto name = dropped.size() == 1 ? trc("edit that can be undone", "Add Item") : trc("edit that can be undone", "Add Items");
    add(std::move(name), std::move(dropped), position);
    return {};
}

void MenuEditor::setTitle(Uuid const& id, std::string const& title)
{
    edit(trc("edit that can be undone", "Change Title"), id, [&](MenuItem& item) { item.setOwnTitle(title.empty() ? std::nullopt : std::optional(title)); });
}

void MenuEditor::setTarget(Uuid const& id, Url const& target)
{
    edit(trc("edit that can be undone", "Choose Target"), id, [&](MenuItem& item) {
        bool const hasGivenTitle = item.title && item.location && item.location->path && item.title == titleFor(Url::fromPath(*item.location->path));
        if (!item.title || hasGivenTitle)
            item.setOwnTitle(titleFor(target));
        item.location = ItemLocation::forURL(target, m_services.locations);
    });
}

void MenuEditor::setOwnTarget(Uuid const& id, Url const& target, std::string const& title)
{
    edit(trc("edit that can be undone", "Change Item"), id, [&](MenuItem& item) {
        item.setOwnTitle(title);
        item.location = ItemLocation::forURL(target, m_services.locations);
    });
}

void MenuEditor::setScanDepth(Uuid const& id, std::optional<std::int64_t> depth)
{
    edit(trc("edit that can be undone", "Change Depth"), id, [&](MenuItem& item) { item.scanDepth = depth; });
}

void MenuEditor::setFolderChoices(Uuid const& id, FolderChoices const& choices)
{
    edit(trc("edit that can be undone", "Change Order and Choice"), id, [&](MenuItem& item) { zv::setFolderChoices(item, choices); });
}

void MenuEditor::setHidden(Uuid const& id, bool isHidden)
{
    edit(isHidden ? trc("edit that can be undone", "Hide") : trc("edit that can be undone", "Show"), id, [&](MenuItem& item) { item.isHidden = isHidden; });
}

void MenuEditor::setPicture(Uuid const& id, std::optional<ItemPicture> const& picture)
{
    edit(tr("Change Picture"), id, [&](MenuItem& item) { zv::setPicture(item, picture); });
}

void MenuEditor::setKeyEquivalent(Uuid const& id, std::optional<KeyEquivalentSpec> const& spec)
{
    edit(trc("edit that can be undone", "Change Shortcut"), id, [&](MenuItem& item) { item.keyEquivalent = spec; });
}

void MenuEditor::restoreDefaultMenu() { replaceMenu(m_services.store.defaultMenu(), trc("edit that can be undone", "Restore Default Menu")); }

void MenuEditor::replaceMenu(std::vector<MenuItem> items, std::string const& editName) { commit(editName, std::move(items), std::nullopt, Keeping::always); }

void MenuEditor::add(std::string name, std::vector<MenuItem> added, Position const& position)
{
    auto after = items();
    auto selection = idsOf(added);
    if (menuTree::insert(after, std::move(added), position))
        commit(std::move(name), std::move(after), std::move(selection));
}

/// Copies the top-level item alone in which the edited one lies.
void MenuEditor::edit(std::string name, Uuid const& id, std::function<void(MenuItem&)> const& edit)
{
    auto const& menu = items();
    auto const holder = std::find_if(menu.begin(), menu.end(), [&](MenuItem const& item) { return findItem(std::span(&item, 1), id) != nullptr; });
    if (holder == menu.end())
        return;
    Items after { *holder };
    if (menuTree::change(after, id, edit) && after.front() != *holder)
        tell(takeOver(put(static_cast<std::size_t>(holder - menu.begin()), 1, std::move(after))), std::move(name), std::nullopt);
}

void MenuEditor::commit(std::string name, std::vector<MenuItem> after, Selection selection, Keeping keeping)
{
    assertMainThread();
    auto edit = differenceOf(items(), after);
    if (isEmpty(edit))
        return;
    auto const changed = put(edit.index, edit.before.size(), std::move(edit.after), keeping);
    tell(takeOver(changed), std::move(name), std::move(selection));
}

MenuEditor::Ids MenuEditor::undo(MenuEdit const& edit)
{
    (void)takeOver(put(edit.index, edit.after.size(), edit.before));
    return cameBack(edit.after, edit.before, edit);
}

MenuEditor::Ids MenuEditor::redo(MenuEdit const& edit)
{
    (void)takeOver(put(edit.index, edit.before.size(), edit.after));
    return edit.selectionAfter ? *edit.selectionAfter : cameBack(edit.before, edit.after, edit);
}

/// The stretch is clamped: the menu may have been changed from outside.
MenuStretch MenuEditor::put(std::size_t first, std::size_t count, std::vector<MenuItem> items, Keeping keeping)
{
    auto& store = m_services.store;
    auto const start = std::min(first, store.items().size());
    m_isPutting = true;
    auto const changed = store.replaceStretch(start, std::min(count, store.items().size() - start), std::move(items), keeping);
    m_isPutting = false;
    return changed;
}

void MenuEditor::tell(MenuEdit edit, std::string name, Selection selection)
{
    edit.name = std::move(name);
    edit.selectionAfter = std::move(selection);
    if (onEdit)
        onEdit(edit);
}

/// Takes the difference since the last edit from the store, which may have refreshed locations.
MenuEdit MenuEditor::takeOver(MenuStretch const& changed)
{
    auto const known = std::span(m_known).subspan(changed.first, changed.before);
    auto edit = differenceOf(known, std::span(items()).subspan(changed.first, changed.after));
    edit.index += changed.first;
    replaceStretch(m_known, edit.index, edit.before.size(), edit.after);
    return edit;
}

void MenuEditor::observe()
{
    m_observation = withObservationTracking([this] { (void)items(); },
        [this] {
            observe();
            if (!m_isPutting && items() != m_known)
                tell(takeOver({ 0, m_known.size(), items().size() }), trc("edit that can be undone", "Change from Outside"), std::nullopt);
        });
}

} // namespace zv
