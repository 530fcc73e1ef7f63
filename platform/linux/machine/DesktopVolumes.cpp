#include "platform/linux/machine/DesktopVolumes.h"

#include "platform/linux/posix/FolderStream.h"
#include "platform/linux/posix/GObjects.h"

#include <gio/gunixmounts.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <climits>
#include <unistd.h>
#include <utility>

namespace zv {

namespace {

constexpr char const* labelFolder = "/dev/disk/by-label";
constexpr std::chrono::milliseconds patienceWithMonitor { 500 };

/// System types beyond those of GIO.
constexpr std::array systemTypes { "squashfs", "overlay", "overlayfs", "tmpfs", "ramfs", "fuse.snapfuse", "fuse.lxcfs", "fuse.portal" };
constexpr std::array systemFolders { "/boot/", "/dev/", "/efi", "/etc/", "/proc/", "/run/", "/snap/", "/sys/", "/tmp/", "/usr/", "/var/" };
/// Types of which several parts may be mounted side by side, each a volume.
constexpr std::array typesWithParts { "btrfs", "zfs", "bcachefs" };

template <std::size_t N> bool contains(std::array<char const*, N> const& names, std::string const& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isSystemPath(std::string const& path)
{
    if (path.starts_with("/run/media/"))
        return false;
    bool const isBelowSystem = std::any_of(systemFolders.begin(), systemFolders.end(), [&](auto const* folder) { return path.starts_with(folder); });
    return isBelowSystem || g_unix_is_mount_path_system_internal(path.c_str()) || path.find("/.") != std::string::npos;
}

bool isPartOfAnother(Mount const& mount) { return mount.root != "/" && !contains(typesWithParts, mount.type) && !isRemoteFileSystem(mount.type); }

/// Decodes "My\x20Disk", the device manager's escapes in file names.
std::string unescapedLabel(std::string_view name)
{
    std::string label;
    for (std::size_t i = 0; i < name.size(); ++i) {
        bool const isEscape = name.substr(i).starts_with("\\x") && i + 3 < name.size() && g_ascii_isxdigit(name[i + 2]) && g_ascii_isxdigit(name[i + 3]);
        label += isEscape ? static_cast<char>(g_ascii_xdigit_value(name[i + 2]) * 16 + g_ascii_xdigit_value(name[i + 3])) : name[i];
        i += isEscape ? 3 : 0;
    }
    return label;
}

std::string labelOf(Mount const& mount, DeviceLabels const& labels)
{
    auto const found = labels.find(mount.source);
    return found == labels.end() ? std::string() : found->second;
}

} // namespace

bool isUserVolume(Mount const& mount)
{
    if (mount.path == "/")
        return true;
    if (contains(systemTypes, mount.type) || g_unix_is_system_fs_type(mount.type.c_str()))
        return false;
    return !isSystemPath(mount.path) && !isPartOfAnother(mount);
}

std::vector<Volume> userVolumes(MountTable const& mounts, DeviceLabels const& labels)
{
    std::map<std::string, Volume> byPath; // a later mount hides an earlier one at the same path
    for (auto const& mount : mounts.mounts()) {
        byPath.erase(mount.path);
        if (isUserVolume(mount))
            byPath.emplace(mount.path, Volume { Url::fromPath(mount.path), labelOf(mount, labels), mount.path == "/" });
    }
    std::vector<Volume> volumes;
    for (auto& [path, volume] : byPath)
        volumes.push_back(std::move(volume));
    return volumes;
}

DeviceLabels readDeviceLabels(std::string const& folder)
{
    DeviceLabels labels;
    FolderStream const stream(opendir(folder.c_str()));
    while (auto const* item = stream ? readdir(stream.get()) : nullptr) {
        std::array<char, PATH_MAX> target {};
        auto const length = readlinkat(dirfd(stream.get()), item->d_name, target.data(), target.size());
        if (length <= 0)
            continue;
        std::string const device(target.data(), static_cast<std::size_t>(length));
        labels["/dev/" + device.substr(device.rfind('/') + 1)] = unescapedLabel(item->d_name);
    }
    return labels;
}

/// The desktop's volume monitor, which answers from cached state.
struct DesktopVolumes::Monitor {
    explicit Monitor(GVolumeMonitor* m)
        : monitor(m)
    {
    }

    void addTo(std::vector<Volume>& volumes) const
    {
        auto* const mounts = g_volume_monitor_get_mounts(monitor.get());
        for (auto* node = mounts; node; node = node->next) {
            auto* const mount = static_cast<GMount*>(node->data);
            if (!g_mount_is_shadowed(mount))
                add(volumes, mount);
        }
        g_list_free_full(mounts, g_object_unref);
    }

private:
    static void add(std::vector<Volume>& volumes, GMount* mount)
    {
        GObjectRef<GFile> const root(g_mount_get_root(mount));
        auto const url = Url::parse(taken(g_file_get_uri(root.get())));
        if (!url)
            return;
        auto const known = std::find_if(volumes.begin(), volumes.end(), [&](auto const& volume) { return volume.root == *url; });
        if (known == volumes.end())
            volumes.push_back({ *url, taken(g_mount_get_name(mount)) });
        else if (known->label.empty() && !known->isBoot)
            known->label = taken(g_mount_get_name(mount));
    }

    GObjectRef<GVolumeMonitor> monitor;
};

DesktopVolumes::DesktopVolumes(Tasks& tasks, Timers& timers)
    : m_patience(timers.after(patienceWithMonitor, [this] { stopWaiting(); }))
{
    // Runs detached, so that nobody waits: making the monitor asks several session services.
    tasks.runDetached([received = m_lifetime.guard([this](std::shared_ptr<Monitor> monitor) { connected(std::move(monitor)); })]() -> std::function<void()> {
        auto const monitor = std::make_shared<Monitor>(g_volume_monitor_get());
        return [monitor, received]() mutable { received(monitor); };
    });
}

DesktopVolumes::~DesktopVolumes() = default;

void DesktopVolumes::connected(std::shared_ptr<Monitor> monitor)
{
    m_monitor = std::move(monitor);
    stopWaiting();
}

void DesktopVolumes::stopWaiting()
{
    m_patience.reset();
    for (auto const& done : std::exchange(m_waiting, {}))
        done(current());
}

void DesktopVolumes::list(Done done)
{
    if (m_patience)
        m_waiting.push_back(std::move(done));
    else
        done(current());
}

std::vector<Volume> DesktopVolumes::current() const
{
    auto volumes = userVolumes(MountTable::current(), readDeviceLabels(labelFolder));
    if (m_monitor)
        m_monitor->addTo(volumes);
    return volumes;
}

} // namespace zv
