#include "platform/linux/apps/DesktopRecentFiles.h"
#include "platform/linux/apps/LaunchLog.h"
#include "platform/linux/apps/RecentlyUsedFile.h"
#include "platform/linux/machine/DesktopRecentServers.h"
#include "platform/linux/posix/FileLock.h"

#include "tests/fakes/FakeTime.h"
#include "tests/linux/ChildProcess.h"
#include "tests/linux/TemporaryFolder.h"

#include <sys/stat.h>

namespace zv {
namespace {

using tests::TemporaryFolder;

constexpr std::string_view head = R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0" xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks" xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info">
)";
constexpr std::string_view tail = "</xbel>\n";

std::string bookmark(std::string_view href, std::string_view visited, std::string_view mimeType = "text/plain", std::string_view more = {})
{
    return "<bookmark href=\"" + std::string(href) + "\" added=\"2001-01-01T00:00:00Z\" modified=\"2001-01-01T00:00:00Z\" visited=\"" + std::string(visited)
        + "\"><info><metadata owner=\"http://freedesktop.org\"><mime:mime-type type=\"" + std::string(mimeType) + "\"/>" + std::string(more)
        + "</metadata></info></bookmark>\n";
}

std::string application(std::string_view name, std::string_view exec, std::string_view modified)
{
    return "<bookmark:applications><bookmark:application name=\"" + std::string(name) + "\" exec=\"" + std::string(exec) + "\" modified=\""
        + std::string(modified) + "\" count=\"1\"/></bookmark:applications>";
}

std::string document(std::string const& bookmarks) { return std::string(head) + bookmarks + std::string(tail); }

std::vector<std::string> pathsOf(std::vector<UsedItem> const& items)
{
    std::vector<std::string> paths;
    for (auto const& item : items)
        paths.push_back(item.path);
    return paths;
}

using Paths = std::vector<std::string>;

TEST(RecentlyUsed, ComesNewestFirstByTheLastVisitSinceThen)
{
    TemporaryFolder const disk;
    auto const file = disk.write("recently-used.xbel",
        document(bookmark("file:///old", "2023-05-01T00:00:00Z") + bookmark("file:///b%20c", "2023-06-10T10:00:00.250000Z")
            + bookmark("file:///newest", "2023-06-11T00:00:00+02:00") + bookmark("file:///folder", "2023-06-02T00:00:00Z", "inode/directory")
            + bookmark("smb://nas/x", "2023-06-11T00:00:00Z") + bookmark("file:///private", "2023-06-11T00:00:00Z", "text/plain", "<bookmark:private/>")
            + bookmark("file:///undated", "") + bookmark("file:///wrong", "yesterday") + bookmark("not a url", "2023-06-11T00:00:00Z")
            + bookmark("file:///b%20c", "2023-06-01T00:00:00Z")));
    auto const items = usedItems(file, {}, ApplicationIndex {}, secondsOfTimestamp("2023-06-01T00:00:00Z"));
    EXPECT_EQ(pathsOf(items), (Paths { "/newest", "/b c", "/folder" }));
    EXPECT_EQ(items[2].type, UsedItemType::folder);
}

TEST(RecentlyUsed, CountsTheApplicationsOfItsBookmarksAndOurOwnLaunches)
{
    TemporaryFolder const disk;
    auto const entry = [](std::string const& name, std::string const& exec, std::string const& more = {}) {
        return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + exec + "\n" + more;
    };
    disk.write("apps/org.gnome.Evince.desktop", entry("Viewer", "/usr/bin/evince %U"));
    disk.write("apps/org.gnome.gedit.desktop", entry("Editor", "env X=1 gedit %U"));
    disk.write("apps/helper.desktop", entry("Helper", "helper", "NoDisplay=true\n"));
    disk.write("apps/a-bulk.desktop", entry("Bulk Rename", "browse --bulk-rename %F"));
    disk.write("apps/browser-of-files.desktop", entry("File Manager", "browse %F"));
    disk.write("more/a-bulk.desktop", entry("Bulk Rename", "browse --bulk-rename %F"));
    disk.link("link", disk.path("more/a-bulk.desktop"));
    auto const file = disk.write("recently-used.xbel",
        document(bookmark("file:///a", "2001-01-01T00:00:00Z", "text/plain",
                     application("Files", "&apos;browse %u&apos;", "2023-06-08T00:00:00Z")
                         + application("Document Viewer", "&apos;evince %u&apos;", "2023-06-10T00:00:00Z")
                         + application("gedit", "&apos;/opt/renamed %u&apos;", "2023-06-09T00:00:00Z"))
            + bookmark("file:///b", "2001-01-01T00:00:00Z", "text/plain",
                application("helper", "helper", "2023-06-10T00:00:00Z") + application("gone", "&apos;unbalanced", "2023-06-10T00:00:00Z")
                    + application("Document Viewer", "&apos;evince %u&apos;", "2023-06-01T00:00:00Z"))));
    auto const since = secondsOfTimestamp("2023-06-01T00:00:00Z");
    auto const index = ApplicationIndex::read({ disk.path("apps"), disk.path("more") });
    auto const items = usedItems(file,
        { { since + 1, "/opt/launched.desktop" }, { since - 1, "/opt/long-ago.desktop" }, { since + 2, disk.path() + "//link" },
            { since + 3, disk.path() + "/apps//a-bulk.desktop" } },
        index, since);
    EXPECT_EQ(pathsOf(items),
        (Paths { disk.path("apps/org.gnome.Evince.desktop"), disk.path("apps/org.gnome.gedit.desktop"), disk.path("apps/browser-of-files.desktop"),
            disk.path("apps/a-bulk.desktop"), "/opt/launched.desktop" }))
        << "each once, the shadowed copy and the link under the name of the entry that counts; the file manager is not \"Bulk Rename\"";
    for (auto const& item : items)
        EXPECT_EQ(item.type, UsedItemType::application);
}

TEST(RecentlyUsed, KeepsWhatCameBeforeTheDamage)
{
    auto const good = bookmark("file:///good", "2023-06-10T00:00:00Z");
    struct Row {
        std::string text;
        std::size_t count;
        std::string why;
    };
    std::string const deep(100'000, ' ');
    std::string nested;
    for (int i = 0; i < 100'000; ++i)
        nested += "<a>";
    Row const rows[] = {
        { document(good), 1, "whole" },
        { std::string(head) + good + "<bookmark href=\"file:///cut", 1, "cut off within a tag" },
        { std::string(head) + good, 1, "its end is missing" },
        { document(good + "<bookmark href='file:///x' visited='2023-06-10T00:00:00Z'></wrong>"), 1, "tags that do not match" },
        { document(good + "\xFF\xFE" + good), 1, "bytes that are no text" },
        { document(good + nested), 1, "nested without end" },
        { document(good + "&undefined;" + good), 1, "an entity nobody defined" },
        { "", 0, "empty" },
        { std::string(4096, '\0'), 0, "zeros, as after a crash" },
        { "not xml at all", 0, "" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        TemporaryFolder const disk;
        EXPECT_EQ(usedItems(disk.write("x", row.text), {}, ApplicationIndex {}, 0).size(), row.count);
    }
    TemporaryFolder const disk;
    EXPECT_TRUE(usedItems(disk.path("missing"), {}, ApplicationIndex {}, 0).empty());
}

TEST(RecentlyUsed, DoesNotWaitForAPipeInTheFilesPlace)
{
    TemporaryFolder const disk;
    ASSERT_EQ(mkfifo(disk.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(readRecentlyUsed(disk.path("pipe"), [](auto&&) {}), FileReading::failed);
}

TEST(ExistingItems, SkipsMissingFilesAndLeavesRemoteOnesUntouched)
{
    TemporaryFolder const disk;
    auto const a = disk.write("a", "");
    auto const folder = disk.makeFolder("folder");
    MountTable const mounts("1 0 1:1 / / rw - ext4 /dev/a rw\n2 1 0:2 / " + disk.path("dead") + " rw - cifs //gone/x rw\n");
    std::vector<UsedItem> const items { { disk.path("gone"), 9, {} }, { disk.path("dead/doc"), 8, {} }, { disk.path("dead/dir"), 7, UsedItemType::folder },
        { folder, 6, UsedItemType::folder }, { a, 5, {} } };
    auto const existing = existingItems(items, mounts, 100);
    ASSERT_EQ(existing.size(), 4u);
    EXPECT_EQ(existing[0].path, disk.path("dead/doc"));
    EXPECT_TRUE(existing[0].isOnRemoteVolume);
    EXPECT_FALSE(existing[0].isDirectory);
    EXPECT_TRUE(existing[1].isDirectory) << "as the list remembers it";
    EXPECT_TRUE(existing[2].isDirectory);
    EXPECT_FALSE(existing[3].isOnRemoteVolume);
    EXPECT_EQ(existingItems(items, mounts, 1).size(), 1u);
}

struct DesktopRecentFilesTest : testing::Test {
    DesktopRecentFilesTest() { apps = disk.makeFolder("apps"); }
    std::vector<std::string> names(RecentItemsScope scope)
    {
        std::vector<std::string> found;
        auto const search = files.find({ scope, std::chrono::days(30), 10 }, [&](auto const& told) {
            for (auto const& file : told)
                found.push_back(Url::fromPath(file.path).lastPathComponent());
        });
        EXPECT_TRUE(found.empty()) << "never before it returns";
        time.runTasks();
        return found;
    }
    std::string dated(std::chrono::hours ago) const
    {
        auto const seconds = std::chrono::system_clock::to_time_t(time.now() - ago);
        char text[32];
        std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&seconds));
        return text;
    }

    TemporaryFolder disk;
    std::string apps;
    fakes::FakeTime time;
    ApplicationCatalog catalog { time, { disk.path("apps") }, {} };
    DesktopRecentFiles files { { time, time, catalog }, disk.path("recently-used.xbel"), LaunchLog(disk.path("state/launches")) };
};

TEST_F(DesktopRecentFilesTest, AnswerEachScopeFromTheLastThirtyDays)
{
    using std::chrono::hours;
    auto const doc = disk.write("doc.txt", "");
    auto const folder = disk.makeFolder("folder");
    auto const old = disk.write("old.txt", "");
    auto const others = disk.write("others.txt", "");
    auto const app = disk.write("apps/app.desktop", "[Desktop Entry]\nType=Application\nName=App\nExec=app\n");
    disk.write("recently-used.xbel",
        document(bookmark("file://" + doc, dated(hours(1))) + bookmark("file://" + folder, dated(hours(2)), "inode/directory")
            + bookmark("file://" + old, dated(hours(24 * 31))) + bookmark("file:///gone.txt", dated(hours(1)))
            + bookmark("file://otherhost" + others, dated(hours(1))) + bookmark("file://" + others + "%00.png", dated(hours(1)))));
    LaunchLog(disk.path("state/launches")).add({ std::chrono::system_clock::to_time_t(time.now() - hours(24)), app });
    EXPECT_EQ(names(RecentItemsScope::all), (Paths { "doc.txt", "folder", "app.desktop" }));
    EXPECT_EQ(names(RecentItemsScope::applications), (Paths { "app.desktop" }));
    EXPECT_EQ(names(RecentItemsScope::folders), (Paths { "folder" }));
    EXPECT_EQ(names(RecentItemsScope::documents), (Paths { "doc.txt" }));
}

TEST_F(DesktopRecentFilesTest, SayNothingOnceTheSearchHasEnded)
{
    int answers = 0;
    auto const note = [&](auto const&) { ++answers; };
    auto kept = files.find({}, note);
    auto ended = files.find({}, note);
    ended.reset();
    time.runTasks();
    EXPECT_EQ(answers, 1);
}

TEST(LaunchLog, RemembersTheLatestLaunchesOfEachAndSurvivesDamage)
{
    TemporaryFolder const disk;
    LaunchLog const log(disk.path("deep/state/launches"));
    EXPECT_TRUE(log.read().empty());
    log.add({ 1, "/a b.desktop" });
    log.add({ 2, "/b" });
    log.add({ 3, "/a b.desktop" });
    log.add({ 4, "relative" });
    log.add({ 5, "/line\nbreak" });
    auto const launches = log.read();
    ASSERT_EQ(launches.size(), 2u);
    EXPECT_EQ(launches[0].path, "/b");
    EXPECT_EQ(launches[1].path, "/a b.desktop");
    EXPECT_EQ(launches[1].time, 3);

    disk.write("deep/state/launches", "x /a\n12\n 5 /b\n7 /good\n99999999999999999999999 /big\n8 \n9 /last");
    EXPECT_EQ(log.read().size(), 2u);

    for (int i = 0; i < 300; ++i)
        log.add({ i, "/app" + std::to_string(i) });
    EXPECT_EQ(log.read().size(), LaunchLog::capacity);
    EXPECT_EQ(log.read().back().path, "/app299");
}

TEST(LaunchLog, LosesNothingWhenSeveralWriteAtOnce)
{
    TemporaryFolder const disk;
    LaunchLog const log(disk.path("launches"));
    std::vector<pid_t> writers;
    for (int writer = 0; writer < 4; ++writer)
        writers.push_back(tests::inChild([&] {
            for (int i = 0; i < 20; ++i)
                log.add({ i, "/app" + std::to_string(writer) + "-" + std::to_string(i) });
            return 0;
        }));
    for (auto const writer : writers)
        EXPECT_EQ(tests::exitStatusOf(writer), 0);
    EXPECT_EQ(log.read().size(), 80u);
    auto const held = lockFile(disk.path("launches.lock"), std::chrono::seconds(1));
    log.add({ 1, "/late" });
    EXPECT_EQ(log.read().size(), 80u) << "what another writes meanwhile is not undone";
}

TEST(DesktopRecentServers, ComeFromUsedFilesBookmarksAndTheServerList)
{
    TemporaryFolder const disk;
    DesktopRecentServers::Files const files { disk.write("used",
                                                  document(bookmark("smb://nas/x/y", "2023-06-10T00:00:00Z") + bookmark("file:///a", "2023-06-10T00:00:00Z")
                                                      + bookmark("https://example.org/", "2023-06-10T00:00:00Z")
                                                      + bookmark("smb://nas/private", "2023-06-10T00:00:00Z", "text/plain", "<bookmark:private/>"))),
        disk.write("bookmarks", "file:///home/me/Documents\nsftp://me@host/srv Web server\n\nrubbish\ndavs://cloud.example/"),
        disk.write("servers", document(bookmark("ftp://mirror/", "2023-06-10T00:00:00Z"))) };
    auto const servers = readRecentServers(files);
    ASSERT_TRUE(servers);
    std::vector<std::string> urls;
    for (auto const& server : *servers)
        urls.push_back(server.url.toString());
    EXPECT_EQ(urls, (Paths { "smb://nas/x/y", "ftp://mirror/", "sftp://me@host/srv", "davs://cloud.example/" }));
}

TEST(DesktopRecentServers, AreAnEmptyListWhenNothingIsThereAndUnknownWhenItCannotBeRead)
{
    TemporaryFolder const disk;
    auto const servers = readRecentServers({ disk.path("a"), disk.path("b"), disk.path("c") });
    ASSERT_TRUE(servers);
    EXPECT_TRUE(servers->empty());
    EXPECT_FALSE(readRecentServers({ disk.makeFolder("a-folder"), disk.path("b"), disk.path("c") })) << "there, but unreadable";
    EXPECT_EQ(readRecentServers({ disk.path("a-folder"), disk.write("d", "ftp://mirror/\n"), disk.path("c") }).value_or(std::vector<RecentServer>()).size(), 1U)
        << "one of them";
}

} // namespace
} // namespace zv
