#include "app/hotkeys/HotkeyPrescan.h"

#include "app/model/FinderPopName.h"

#include <deque>
#include <optional>
#include <unordered_set>
#include <utility>

namespace zv {

namespace {

/// A folder to scan. Real subfolders of a resolved folder are resolved already, so only roots and
/// links have to be resolved.
struct Candidate {
    Url url;
    std::int64_t level;
    bool isResolved;
};

class Prescan {
public:
    Prescan(FolderReader const& reader, FileSystem const& files, std::int64_t depth, HiddenFiles hiddenFiles)
        : m_reader(reader)
        , m_files(files)
        , m_depth(depth)
        , m_hiddenFiles(hiddenFiles)
    {
    }

    ShortcutsByFolder run(std::vector<Url> const& roots)
    {
        for (auto const& root : roots)
            addRoot(root);
        while (!m_queue.empty() && m_found.size() < maximumPrescannedFolders) {
            auto const candidate = std::move(m_queue.front());
            m_queue.pop_front();
            consider(candidate);
        }
        return std::move(m_found);
    }

private:
    /// Skips files, applications and remote folders: a silent one would delay the scan, and the program's end.
    void addRoot(Url const& root)
    {
        if (m_reader.isRemote(root))
            return;
        auto folder = m_files.resolvingSymlinks(root);
        auto const traits = m_files.traits(folder);
        if (traits && traits->isDirectory && !traits->isPackage)
            m_queue.push_back({ std::move(folder), 1, true });
    }

    void consider(Candidate const& candidate)
    {
        if (m_reader.isRemote(candidate.url))
            return;
        auto const folder = candidate.isResolved ? candidate.url : m_files.resolvingSymlinks(candidate.url);
        if (m_visited.insert(folder.toString()).second)
            list(folder, candidate.level);
    }

    void list(Url const& folder, std::int64_t level)
    {
        auto const contents = m_reader.read(folder, m_hiddenFiles);
        if (!contents)
            return;
        auto& shortcuts = m_found[folder.path()];
        for (std::size_t i = 0; i < contents->size(); ++i) {
            auto const item = (*contents)[i];
            collect(folder, item.name, shortcuts);
            if (level < m_depth && item.traits.isDirectory && !item.traits.isPackage)
                m_queue.push_back({ folder.appending(item.name), level + 1, !item.isLink });
        }
    }

    void collect(Url const& folder, std::string_view name, FolderShortcuts& shortcuts) const
    {
        // Few names have the mark, and parsing costs more than the listing.
        if (name.find("-*[") == std::string_view::npos)
            return;
        FinderPopName const parsed(name);
        if (!parsed.hotkey)
            return;
        if (auto const file = folder.appending(name); !m_reader.doubtAbout(file))
            shortcuts.emplace(file, *parsed.hotkey);
    }

    FolderReader const& m_reader;
    FileSystem const& m_files;
    std::int64_t m_depth;
    HiddenFiles m_hiddenFiles;
    std::deque<Candidate> m_queue;
    std::unordered_set<std::string> m_visited;
    ShortcutsByFolder m_found;
};

} // namespace

ShortcutsByFolder prescanHotkeys(
    FolderReader const& reader, FileSystem const& files, std::vector<Url> const& roots, std::int64_t depth, HiddenFiles hiddenFiles)
{
    if (depth < 1)
        return {};
    return Prescan(reader, files, depth, hiddenFiles).run(roots);
}

} // namespace zv
