#include "platform/linux/posix/FileWatch.h"

#include "base/Url.h"
#include "platform/linux/posix/WholeFiles.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <sys/inotify.h>

namespace zv {

namespace {

constexpr std::uint32_t watchedEvents = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_ONLYDIR;

FileDescriptor watchOn(std::string const& folder)
{
    FileDescriptor inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (inotify.isOpen() && ::inotify_add_watch(inotify.get(), folder.c_str(), watchedEvents) >= 0)
        return inotify;
    return FileDescriptor();
}

} // namespace

FileWatch::FileWatch(std::string const& path)
    : m_name(lastPathComponent(path))
    , m_inotify(watchOn(folderOf(path)))
{
}

bool FileWatch::takeEvents()
{
    bool concernsFile = false;
    alignas(inotify_event) std::array<char, 16384> buffer;
    for (ssize_t size = ::read(descriptor(), buffer.data(), buffer.size()); size > 0; size = ::read(descriptor(), buffer.data(), buffer.size())) {
        for (ssize_t offset = 0; offset < size;) {
            auto const* event = reinterpret_cast<inotify_event const*>(buffer.data() + offset);
            // The events lost in a queue overflow may have been about the file.
            concernsFile |= (event->mask & IN_Q_OVERFLOW) != 0 || (event->len > 0 && event->name == m_name);
            offset += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    return concernsFile;
}

} // namespace zv
