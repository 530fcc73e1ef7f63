#include "platform/linux/posix/FileWatch.h"

#include "base/Url.h"
#include "platform/linux/posix/WholeFiles.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {

namespace {

/// Of a folder's entries: all of them wake the program, whichever file they are about.
constexpr std::uint32_t ofEntries = IN_CLOSE_WRITE | IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE;
constexpr std::uint32_t ofFolderItself = IN_MOVE_SELF | IN_DELETE_SELF;

bool isLink(std::string const& path)
{
    struct stat status { };
    return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

} // namespace

FileWatch::FileWatch(std::string path)
    : m_path(std::move(path))
    , m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    watchTheWay();
    if (m_way.empty())
        m_inotify = FileDescriptor();
}

void FileWatch::watchTheWay()
{
    for (auto const& [watched, path] : std::exchange(m_way, {}))
        (void)::inotify_rm_watch(descriptor(), watched.first);
    watchTheWayTo(m_path);
    watchTheWayTo(withoutLinks(m_path));
}

/// Looks at the entries of few folders, as each change of them wakes the program: where the file, or the first folder that
/// is missing, would appear, and where a link may be replaced. What only others can exchange, such as the home folder, is
/// left alone: the kernel goes through all names that it remembers of a folder that is watched.
void FileWatch::watchTheWayTo(std::string path)
{
    bool isSeenAppearing = false;
    for (; path != "/"; path = folderOf(path)) {
        auto const folder = folderOf(path);
        if (!isSeenAppearing || isLink(path))
            isSeenAppearing |= watch(folder, ofEntries, path, std::string(lastPathComponent(path)));
        else if (::access(folder.c_str(), W_OK) == 0)
            watch(path, ofFolderItself, path, {});
    }
}

/// The name is empty for the folder itself. Returns whether the folder is there.
bool FileWatch::watch(std::string const& folder, std::uint32_t events, std::string const& path, std::string name)
{
    auto const watch = ::inotify_add_watch(descriptor(), folder.c_str(), events | IN_MASK_ADD | IN_ONLYDIR);
    if (watch >= 0)
        m_way.try_emplace({ watch, std::move(name) }, path);
    return watch >= 0;
}

/// A new file counts once it is written and closed; folders and links are whole from the start.
bool FileWatch::concernsFile(inotify_event const& event) const
{
    auto const found = m_way.find({ event.wd, event.len > 0 ? event.name : "" });
    if (found == m_way.end())
        return false;
    bool const isNew = (event.mask & IN_CREATE) != 0;
    return !isNew || (event.mask & IN_ISDIR) != 0 || isLink(found->second);
}

bool FileWatch::readEvents()
{
    bool concerned = false;
    alignas(inotify_event) std::array<char, 16384> buffer;
    for (ssize_t size = ::read(descriptor(), buffer.data(), buffer.size()); size > 0; size = ::read(descriptor(), buffer.data(), buffer.size())) {
        for (ssize_t offset = 0; offset < size;) {
            auto const* event = reinterpret_cast<inotify_event const*>(buffer.data() + offset);
            // The events lost in a queue overflow may have been about the file.
            concerned |= (event->mask & IN_Q_OVERFLOW) != 0 || concernsFile(*event);
            offset += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    return concerned;
}

bool FileWatch::takeEvents()
{
    bool concerned = false;
    while (readEvents()) {
        concerned = true;
        watchTheWay(); // another folder or link may be on it now
    }
    return concerned;
}

} // namespace zv
