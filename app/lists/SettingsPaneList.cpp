#include "app/lists/AllLists.h"
#include "app/lists/ListEntries.h"
#include "app/menu/DisplayText.h"
#include "app/menu/MenuIcon.h"
#include "base/Translation.h"

namespace zv {

namespace {

DynamicEntry entryFor(SettingsPane const& pane)
{
    auto entry = namedEntry(pane.id, pane.title);
    entry.url = pane.url;
    entry.fileURL = pane.fileURL;
    entry.isPackage = true;
    if (!pane.missingProgram.empty())
        entry.unavailabilityReason = tr("%1 is not installed.", displayText(pane.missingProgram));
    return entry;
}

std::vector<DynamicEntry> entriesFor(std::vector<SettingsPane> const& panes)
{
    std::vector<DynamicEntry> entries;
    for (auto const& pane : panes)
        entries.push_back(entryFor(pane));
    dropDoubles(entries);
    sortByName(entries);
    return entries;
}

class SettingsPaneList : public DynamicList {
public:
    explicit SettingsPaneList(SettingsPanes& panes)
        : m_panes(panes)
    {
    }
    MenuItemKind::Case kind() const override { return MenuItemKind::systemPrefs; }
    ImageRef icon(MenuIcon& icons) const override { return icons.systemIcon(SystemIcon::systemSettings); }
    void fill(Done done) override
    {
        m_panes.list([done = std::move(done)](auto const& panes) { done(entriesFor(panes)); });
    }

private:
    SettingsPanes& m_panes;
};

} // namespace

void addSettingsPaneList(DynamicMenuProvider& lists, ListServices const& services)
{
    lists.add(std::make_unique<SettingsPaneList>(services.seams.settingsPanes));
}

} // namespace zv
