#include "platform/linux/files/MountWatch.h"

#include "platform/linux/posix/WholeFiles.h"

#include <algorithm>
#include <fcntl.h>
#include <poll.h>
#include <time.h>
#include <utility>

namespace zv {

namespace {

std::shared_ptr<MountWatch::Snapshot const> readSnapshot(std::string const& path)
{
    MountTable table(readTextFile(path).value_or(""));
    auto const& mounts = table.mounts();
    bool const hasRemote = std::any_of(mounts.begin(), mounts.end(), [](Mount const& mount) { return isRemoteFileSystem(mount.type); });
    return std::make_shared<MountWatch::Snapshot const>(MountWatch::Snapshot { std::move(table), hasRemote });
}

/// The tick of the coarse kernel clock, some milliseconds long, which costs next to nothing to read.
std::int64_t currentTick()
{
    timespec now {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::int64_t { now.tv_sec } * 1'000'000'000 + now.tv_nsec;
}

} // namespace

MountWatch::MountWatch(std::string mountInfoPath)
    : m_path(std::move(mountInfoPath))
    , m_file(open(m_path.c_str(), O_RDONLY | O_CLOEXEC))
{
}

std::shared_ptr<MountWatch::Snapshot const> MountWatch::current()
{
    bool const isOutdated = hasChanged(); // asked before reading, so that a change during it is seen the next time
    auto snapshot = m_snapshot.load();
    if (snapshot && !isOutdated)
        return snapshot;
    snapshot = readSnapshot(m_path);
    m_snapshot.store(snapshot);
    return snapshot;
}

bool MountWatch::isRemote(std::string_view path)
{
    auto const mounts = current();
    return mounts->hasRemote && mounts->table.follow(path).kind == MountTable::Fate::Kind::remote;
}

bool MountWatch::hasChanged()
{
    if (!m_file.isOpen())
        return true;
    // The kernel is asked once a tick, as a menu asks for each of its items.
    auto const tick = currentTick();
    if (m_askedAt.exchange(tick) == tick)
        return false;
    pollfd watched { m_file.get(), POLLPRI, 0 };
    return poll(&watched, 1, 0) > 0 && (watched.revents & (POLLPRI | POLLERR)) != 0;
}

} // namespace zv
