#include "platform/linux/posix/FileWatch.h"

#include "base/Url.h"
#include "platform/linux/posix/WholeFiles.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <sys/inotify.h>
#include <sys/stat.h>

namespace zv {

namespace {

constexpr std::uint32_t watchedEvents = IN_CLOSE_WRITE | IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_ONLYDIR;

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

void FileWatch::watchTheWayTo(std::string path)
{
    for (; path != "/"; path = folderOf(path)) {
        auto const watch = ::inotify_add_watch(descriptor(), folderOf(path).c_str(), watchedEvents);
        if (watch >= 0)
            m_way.try_emplace({ watch, std::string(lastPathComponent(path)) }, path);
    }
}

/// A new file counts once it is written and closed; folders and links are whole from the start.
bool FileWatch::concernsFile(inotify_event const& event) const
{
    auto const found = m_way.find({ event.wd, event.name });
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
            concerned |= (event->mask & IN_Q_OVERFLOW) != 0 || (event->len > 0 && concernsFile(*event));
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
