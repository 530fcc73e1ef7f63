#pragma once

#include "app/menu/DynamicEntry.h"
#include "platform/lists/RecentFiles.h"

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <vector>

namespace zv {

/// Uses the name alone, for a file that must not be touched.
[[nodiscard]] DynamicEntry entryFromName(Url const& url, bool isDirectory);

/// The items used in the last thirty days, newest first, as entries. Main thread only, callbacks too.
class RecentItemsProvider {
public:
    using Scope = RecentItemsScope;
    using Entries = std::vector<DynamicEntry>;
    using EntryForFile = std::function<DynamicEntry(Url const&)>;

    /// `files` outlives this.
    RecentItemsProvider(RecentFiles& files, EntryForFile entryForFile)
        : m_files(files)
        , m_entryForFile(std::move(entryForFile))
    {
    }
    RecentItemsProvider(RecentItemsProvider const&) = delete;
    RecentItemsProvider& operator=(RecentItemsProvider const&) = delete;

    /// Finds at most `limit` entries. Calls `done` exactly once, never before it returns, and never
    /// after this provider is gone.
    void entries(Scope scope, std::int64_t limit, std::function<void(Entries)> done);

private:
    using Searches = std::list<std::unique_ptr<RecentFilesSearch>>;

    [[nodiscard]] DynamicEntry entryFor(RecentFile const& file) const;

    RecentFiles& m_files;
    EntryForFile m_entryForFile;
    Searches m_running;
};

} // namespace zv
