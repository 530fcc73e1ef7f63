#include "app/lists/AllLists.h"
#include "app/lists/ListEntries.h"
#include "app/menu/FileEntry.h"
#include "app/menu/MenuIcon.h"
#include "base/Translation.h"

#include <algorithm>

namespace zv {

namespace {

std::string titleOf(Volume const& volume)
{
    return volume.root.isFile() || !volume.label.empty() ? volumeTitle(volume.root, volume.label) : volume.root.toString();
}

DynamicEntry entryFor(Volume const& volume)
{
    auto entry = namedEntry(volume.root.toString(), titleOf(volume));
    entry.url = volume.root;
    entry.fileURL = volume.root;
    entry.isDirectory = volume.root.isFile();
    return entry;
}

/// The boot volume first, the others by name.
std::vector<DynamicEntry> entriesFor(std::vector<Volume> volumes)
{
    auto const firstOther = std::stable_partition(volumes.begin(), volumes.end(), [](auto const& volume) { return volume.isBoot; });
    std::vector<DynamicEntry> others;
    std::transform(firstOther, volumes.end(), std::back_inserter(others), entryFor);
    sortByName(others);

    std::vector<DynamicEntry> entries;
    std::transform(volumes.begin(), firstOther, std::back_inserter(entries), entryFor);
    std::move(others.begin(), others.end(), std::back_inserter(entries));
    dropDoubles(entries);
    return entries;
}

class VolumeList : public DynamicList {
public:
    explicit VolumeList(Volumes& volumes)
        : m_volumes(volumes)
    {
    }
    MenuItemKind::Case kind() const override { return MenuItemKind::mountedVolumes; }
    ImageRef icon(MenuIcon& icons) const override { return icons.systemIcon(SystemIcon::volumes); }
    void fill(Done done) override
    {
        m_volumes.list([done = std::move(done)](auto volumes) { done(entriesFor(std::move(volumes))); });
    }

private:
    Volumes& m_volumes;
};

} // namespace

void addVolumeList(DynamicMenuProvider& lists, ListServices const& services) { lists.add(std::make_unique<VolumeList>(services.seams.volumes)); }

} // namespace zv
