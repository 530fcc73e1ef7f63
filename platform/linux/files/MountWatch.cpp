#include "platform/linux/files/MountWatch.h"

#include "platform/linux/posix/WholeFiles.h"

#include <algorithm>
#include <fcntl.h>
#include <mutex>
#include <poll.h>
#include <set>
#include <sys/sysmacros.h>
#include <time.h>
#include <utility>

namespace zv {

namespace {

constexpr std::chrono::seconds longestAnswer { 1 };

/// The devices that were slow: a property of the machine, so one for all watches.
class SlowDevices {
public:
    void add(std::string device)
    {
        std::lock_guard const lock(m_mutex);
        m_devices.insert(std::move(device));
        m_count = m_devices.size();
    }
    [[nodiscard]] std::set<std::string> all()
    {
        std::lock_guard const lock(m_mutex);
        return m_devices;
    }
    [[nodiscard]] std::size_t count() const { return m_count; }

private:
    std::mutex m_mutex;
    std::set<std::string> m_devices;
    std::atomic<std::size_t> m_count = 0;
};

SlowDevices& slowDevices()
{
    static SlowDevices devices;
    return devices;
}

std::shared_ptr<MountWatch::Snapshot const> readSnapshot(std::string const& path)
{
    auto const slow = slowDevices().all();
    MountTable table(readTextFile(path).value_or(""), slow);
    auto const& mounts = table.mounts();
    bool const hasRemote = std::any_of(mounts.begin(), mounts.end(), [](Mount const& mount) { return mount.mayHang; });
    return std::make_shared<MountWatch::Snapshot const>(MountWatch::Snapshot { std::move(table), hasRemote, slow.size() });
}

/// The tick of the coarse kernel clock, some milliseconds long, which costs next to nothing to read.
std::int64_t currentTick()
{
    timespec now {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::int64_t { now.tv_sec } * 1'000'000'000 + now.tv_nsec;
}

/// The last path that was followed, and its folder.
struct Followed {
    std::int64_t tick = -1;
    std::size_t slowCount = 0;
    std::string folder {};
    MountTable::Fate folderFate {};
    std::string path {};
    MountTable::Fate::Kind kind {};
};

/// Follows a path, and its folder once a tick: a menu's items mostly lie in one folder, and each is asked about thrice.
MountTable::Fate::Kind followedLately(MountWatch::Snapshot const& mounts, std::string_view path, std::int64_t tick)
{
    thread_local Followed last;
    if (last.tick != tick || last.slowCount != mounts.slowCount)
        last = { .tick = tick, .slowCount = mounts.slowCount };
    if (last.path == path)
        return last.kind;
    auto const folder = path.substr(0, path.rfind('/') + 1);
    if (last.folder != folder) {
        last.folder = folder;
        last.folderFate = mounts.table.follow(folder);
    }
    bool const isFound = last.folderFate.kind == MountTable::Fate::Kind::found;
    last.path = path;
    last.kind = isFound ? mounts.table.followFrom(last.folderFate.path, path.substr(folder.size())).kind : last.folderFate.kind;
    return last.kind;
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
    if (snapshot && !isOutdated && snapshot->slowCount == slowDevices().count())
        return snapshot;
    snapshot = readSnapshot(m_path);
    m_snapshot.store(snapshot);
    return snapshot;
}

bool MountWatch::isRemote(std::string_view path)
{
    auto const mounts = current();
    if (!mounts->hasRemote)
        return false;
    auto const kind = m_path == systemTable ? followedLately(*mounts, path, currentTick()) : mounts->table.follow(path).kind;
    return kind == MountTable::Fate::Kind::remote;
}

void MountWatch::noteAnswer(dev_t device, std::chrono::steady_clock::duration took)
{
    if (took < longestAnswer)
        return;
    auto name = std::to_string(major(device)) + ":" + std::to_string(minor(device));
    auto const* root = current()->table.mountOf("/");
    if (!root || root->device != name)
        slowDevices().add(std::move(name));
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
