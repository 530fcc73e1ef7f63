#include "app/settings/MenuOutline.h"

#include <algorithm>

namespace zv {

namespace {

constexpr char const* missingFile = "This item points at a file that no longer exists.";
constexpr char const* takenElsewhere = "Another app already uses this combination.";

} // namespace

MenuItem const* itemWithShortcut(std::vector<MenuItem> const& items, KeyEquivalentSpec const& spec, Uuid const& otherThan)
{
    auto const shortcut = spec.description();
    for (auto const& item : items) {
        bool const hasIt = item.keyEquivalent && item.keyEquivalent->description() == shortcut;
        if (hasIt && item.id != otherThan)
            return &item;
        if (auto const* below = itemWithShortcut(item.children, spec, otherThan))
            return below;
    }
    return nullptr;
}

OutlineRow MenuOutline::row(MenuItem const& item) const
{
    OutlineRow row;
    row.title = item.displayTitle();
    row.isSeparator = item.kind == MenuItemKind::separator;
    row.shortcut = item.keyEquivalent ? item.keyEquivalent->description() : std::string();
    row.badge = badgeOf(item);
    bool const cannotAct = item.kind.isLegacy() || m_services.store.unresolvedItemIDs().contains(item.id);
    row.isDimmed = item.isHidden || cannotAct;
    return row;
}

std::string MenuOutline::badgeOf(MenuItem const& item) const
{
    if (m_services.store.unresolvedItemIDs().contains(item.id))
        return missingFile;
    if (auto const reason = item.kind.unavailabilityReason())
        return *reason;
    return conflictOf(item);
}

std::string MenuOutline::conflictOf(MenuItem const& item) const
{
    auto const& conflicts = m_services.hotkeys.conflicts();
    bool const isConflict = item.keyEquivalent && std::any_of(conflicts.begin(), conflicts.end(), [&](auto const& conflict) {
        auto const* id = conflict.target.itemID();
        return id && *id == item.id;
    });
    if (!isConflict)
        return {};
    auto const* owner = itemWithShortcut(m_services.store.items(), *item.keyEquivalent, item.id);
    return owner ? "“" + owner->displayTitle() + "” already uses this combination." : takenElsewhere;
}

} // namespace zv
