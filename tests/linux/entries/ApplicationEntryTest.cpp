#include "platform/linux/entries/ApplicationEntry.h"
#include "platform/linux/apps/XdgApplicationFolders.h"

#include "tests/fakes/FakeTime.h"
#include "tests/linux/TemporaryFolder.h"

namespace zv {
namespace {

using tests::TemporaryFolder;

std::string entryText(std::string_view keys)
{
    return "[Desktop Entry]\nType=Application\n" + std::string(keys) + "\n[Desktop Action new]\nName=Another name\nExec=other\n";
}

TEST(ApplicationEntry, IsNamedInTheUsersLanguage)
{
    TemporaryFolder const disk;
    auto const file = disk.write("files.desktop", entryText("Name=File Manager\nName[pt]=pt files\nName[pt_BR]=pt_BR files\nExec=files\n"));
    EXPECT_EQ(readApplicationEntry(file, "files.desktop", { { "pt_PT", "pt" }, {} })->name, "pt files");
    EXPECT_EQ(readApplicationEntry(file, "files.desktop", { { "tlh", "C" }, {} })->name, "File Manager");
}

TEST(ApplicationEntry, IsReadOnlyWhenItIsOne)
{
    struct Row {
        std::string text, why;
        bool isEntry;
    };
    Row const rows[] = {
        { entryText("Name=App\nExec=app"), "whole", true },
        { entryText("Name=App"), "it may be without a command: activated over the bus", true },
        { entryText("Exec=app"), "nothing to call it by", false },
        { "[Desktop Entry]\nType=Link\nName=Web\nURL=https://example.org\n", "a link", false },
        { "[Desktop Entry]\nName=App\nExec=app\n", "of no type", false },
        { "[Other]\nType=Application\nName=App\n", "the wrong group", false },
        { "Name=App\n[Desktop Entry]\n", "a key before any group", false },
        { "", "empty", false },
        { std::string("\0\x01\xFF garbage", 11), "bytes", false },
        { entryText("Name=Bad \xFF name\nExec=app"), "a name that is not UTF-8", false },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        TemporaryFolder const disk;
        EXPECT_EQ(readApplicationEntry(disk.write("a.desktop", row.text), "a.desktop", {}).has_value(), row.isEntry);
    }
}

TEST(ApplicationEntry, FindsTheProgramOfACommandLine)
{
    struct Row {
        std::string exec;
        std::optional<std::string> program;
    };
    Row const rows[] = {
        { "firefox %u", "firefox" },
        { "\"/opt/My App/run\" --new %F", "/opt/My App/run" },
        { "env GDK_BACKEND=x11 app %U", "app" },
        { "'unbalanced", std::nullopt },
        { "", std::nullopt },
        { "env A=b", std::nullopt },
    };
    for (auto const& row : rows)
        EXPECT_EQ(programOfCommandLine(row.exec), row.program) << row.exec;
}

TEST(ApplicationEntry, NamesTheProgramThatIsMissing)
{
    struct Row {
        std::string exec, tryExec;
        bool isDBusActivatable;
        std::string missing, why;
    };
    Row const rows[] = {
        { "sh -c true", "", false, "", "installed" },
        { "sh", "no-such-program-zv", false, "no-such-program-zv", "TryExec decides first" },
        { "no-such-program-zv --x", "", false, "no-such-program-zv", "nothing to start" },
        { "no-such-program-zv", "", true, "", "the bus starts it" },
        { "/no/such/path", "/bin/sh", false, "/no/such/path", "" },
        { "'unbalanced", "", false, "", "nobody can tell what it needs" },
    };
    for (auto const& row : rows) {
        ApplicationEntry entry;
        entry.exec = row.exec;
        entry.tryExec = row.tryExec;
        entry.isDBusActivatable = row.isDBusActivatable;
        EXPECT_EQ(entry.missingProgram(), row.missing) << row.exec << ": " << row.why;
    }
}

TEST(ApplicationIndex, FindsTheEntryOfAWindowByClassIdOrShortId)
{
    TemporaryFolder const disk;
    disk.write("apps/org.gnome.Nautilus.desktop", entryText("Name=Files\nExec=nautilus"));
    disk.write("apps/google-chrome.desktop", entryText("Name=Chrome\nExec=/usr/bin/chrome-stable %U\nStartupWMClass=Google-chrome"));
    disk.write("apps/kde/kate.desktop", entryText("Name=Kate\nExec=kate"));
    disk.write("apps/deleted.desktop", entryText("Name=Deleted\nExec=deleted\nHidden=true"));
    auto const index = ApplicationIndex::read({ disk.path("apps"), disk.path("missing") });
    struct Row {
        std::string windowClass, name;
    };
    for (auto const& row : { Row { "google-chrome", "Chrome" }, Row { "Google-Chrome", "Chrome" }, Row { "org.gnome.Nautilus", "Files" },
             Row { "Nautilus", "Files" }, Row { "kde-kate", "Kate" }, Row { "deleted", "" }, Row { "", "" }, Row { "xterm", "" } }) {
        auto const* entry = index.findByWindowClass(row.windowClass);
        EXPECT_EQ(entry ? entry->name : "", row.name) << row.windowClass;
    }
    EXPECT_EQ(index.findByProgram("/somewhere/chrome-stable")->name, "Chrome");
    EXPECT_EQ(index.find("org.gnome.Nautilus.desktop"), index.find("org.gnome.nautilus"));
    EXPECT_EQ(index.find("deleted.desktop"), nullptr);
}

TEST(ApplicationIndex, LetsAnEarlierFolderReplaceOrDeleteALaterOnesEntry)
{
    TemporaryFolder const disk;
    disk.write("home/app.desktop", entryText("Name=Mine\nExec=app"));
    disk.write("home/gone.desktop", entryText("Name=Gone\nHidden=true"));
    disk.write("home/broken.desktop", "rubbish");
    disk.write("system/app.desktop", entryText("Name=Theirs\nExec=app"));
    disk.write("system/gone.desktop", entryText("Name=Still here\nExec=gone"));
    disk.write("system/broken.desktop", entryText("Name=Whole\nExec=whole"));
    auto const index = ApplicationIndex::read({ disk.path("home"), disk.path("system") });
    EXPECT_EQ(index.find("app")->name, "Mine");
    EXPECT_EQ(index.find("gone"), nullptr);
    EXPECT_EQ(index.find("broken")->name, "Whole");
}

TEST(ApplicationCatalog, ReadsOffTheMainThreadOnceAndAgainWhenAFolderChanged)
{
    TemporaryFolder const disk;
    disk.write("apps/one.desktop", entryText("Name=One\nExec=one"));
    fakes::FakeTime time;
    ApplicationCatalog catalog(time, { disk.path("apps") }, {});
    std::vector<std::size_t> counts;
    auto const count = [&](ApplicationCatalog::Index const& index) { counts.push_back(index->entries().size()); };
    catalog.withIndex(count);
    catalog.withIndex(count);
    EXPECT_TRUE(counts.empty());
    EXPECT_EQ(time.pendingBackground(), 1u);
    time.runTasks();
    catalog.withIndex(count);
    EXPECT_EQ(counts, (std::vector<std::size_t> { 1, 1, 1 })) << "at hand the third time";

    disk.write("apps/two.desktop", entryText("Name=Two\nExec=two"));
    catalog.withIndex(count);
    time.runTasks();
    EXPECT_EQ(counts.back(), 2u);
}

TEST(XdgApplicationFolders, ListWhatAUserMayStartOnceWithItsCategory)
{
    TemporaryFolder const disk;
    disk.write("home/sh.desktop", entryText("Name=My Shell\nExec=sh\nCategories=Utility;Game;"));
    disk.write("system/sh.desktop", entryText("Name=Shell\nExec=sh"));
    disk.write("system/kept.desktop", entryText("Name=Kept out\nExec=sh\nNoDisplay=true"));
    disk.write("system/away.desktop", entryText("Name=Away\nExec=sh\nTryExec=/nowhere/away"));
    fakes::FakeTime time;
    ApplicationCatalog catalog(time, { disk.path("home"), disk.path("system") }, {});
    XdgApplicationFolders folders(catalog, { disk.path("home"), disk.path("system") });
    EXPECT_TRUE(folders.contains(Url::fromPath(disk.path("system") + "/")));
    EXPECT_FALSE(folders.contains(Url::fromPath(disk.path("system/kde"))));
    std::vector<InstalledApplication> found;
    folders.list([&](auto applications) { found = std::move(applications); });
    time.runTasks();
    EXPECT_EQ(found, (std::vector { InstalledApplication { "My Shell", Url::fromPath(disk.path("home/sh.desktop")), ApplicationCategory::games } }));
}

} // namespace
} // namespace zv
