#pragma once

#include "app/menu/FolderListing.h"
#include "base/Lifetime.h"
#include "base/Translation.h"
#include "platform/time/Tasks.h"

#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace zv {

/// Shown in place of a folder that does not answer.
inline constexpr Sentence silentFolderTitle = mark("This folder did not respond.");

/// Lists folders: local ones at once, remote ones on detached threads, never two for the same
/// folder. Main thread only.
class FolderListings {
public:
    using Done = std::function<void(FolderListing const&)>;

    /// `tasks` outlives this; the reader lives until the last reading has come back.
    FolderListings(std::shared_ptr<FolderReader const> reader, Tasks& tasks);

    /// For work on other threads.
    [[nodiscard]] std::shared_ptr<FolderReader const> const& reader() const { return m_reader; }
    [[nodiscard]] bool isRemote(Url const& folder) const { return m_reader->isRemote(folder); }
    [[nodiscard]] FolderListing list(Url const& folder, FolderListingOptions const& options) const { return listFolder(*m_reader, folder, options); }
    /// Calls `done` later, or never if the folder never answers. Callers that ask during a listing
    /// share its result.
    void listInBackground(Url const& folder, FolderListingOptions const& options, Done done);

private:
    using Key = std::pair<Url, FolderListingOptions>;

    void finish(Key const& key, FolderListing const& listing);

    std::shared_ptr<FolderReader const> m_reader;
    Tasks& m_tasks;
    std::map<Key, std::vector<Done>> m_waiting;
    Lifetime m_lifetime;
};

} // namespace zv
