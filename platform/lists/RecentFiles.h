#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zv {

/// The four lists of recently used items.
enum class RecentItemsScope { all, applications, folders, documents };

/// Asks for the latest `limit` files of a scope that were used within that time.
struct RecentFilesQuestion {
    RecentItemsScope scope = RecentItemsScope::all;
    std::chrono::seconds usedWithin {};
    std::size_t limit = 0;
};

struct RecentFile {
    std::string path;
    bool isDirectory = false;
    /// True on a volume that may not answer: the file must not be touched.
    bool isOnRemoteVolume = false;
};

/// A search under way; destroying it ends it.
class RecentFilesSearch {
public:
    virtual ~RecentFilesSearch() = default;
};

/// The recently used files, folders and applications, as the system remembers them.
/// Main thread only, callbacks too.
class RecentFiles {
public:
    using Done = std::function<void(std::vector<RecentFile>)>;

    virtual ~RecentFiles() = default;
    /// Searches without blocking, then calls `done` once, in a later turn, with the files in
    /// order, the newest first. `done` may destroy the search; after its end it is not called.
    [[nodiscard]] virtual std::unique_ptr<RecentFilesSearch> find(RecentFilesQuestion const& question, Done done) = 0;
};

} // namespace zv
