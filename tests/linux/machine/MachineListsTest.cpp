#include "platform/linux/apps/DesktopSettingsPanes.h"
#include "platform/linux/machine/DesktopVolumes.h"
#include "platform/linux/machine/SystemNetworkInterfaces.h"

#include "tests/fakes/FakeTime.h"
#include "tests/linux/TemporaryFolder.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

#include <deque>

namespace zv {
namespace {

using tests::TemporaryFolder;

std::vector<std::string> pathsOf(std::vector<Volume> const& volumes)
{
    std::vector<std::string> paths;
    for (auto const& volume : volumes)
        paths.push_back(volume.root.path());
    return paths;
}

TEST(UserVolumes, AreTheRootMediaDisksAndSharesAndNothingOfTheSystem)
{
    MountTable const mounts("1 0 1:1 / / rw - overlay overlay rw\n"
                            "2 1 0:2 / /proc rw - proc proc rw\n"
                            "3 1 0:3 / /dev/shm rw - tmpfs tmpfs rw\n"
                            "4 1 8:1 / /boot/efi rw - vfat /dev/sda1 rw\n"
                            "5 1 7:1 / /snap/core/1 ro - squashfs /dev/loop1 ro\n"
                            "6 1 8:3 / /home rw - ext4 /dev/sda3 rw\n"
                            "7 1 8:17 / /media/me/STICK rw - vfat /dev/sdb1 rw\n"
                            "8 1 8:17 / /run/media/me/DISK rw - ext4 /dev/sdc1 rw\n"
                            "9 1 0:9 / /mnt/nas rw - nfs4 gone:/export rw\n"
                            "10 1 0:10 /sub /srv/part rw - btrfs /dev/sdd rw\n"
                            "11 1 8:3 /me/x /mnt/bound rw - ext4 /dev/sda3 rw\n"
                            "12 1 0:11 / /home/me/.cache/doc rw - fuse.portal portal rw\n"
                            "13 1 0:12 / /home/me/.hidden rw - fuse.sshfs host:/ rw\n"
                            "14 1 0:13 / /mnt/tmp rw - tmpfs tmpfs rw\n"
                            "15 1 8:33 / /mnt/covered rw - ext4 /dev/sde1 rw\n"
                            "16 15 0:14 / /mnt/covered rw - tmpfs tmpfs rw\n"
                            "17 1 0:15 / /var/lib/docker/overlay2/x/merged rw - overlay overlay rw\n");
    auto const volumes = userVolumes(mounts, { { "/dev/sdb1", "My Stick" } });
    EXPECT_EQ(pathsOf(volumes), (std::vector<std::string> { "/", "/media/me/STICK", "/mnt/nas", "/run/media/me/DISK", "/srv/part" }));
    EXPECT_TRUE(volumes[0].isBoot);
    EXPECT_FALSE(volumes[1].isBoot);
    EXPECT_EQ(volumes[1].label, "My Stick");
    EXPECT_EQ(volumes[2].label, "");
}

TEST(DesktopVolumes, DoNotWaitLongForAMonitorThatIsSilent)
{
    fakes::FakeTime time;
    DesktopVolumes volumes(time, time);
    std::vector<Volume> found;
    volumes.list([&](auto listed) { found = std::move(listed); });
    EXPECT_TRUE(found.empty()) << "it may know of more than the mount table";
    time.advance(std::chrono::milliseconds(500));
    EXPECT_FALSE(found.empty());
    found.clear();
    volumes.list([&](auto listed) { found = std::move(listed); });
    EXPECT_FALSE(found.empty()) << "once is enough";
}

TEST(DeviceLabels, AreReadFromTheLinksWithTheirEscapes)
{
    TemporaryFolder const disk;
    disk.link("My\\x20Disk", "../../sdb1");
    disk.link("plain", "/dev/nvme0n1p2");
    disk.link("odd\\x2", "../../sdc1");
    disk.write("a file", "");
    EXPECT_EQ(readDeviceLabels(disk.path()), (DeviceLabels { { "/dev/sdb1", "My Disk" }, { "/dev/nvme0n1p2", "plain" }, { "/dev/sdc1", "odd\\x2" } }));
    EXPECT_TRUE(readDeviceLabels(disk.path("missing")).empty());
}

TEST(DefaultRoute, IsTheUsableOneOfLeastMetricAndIPv4First)
{
    std::string const v4 = "Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\t\tMTU\tWindow\tIRTT\n";
    std::string const none = "00000000000000000000000000000000";
    auto const v6 = [&](std::string const& metric, std::string const& flags, std::string const& interface) {
        return none + " 00 " + none + " 00 fe800000000000000000000000000001 " + metric + " 00000001 00000000 " + flags + " " + interface + "\n";
    };
    struct Row {
        std::string ipv4, ipv6, interface, why;
    };
    Row const rows[] = {
        { v4 + "eth0\t00000000\t0101A8C0\t0003\t0\t0\t600\t00000000\t0\t0\t0\nwlan0\t00000000\t0101A8C0\t0003\t0\t0\t100\t00000000\t0\t0\t0\n", "", "wlan0",
            "least metric" },
        { v4 + "eth0\t0001A8C0\t00000000\t0001\t0\t0\t0\t00FFFFFF\t0\t0\t0\n", "", "", "a local route only" },
        { v4 + "tun0\t00000000\t00000000\t0001\t0\t0\t0\t00000080\t0\t0\t0\n", "", "", "half of the world is no default" },
        { v4, v6("00000400", "00450003", "eth1") + v6("00000100", "00450003", "eth2"), "eth2", "IPv6 only" },
        { v4, v6("ffffffff", "00200200", "lo"), "", "the kernel's own entry that refuses everything" },
        { v4 + "eth0\t00000000\t0101A8C0\t0003\t0\t0\t600\t00000000\t0\t0\t0\n", v6("00000001", "00450003", "eth2"), "eth0", "IPv4 decides" },
        { "rubbish\n\n\t\t\n", "more rubbish", "", "" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(defaultRouteInterface(row.ipv4, row.ipv6), row.interface) << row.why;
}

/// A list of interfaces as the kernel gives it.
class Interfaces {
public:
    void add(char const* name, unsigned flags) { link(name, flags, nullptr); }
    void add(char const* name, unsigned flags, char const* address)
    {
        auto& storage = m_addresses.emplace_back();
        auto* const v4 = reinterpret_cast<sockaddr_in*>(&storage);
        auto* const v6 = reinterpret_cast<sockaddr_in6*>(&storage);
        if (inet_pton(AF_INET, address, &v4->sin_addr) == 1)
            v4->sin_family = AF_INET;
        else if (inet_pton(AF_INET6, address, &v6->sin6_addr) == 1)
            v6->sin6_family = AF_INET6;
        else
            storage.ss_family = AF_PACKET;
        link(name, flags, reinterpret_cast<sockaddr*>(&storage));
    }
    [[nodiscard]] ifaddrs const* first() const { return m_list.empty() ? nullptr : &m_list.front(); }

private:
    void link(char const* name, unsigned flags, sockaddr* address)
    {
        auto& added = m_list.emplace_back();
        added.ifa_name = const_cast<char*>(name);
        added.ifa_flags = flags;
        added.ifa_addr = address;
        if (m_list.size() > 1)
            m_list[m_list.size() - 2].ifa_next = &added;
    }
    std::deque<ifaddrs> m_list;
    std::deque<sockaddr_storage> m_addresses;
};

TEST(InterfaceAddresses, AreThoseOfInterfacesThatAreUpAndHaveOne)
{
    Interfaces list;
    list.add("lo", IFF_UP | IFF_LOOPBACK, "127.0.0.1");
    list.add("bare0", IFF_UP);
    list.add("packet0", IFF_UP, "not an address");
    list.add("down0", 0, "10.0.0.1");
    list.add("six0", IFF_UP, "fe80::1");
    list.add("six0", IFF_UP, "2001:db8::1");
    list.add("auto0", IFF_UP, "169.254.3.4");
    auto const addresses = addressesIn(list.first(), "six0", { { "six0", "Home" }, { "other", "Work" } });
    ASSERT_EQ(addresses.size(), 4u);
    EXPECT_TRUE(addresses[0].isLoopback);
    EXPECT_EQ(addresses[1].interfaceName, "six0");
    EXPECT_TRUE(addresses[1].isLinkLocal);
    EXPECT_EQ(addresses[2].address, "2001:db8::1");
    EXPECT_FALSE(addresses[2].isLinkLocal);
    EXPECT_EQ(addresses[2].family, AddressFamily::ipv6);
    EXPECT_EQ(addresses[2].displayName, "Home");
    EXPECT_TRUE(addresses[2].hasDefaultRoute);
    EXPECT_TRUE(addresses[3].isLinkLocal);
    EXPECT_FALSE(addresses[3].hasDefaultRoute);
    EXPECT_TRUE(addressesIn(nullptr, "", {}).empty());
}

struct PaneRow {
    std::string file, keys;
};

std::vector<std::string> paneTitles(std::string const& desktops, std::vector<PaneRow> const& rows)
{
    TemporaryFolder const disk;
    for (auto const& row : rows)
        disk.write("apps/" + row.file, "[Desktop Entry]\nType=Application\n" + row.keys);
    std::vector<std::string> titles;
    for (auto const& pane : settingsPanesIn(ApplicationIndex::read({ disk.path("apps") }, { {}, desktopsNamed(desktops) })))
        titles.push_back(pane.title + (pane.missingProgram.empty() ? "" : " needs " + pane.missingProgram));
    std::sort(titles.begin(), titles.end());
    return titles;
}

TEST(SettingsPanes, AreTheOnesOfTheRunningDesktop)
{
    std::vector<PaneRow> const all {
        { "gnome-sound-panel.desktop", "Name=Sound\nExec=sh\nNoDisplay=true\nOnlyShowIn=GNOME;\nCategories=GNOME;Settings;X-GNOME-Settings-Panel;\n" },
        { "gnome-gone-panel.desktop", "Name=Gone\nExec=sh\nHidden=true\nCategories=X-GNOME-Settings-Panel;\n" },
        { "xfce-display-settings.desktop", "Name=Display\nExec=sh\nOnlyShowIn=XFCE;\nCategories=XFCE;Settings;X-XFCE-SettingsDialog;\n" },
        { "kcm_mouse.desktop", "Name=Mouse\nExec=sh kcm_mouse\nNoDisplay=true\nOnlyShowIn=KDE;\n" },
        { "tool.desktop", "Name=Tool\nExec=sh\nCategories=Settings;\n" },
        { "quiet-tool.desktop", "Name=Quiet\nExec=sh\nNoDisplay=true\nCategories=Settings;\n" },
        { "editor.desktop", "Name=Editor\nExec=sh\nCategories=Utility;\n" },
    };
    using Titles = std::vector<std::string>;
    EXPECT_EQ(paneTitles("ubuntu:GNOME", all), (Titles { "Sound" })) << "even those kept out of menus";
    EXPECT_EQ(paneTitles("XFCE", all), (Titles { "Display" }));
    EXPECT_EQ(paneTitles("KDE", all), (Titles { "Mouse" }));
    EXPECT_EQ(paneTitles("", all), (Titles { "Tool" })) << "a desktop without marks of its own";
}

TEST(SettingsPanes, KnowWhatTheyMissAndLeaveOutWhatNothingCanStart)
{
    EXPECT_EQ(paneTitles("",
                  {
                      { "a.desktop", "Name=A\nExec=sh\nTryExec=no-such-program-zv\nCategories=Settings;\n" },
                      { "b.desktop", "Name=B\nExec=no-such-command-zv --x\nCategories=Settings;\n" },
                      { "c.desktop", "Name=C\nExec='unbalanced\nCategories=Settings;\n" },
                      { "d.desktop", "Name=D\nCategories=Settings;\n" },
                      { "e.desktop", "Name=E\nDBusActivatable=true\nCategories=Settings;\n" },
                  }),
        (std::vector<std::string> { "A needs no-such-program-zv", "B needs no-such-command-zv", "E" }));
}

} // namespace
} // namespace zv
