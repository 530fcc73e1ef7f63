#include "app/settings/MenuOutline.h"

#include "app/menu/DisplayText.h"
#include "app/settings/RecorderRules.h"
#include "base/Translation.h"

namespace zv {

namespace {

std::string alreadyUses(std::string const& title) { return tr("%1 already uses this combination.", quoted(displayText(title))); }

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
        return tr(settingsTexts::missingFile);
    if (auto const reason = item.kind.unavailabilityReason())
        return *reason;
    return conflictOf(item).text;
}

ShortcutNote MenuOutline::shortcutNote(MenuItem const& item, SystemKind system) const
{
    if (!item.keyEquivalent || item.kind.isLegacy())
        return {};
    auto conflict = conflictOf(item);
    return conflict.text.empty() ? ShortcutNote { shortcutWarning(*item.keyEquivalent, system), std::nullopt } : conflict;
}

ShortcutNote MenuOutline::conflictOf(MenuItem const& item) const
{
    auto const& conflicts = m_services.hotkeys.conflicts();
    auto const shortcut = item.keyEquivalent ? item.keyEquivalent->description() : std::string();
    if (shortcut.empty() || !conflicts.contains({ HotkeyTarget::item(item.id), shortcut }))
        return {};
    for (auto const& [id, registration] : m_services.hotkeys.registrations()) {
        if (registration.shortcut == shortcut)
            return ownedBy(registration.target);
    }
    return { tr("Another app already uses this combination."), std::nullopt };
}

ShortcutNote MenuOutline::ownedBy(HotkeyTarget const& owner) const
{
    if (auto const* file = owner.fileURL())
        return { alreadyUses(file->lastPathComponent()), std::nullopt };
    auto const* item = owner.itemID() ? m_services.store.find(*owner.itemID()) : nullptr;
    return item ? ShortcutNote { alreadyUses(item->displayTitle()), item->id } : ShortcutNote { alreadyUses(tr("Open by a key")), std::nullopt };
}

} // namespace zv
