#include "app/settings/LockedRows.h"

#include "app/model/MenuShortcut.h"
#include "app/model/MenuStore.h"
#include "app/model/Preferences.h"
#include "base/Translation.h"

#include <algorithm>
#include <iterator>

namespace zv {

namespace {

struct RowOfKey {
    std::string_view row;
    std::string_view key;
};

constexpr RowOfKey rowsOfKeys[] = {
    { "replaceAppleMenu", "ReplaceAppleMenu" },
    { "rainbowLogo", "RainbowAppleLogo" },
    { "showStatusItem", "ShowStatusItem" },
    { "menuShortcut", MenuShortcut::defaultsKey },
    { "showIcons", "ShowIcons" },
    { "showCommandIcons", "ShowCommandIcons" },
    { "showHiddenFiles", "ShowHiddenFiles" },
    { "sortFoldersFirst", "SortFoldersFirst" },
    { "recentItems", "RecentItemsLimit" },
    { "scanDepth", "ScanDepth" },
    { "itemsPerFolder", "MaximumItemsPerFolder" },
    { "prescanDepth", "HotkeyPrescanDepth" },
    { "rememberChoices", Preferences::rememberChoicesKey },
    { "checksAutomatically", "SUEnableAutomaticChecks" },
    { "importMenu", MenuStore::defaultsKey },
    { "resetMenu", MenuStore::defaultsKey },
    { "backups", MenuStore::defaultsKey },
};

std::string_view keyOf(SettingsRow const& row)
{
    auto const* const found = std::ranges::find(rowsOfKeys, std::string_view(row.id), &RowOfKey::row);
    return found == std::end(rowsOfKeys) ? std::string_view() : found->key;
}

SettingsRow lockedNote(SettingsRow const& row)
{
    SettingsRow note;
    note.id = "locked " + row.id;
    note.title = tr("Locked by an administrator of this computer.");
    note.isIndented = true;
    return note;
}

} // namespace

void markLockedRows(std::vector<SettingsSection>& sections, std::function<bool(std::string_view key)> const& isLocked)
{
    for (auto& section : sections) {
        std::vector<SettingsRow> rows;
        for (auto& row : section.rows) {
            auto const key = keyOf(row);
            bool const locked = !key.empty() && isLocked(key);
            row.isEnabled = row.isEnabled && !locked;
            rows.push_back(std::move(row));
            if (locked)
                rows.push_back(lockedNote(rows.back()));
        }
        section.rows = std::move(rows);
    }
}

} // namespace zv
