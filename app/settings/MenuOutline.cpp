#include "app/settings/MenuOutline.h"

#include "app/menu/DisplayText.h"

namespace zv {

namespace {

constexpr char const* missingFile = "This item points at a file that no longer exists.";
constexpr char const* takenElsewhere = "Another app already uses this combination.";

/// The first item with the shortcut, in the order of registration.
MenuItem const* ownerOf(std::vector<MenuItem> const& items, std::string const& shortcut)
{
    for (auto const& item : items) {
        if (item.keyEquivalent && !item.kind.isLegacy() && item.keyEquivalent->description() == shortcut)
            return &item;
        if (auto const* below = ownerOf(item.children, shortcut))
            return below;
    }
    return nullptr;
}

} // namespace

OutlineRow MenuOutline::row(MenuItem const& item) const
{
    OutlineRow row;
    row.title = displayText(item.displayTitle());
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
    auto const shortcut = item.keyEquivalent ? item.keyEquivalent->description() : std::string();
    if (shortcut.empty() || !conflicts.contains({ HotkeyTarget::item(item.id), shortcut }))
        return {};
    auto const* owner = ownerOf(m_services.store.items(), shortcut);
    return owner && owner->id != item.id ? "“" + displayText(owner->displayTitle()) + "” already uses this combination." : takenElsewhere;
}

} // namespace zv
