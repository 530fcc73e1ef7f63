#pragma once

#include "app/search/SearchPlace.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderReader.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <deque>
#include <memory>
#include <unordered_set>
#include <vector>

namespace zv {

/// A folder's submenu, where a walk begins.
struct SearchRoot {
    Url folder;
    std::int64_t depth; ///< levels of folders that become submenus in it
    std::vector<std::string> way; ///< the titles of the submenus that lead to its entries
};

/// Reads folders and the folders in them, breadth first and each once, step by step. Passes over what is remote or on
/// another machine's mount. One thread at a time, but for stop().
class FolderWalk {
public:
    /// The most entries read; those found later are left to their submenus.
    static constexpr std::size_t mostEntries = 100'000;

    FolderWalk(std::shared_ptr<FolderReader const> reader, std::shared_ptr<FileSystem const> files, HiddenFiles hiddenFiles)
        : m_reader(std::move(reader))
        , m_files(std::move(files))
        , m_hiddenFiles(hiddenFiles)
    {
    }

    /// Reads on for about that long, but one folder at least. Answers the folders read; `roots` come after what is left.
    [[nodiscard]] SearchPlaces step(std::vector<SearchRoot> roots, std::chrono::milliseconds duration);
    [[nodiscard]] bool isDone() const { return m_queue.empty() || m_entryCount >= mostEntries || m_isStopped; }
    /// Ends the running step soon, and does nothing in those to come. Any thread.
    void stop() { m_isStopped = true; }

private:
    struct Candidate {
        SearchRoot root;
        bool isResolved;
    };

    [[nodiscard]] std::optional<SearchPlace> read(Candidate candidate);
    void addFolder(SearchPlace const& place, FolderContents::Item const& item, std::string title);

    std::shared_ptr<FolderReader const> m_reader;
    std::shared_ptr<FileSystem const> m_files;
    HiddenFiles m_hiddenFiles;
    std::deque<Candidate> m_queue;
    std::unordered_set<std::string> m_visited; ///< URLs of resolved folders
    std::size_t m_entryCount = 0;
    std::atomic<bool> m_isStopped = false;
};

} // namespace zv
