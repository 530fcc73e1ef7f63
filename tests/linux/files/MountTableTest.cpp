#include "platform/linux/files/MountTable.h"
#include "platform/linux/files/MountWatch.h"

#include "tests/linux/TemporaryFolder.h"

#include <sys/sysmacros.h>

namespace zv {
namespace {

using Kind = MountTable::Fate::Kind;
using tests::TemporaryFolder;

TEST(MountTable, ReadsTheKernelsTableAndSkipsWhatMakesNoSense)
{
    MountTable const table("22 27 0:21 / /proc rw,relatime - proc proc rw\n"
                           "27 1 254:0 / / rw - ext4 /dev/vda rw,discard\n"
                           "36 27 8:1 / /media/me/My\\040Stick\\134x rw shared:1 master:2 - vfat /dev/sdb1 rw\n"
                           "nonsense\n"
                           "1 2 3:4 / /no-dash rw shared:1\n"
                           "1 2 3:4 / /short rw -\n"
                           "\n"
                           "40 27 0:40 /sub /home/me/nas rw - nfs4 nas:/export rw");
    ASSERT_EQ(table.mounts().size(), 4u);
    EXPECT_EQ(table.mounts()[2].path, "/media/me/My Stick\\x");
    EXPECT_EQ(table.mounts()[2].type, "vfat");
    EXPECT_EQ(table.mounts()[3].source, "nas:/export");
    EXPECT_EQ(table.mounts()[3].root, "/sub");
}

TEST(MountTable, FindsTheDeepestMountAndTheLatestOfTwo)
{
    MountTable const table("1 0 1:1 / / rw - ext4 /dev/a rw\n"
                           "2 1 1:2 / /mnt rw - ext4 /dev/b rw\n"
                           "3 2 1:3 / /mnt rw - nfs nas:/x rw\n");
    EXPECT_EQ(table.mountOf("/mnt/file")->type, "nfs") << "mounted over";
    EXPECT_EQ(table.mountOf("/mnt")->type, "nfs");
    EXPECT_EQ(table.mountOf("/mnther")->source, "/dev/a") << "a name that only begins alike";
    EXPECT_EQ(MountTable("").mountOf("/x"), nullptr);
}

TEST(MountTable, KnowsWhatMayHang)
{
    for (auto const* type : { "nfs", "nfs4", "cifs", "smb3", "fuse.sshfs", "fuse.gvfsd-fuse", "autofs", "9p" })
        EXPECT_TRUE(isRemoteFileSystem(type)) << type;
    for (auto const* type : { "ext4", "btrfs", "fuseblk", "tmpfs", "overlay", "" })
        EXPECT_FALSE(isRemoteFileSystem(type)) << type;
    for (auto const* type : { "nfs4", "fuse.sshfs", "fuseblk", "virtiofs", "vboxsf", "a type of tomorrow" })
        EXPECT_TRUE(mayHang(type)) << type;
    for (auto const* type : { "ext4", "btrfs", "tmpfs", "overlay", "proc", "cgroup2" })
        EXPECT_FALSE(mayHang(type)) << type;
}

/// The "dead mount" of these tests is empty: a look at it would say "missing" instead of
/// "remote".
TEST(MountTable, NeverLooksAtAFileOnARemoteMountWhateverWayLeadsThere)
{
    TemporaryFolder const disk;
    disk.makeFolder("dead");
    disk.makeFolder("home/deep");
    disk.write("home/file", "");
    disk.link("home/to-dead", disk.path("dead"));
    disk.link("home/relative", "../dead/inside");
    disk.link("home/deep/up", "../../home/to-dead/below");
    disk.link("home/fine", "file");
    disk.link("home/broken", "nowhere");
    disk.link("home/loop", "loop");
    MountTable const table("1 0 1:1 / / rw - ext4 /dev/a rw\n2 1 0:2 / " + disk.path("dead") + " rw - nfs4 gone:/export rw\n");

    struct Row {
        std::string path;
        Kind kind;
        bool isDirectory;
        std::string why;
    };
    Row const rows[] = {
        { "dead", Kind::remote, false, "the mount point itself is the server's" },
        { "dead/a/b", Kind::remote, false, "below it" },
        { "home/to-dead", Kind::remote, false, "a link to it" },
        { "home/to-dead/x", Kind::remote, false, "a link on the way" },
        { "home/relative", Kind::remote, false, "a relative link" },
        { "home/deep/up", Kind::remote, false, "a link to a link" },
        { "home/deep/../to-dead/x", Kind::remote, false, "dots on the way" },
        { "home/file", Kind::found, false, "" },
        { "home/fine", Kind::found, false, "a link to a file" },
        { "home", Kind::found, true, "" },
        { "home/broken", Kind::missing, false, "" },
        { "home/loop", Kind::missing, false, "" },
        { "home/file/x", Kind::missing, false, "below a file" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.path + ": " + row.why);
        auto const path = disk.path(row.path);
        auto const folder = table.follow(path.substr(0, path.rfind('/')));
        auto const inTwoParts = table.followFrom(folder.path, path.substr(path.rfind('/') + 1));
        for (auto const& fate : { table.follow(path), folder.kind == MountTable::Fate::Kind::found ? inTwoParts : folder }) {
            EXPECT_EQ(fate.kind, row.kind);
            EXPECT_EQ(fate.isDirectory, row.isDirectory);
        }
    }
}

TEST(MountWatch, TakesWhatWasSlowToAnswerForWhatMayHang)
{
    TemporaryFolder const disk;
    auto const table = disk.write("mountinfo", "1 0 3801:1 / / rw - ext4 /dev/a rw\n2 1 3801:2 / /slow rw - ext4 /dev/b rw\n");
    MountWatch watch(table);
    MountWatch other(table);
    EXPECT_FALSE(other.isRemote("/slow/x"));
    watch.noteAnswer(makedev(3801, 2), std::chrono::milliseconds(900));
    EXPECT_FALSE(watch.isRemote("/slow/x"));
    watch.noteAnswer(makedev(3801, 2), std::chrono::seconds(1));
    watch.noteAnswer(makedev(3801, 1), std::chrono::seconds(9));
    EXPECT_TRUE(watch.isRemote("/slow/x") && other.isRemote("/slow/x")) << "from then on, for everybody";
    EXPECT_FALSE(watch.isRemote("/etc")) << "without the root nothing works";
}

} // namespace
} // namespace zv
