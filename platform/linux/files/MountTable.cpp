#include "platform/linux/files/MountTable.h"

#include "base/Split.h"
#include "platform/linux/posix/WholeFiles.h"

#include <algorithm>
#include <array>
#include <climits>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {

namespace {

constexpr std::array remoteTypes { "nfs", "nfs4", "cifs", "smb3", "smbfs", "ncpfs", "afs", "ceph", "coda", "9p", "glusterfs", "lustre", "autofs", "davfs",
    "fuse" };

/// Answered from this machine's own devices and memory. What is not here may hang: new types come, and most of them wait for a program.
constexpr std::array localTypes { "ext2", "ext3", "ext4", "xfs", "btrfs", "zfs", "bcachefs", "f2fs", "jfs", "nilfs2", "reiserfs", "minix", "ufs", "vfat",
    "msdos", "exfat", "ntfs", "ntfs3", "hfs", "hfsplus", "apfs", "affs", "udf", "iso9660", "squashfs", "erofs", "cramfs", "romfs", "overlay", "overlayfs",
    "aufs", "ecryptfs", "ubifs", "jffs2", "tmpfs", "ramfs", "rootfs", "devtmpfs", "devpts", "proc", "sysfs", "cgroup", "cgroup2", "mqueue", "hugetlbfs", "bpf",
    "tracefs", "debugfs", "securityfs", "selinuxfs", "smackfs", "configfs", "pstore", "efivarfs", "fusectl", "binfmt_misc", "nsfs", "rpc_pipefs", "resctrl" };

constexpr int mostLinks = 40; // the kernel's limit

bool isOctal(char c) { return c >= '0' && c <= '7'; }

/// Resolves "\040" and the like, which stand for blanks, tabs, line breaks and backslashes.
std::string unescaped(std::string_view text)
{
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        bool const isEscape = text[i] == '\\' && i + 3 < text.size() && isOctal(text[i + 1]) && isOctal(text[i + 2]) && isOctal(text[i + 3]);
        if (!isEscape) {
            plain += text[i];
            continue;
        }
        plain += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
        i += 3;
    }
    return plain;
}

bool isReadOnlyBy(std::string_view options) { return options == "ro" || options.starts_with("ro,"); }

/// Parses "36 35 98:0 /root /mount/point rw,noatime master:1 - ext4 /dev/sda1 rw".
std::optional<Mount> mountOfLine(std::string_view line)
{
    auto const fields = split(line, ' ');
    auto const dash = std::find(fields.begin(), fields.end(), "-");
    if (fields.size() < 6 || !fields[4].starts_with('/') || dash - fields.begin() < 6 || fields.end() - dash < 3)
        return std::nullopt;
    bool const isReadOnly = isReadOnlyBy(fields[5]) || (fields.end() - dash > 3 && isReadOnlyBy(dash[3]));
    return Mount { unescaped(fields[4]), std::string(dash[1]), unescaped(dash[2]), unescaped(fields[3]), isReadOnly, std::string(fields[2]), mayHang(dash[1]) };
}

std::optional<std::string> linkTarget(std::string const& path)
{
    std::array<char, PATH_MAX> buffer {};
    auto const length = readlink(path.c_str(), buffer.data(), buffer.size());
    return length < 0 ? std::nullopt : std::optional(std::string(buffer.data(), static_cast<std::size_t>(length)));
}

/// A path resolved component by component.
class Walk {
public:
    Walk(std::string start, std::string_view path)
        : m_place(std::move(start))
    {
        prepend(path);
    }

    [[nodiscard]] bool isDone() const { return m_rest.empty(); }
    [[nodiscard]] std::string const& place() const { return m_place; }

    void step()
    {
        auto const component = std::move(m_rest.back());
        m_rest.pop_back();
        if (component == "..")
            m_place.resize(m_place.size() > 1 ? std::max<std::size_t>(m_place.rfind('/'), 1) : 1);
        else if (component != ".")
            m_place += (m_place == "/" ? "" : "/") + component;
    }
    /// Continues from the target of the link at the current place.
    void jump(std::string_view target)
    {
        m_place.resize(target.starts_with('/') ? 1 : std::max<std::size_t>(m_place.rfind('/'), 1));
        prepend(target);
    }

private:
    void prepend(std::string_view path)
    {
        auto const parts = split(path, '/');
        m_rest.insert(m_rest.end(), parts.rbegin(), parts.rend());
    }

    std::string m_place;
    std::vector<std::string> m_rest; ///< the next component last
};

} // namespace

MountTable::MountTable(std::string_view mountInfo, std::set<std::string> const& slowDevices)
{
    for (auto const line : split(mountInfo, '\n')) {
        auto mount = mountOfLine(line);
        if (!mount)
            continue;
        mount->mayHang = mount->mayHang || slowDevices.contains(mount->device);
        m_mounts.push_back(std::move(*mount));
    }
}

MountTable MountTable::current() { return MountTable(readTextFile("/proc/self/mountinfo").value_or("")); }

Mount const* MountTable::mountOf(std::string_view path) const
{
    Mount const* deepest = nullptr;
    for (auto const& mount : m_mounts) {
        bool const isDeeper = !deepest || mount.path.size() >= deepest->path.size();
        if (isDeeper && isAtOrBelow(path, mount.path))
            deepest = &mount;
    }
    return deepest;
}

MountTable::Fate MountTable::followFrom(std::string place, std::string_view path) const
{
    Walk walk(std::move(place), path);
    int links = 0;
    bool isDirectory = true;
    bool isLink = false;
    while (!walk.isDone()) {
        walk.step();
        if (auto const* mount = mountOf(walk.place()); mount && mount->mayHang)
            return { Fate::Kind::remote, false, walk.place(), isLink };
        struct stat status { };
        if (lstat(walk.place().c_str(), &status) != 0)
            return { Fate::Kind::missing, false, {}, isLink };
        isDirectory = S_ISDIR(status.st_mode);
        if (!S_ISLNK(status.st_mode))
            continue;
        isLink = isLink || walk.isDone(); // the path's last component was reached
        auto const target = linkTarget(walk.place());
        if (!target || target->empty() || ++links > mostLinks)
            return { Fate::Kind::missing, false, {}, isLink };
        walk.jump(*target);
        isDirectory = true; // the walk continues from a folder
    }
    return { Fate::Kind::found, isDirectory, walk.place(), isLink };
}

bool isRemoteFileSystem(std::string_view type)
{
    if (type.starts_with("fuse."))
        return true;
    return std::find(remoteTypes.begin(), remoteTypes.end(), type) != remoteTypes.end();
}

bool mayHang(std::string_view type) { return std::find(localTypes.begin(), localTypes.end(), type) == localTypes.end(); }

} // namespace zv
