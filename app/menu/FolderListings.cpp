#include "app/menu/FolderListings.h"

#include "base/MainThread.h"

namespace zv {

FolderListings::FolderListings(std::shared_ptr<FolderReader const> reader, Tasks& tasks)
    : m_reader(std::move(reader))
    , m_tasks(tasks)
{
}

void FolderListings::listInBackground(Url const& folder, FolderListingOptions const& options, Done done)
{
    assertMainThread();
    Key key { folder, options };
    auto const [waiting, isFirst] = m_waiting.try_emplace(key);
    waiting->second.push_back(std::move(done));
    if (!isFirst)
        return;
    // Only the guard's token leaves the main thread; it is checked after coming back.
    auto finished = m_lifetime.guard([this](Key const& of, FolderListing const& listing) { finish(of, listing); });
    m_tasks.runDetached([reader = m_reader, key = std::move(key), finished]() -> std::function<void()> {
        auto listing = std::make_shared<FolderListing const>(listFolder(*reader, key.first, key.second));
        return [finished, key, listing]() mutable { finished(key, *listing); };
    });
}

void FolderListings::finish(Key const& key, FolderListing const& listing)
{
    auto const waiting = m_waiting.extract(key);
    if (waiting.empty())
        return;
    for (auto const& done : waiting.mapped())
        done(listing);
}

} // namespace zv
