#include "app/lists/RecentItemsProvider.h"

#include "app/menu/FileEntry.h"
#include "base/MainThread.h"

#include <algorithm>

namespace zv {

namespace {

constexpr std::chrono::days usedWithin { 30 };

} // namespace

DynamicEntry entryFromName(Url const& url, bool isDirectory)
{
    auto const name = url.lastPathComponent();
    return fileEntry(url, { name, {}, { isDirectory, false } });
}

void RecentItemsProvider::entries(Scope scope, std::int64_t limit, std::function<void(Entries)> done)
{
    assertMainThread();
    auto const wanted = static_cast<std::size_t>(std::max<std::int64_t>(limit, 0));
    auto const place = m_running.emplace(m_running.end());
    *place = m_files.find({ scope, usedWithin, wanted }, [this, place, done = std::move(done)](std::vector<RecentFile> const& files) {
        // Removed first: the callback may start a new query.
        auto const ended = std::move(*place);
        m_running.erase(place);
        Entries entries;
        std::transform(files.begin(), files.end(), std::back_inserter(entries), [this](auto const& file) { return entryFor(file); });
        done(std::move(entries));
    });
}

DynamicEntry RecentItemsProvider::entryFor(RecentFile const& file) const
{
    if (file.isOnRemoteVolume)
        return entryFromName(Url::fromPath(file.path), file.isDirectory);
    return m_entryForFile(Url::fromPath(file.path));
}

} // namespace zv
