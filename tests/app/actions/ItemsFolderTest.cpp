#include "app/actions/AddToItemsService.h"

#include "tests/fakes/FakeActions.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeTime.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

struct ItemsFolderTest : testing::Test {
    ItemsFolderTest()
    {
        files.addFile("/home/u/Report.pdf");
        files.addFolder("/home/u/Work");
    }
    std::vector<std::string> add(std::vector<std::string> const& paths)
    {
        std::vector<Url> urls;
        for (auto const& path : paths)
            urls.push_back(Url::fromPath(path));
        outcome = folder.add(urls);
        std::vector<std::string> lines;
        for (auto const& problem : outcome.problems)
            lines.push_back(problem.name + ": " + problem.reason);
        return lines;
    }
    std::vector<std::string> names()
    {
        auto found = files.names(folder.url()).value();
        std::ranges::sort(found);
        return found;
    }
    using Names = std::vector<std::string>;

    fakes::FakeFileSystem files;
    fakes::FakeAliasFiles aliases { files };
    ItemsFolder folder { Url::fromPath("/home/u/Library/Zanthe Vell Items"), files, aliases };
    ItemsFolder::Outcome outcome;
};

TEST_F(ItemsFolderTest, LiesInTheLibraryFolder) { EXPECT_EQ(ItemsFolder::defaultUrl(Url::fromPath("/home/u")).path(), "/home/u/Library/Zanthe Vell Items"); }

TEST_F(ItemsFolderTest, NumbersWhatIsAddedAgain)
{
    EXPECT_EQ(add({ "/home/u/Report.pdf", "/home/u/Work" }), Names {});
    EXPECT_EQ(add({ "/home/u/Report.pdf", "/home/u/Work", "/home/u/Work" }), Names {});
    EXPECT_EQ(names(), (Names { "Report 2.pdf", "Report.pdf", "Work", "Work 2", "Work 3" }));
    EXPECT_EQ(outcome.added.size(), 3u);
}

TEST_F(ItemsFolderTest, ABrokenLinkOccupiesItsName)
{
    files.addLink("/home/u/Library/Zanthe Vell Items/Work", "/gone");
    add({ "/home/u/Work" });
    EXPECT_EQ(names(), (Names { "Work", "Work 2" }));
}

TEST_F(ItemsFolderTest, NumbersBeforeTheExtension)
{
    struct Row {
        std::string name, second, why;
    };
    Row const rows[] = {
        { "a.tar.gz", "a.tar 2.gz", "only the last extension" },
        { ".profile", ".profile 2", "a leading dot is no extension" },
        { "Notes. final", "Notes. final 2", "a blank is no extension" },
        { "ends.", "ends. 2", "nothing after the dot" },
        { " \"odd\"\n", " \"odd\"\n 2", "quotes, blanks, line breaks" },
        { "...", "... 2", "dots alone" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name + ": " + row.why);
        files.addFile("/home/u/" + row.name);
        EXPECT_EQ(add({ "/home/u/" + row.name, "/home/u/" + row.name }), Names {});
        EXPECT_TRUE(files.isTaken(folder.url().appending(row.name)));
        EXPECT_TRUE(files.isTaken(folder.url().appending(row.second)));
    }
}

TEST_F(ItemsFolderTest, GivesUpAfterAThousandOfAName)
{
    auto const place = folder.url().path();
    files.addFile(place + "/Report.pdf");
    for (int number = 2; number <= 1000; ++number)
        files.addFile(place + "/Report " + std::to_string(number) + ".pdf");
    EXPECT_EQ(add({ "/home/u/Report.pdf", "/home/u/Work" }), (Names { "Report.pdf: The folder already holds a thousand items called “Report.pdf”." }));
    EXPECT_EQ(outcome.added.size(), 1u) << "the next one is added all the same";
    files.erase(place + "/Report 1000.pdf");
    EXPECT_EQ(add({ "/home/u/Report.pdf" }), Names {}) << "1000 is the last number";
    EXPECT_EQ(files.nodes.at(place + "/Report 1000.pdf").target, "/home/u/Report.pdf");
}

TEST_F(ItemsFolderTest, TakesTheNextNameWhenAnotherWasQuicker)
{
    int others = 2;
    aliases.beforeCreating = [&](Url const& place) {
        if (others-- > 0)
            files.addFile(place.path(), "theirs");
    };
    EXPECT_EQ(add({ "/home/u/Report.pdf" }), Names {});
    EXPECT_EQ(names(), (Names { "Report 2.pdf", "Report 3.pdf", "Report.pdf" }));
    EXPECT_EQ(fakes::textOf(files.nodes.at(folder.url().path() + "/Report.pdf").content), "theirs");
}

TEST_F(ItemsFolderTest, NamesAVolumesRootAfterTheVolume)
{
    struct Row {
        std::optional<std::string> label;
        std::string name, why;
    };
    Row const rows[] = {
        { "Macintosh HD", "Macintosh HD", "the volume's name" },
        { "A/B", "A:B", "what no file name may hold" },
        { std::nullopt, "File System", "as in the list of volumes" },
        { "..", "Untitled", "the folder above is no name" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        files.volumes.clear();
        if (row.label)
            files.volumes["/"] = *row.label;
        EXPECT_EQ(add({ "/" }), Names {});
        EXPECT_TRUE(files.isTaken(folder.url().appending(row.name)));
    }
}

TEST_F(ItemsFolderTest, TellsWhatCouldNotBeAddedAndAddsTheRest)
{
    EXPECT_EQ(add({ "/home/u/gone\xff.txt", "/home/u/Work" }), (Names { "gone\xef\xbf\xbd.txt: No such file or directory" }));
    EXPECT_EQ(outcome.added, (std::vector<Url> { Url::fromPath("/home/u/Work") }));
}

TEST_F(ItemsFolderTest, AddsNothingWithoutTheFolder)
{
    files.addFile("/home/u/Library/Zanthe Vell Items");
    add({ "/home/u/Work" });
    EXPECT_EQ(outcome.folderError, "File exists");
    EXPECT_TRUE(outcome.added.empty() && outcome.problems.empty());
}

TEST(AddAlert, SaysWhatHappenedInTheseWords)
{
    auto const url = Url::fromPath("/x");
    struct Row {
        ItemsFolder::Outcome outcome;
        std::string message, text, why;
    };
    Row const rows[] = {
        { { { url }, {}, {} }, "", "", "all went well: no alert" },
        { {}, "", "", "nothing sent: no alert" },
        { { {}, { { "A.txt", "Denied" } }, {} }, "“A.txt” could not be added to Zanthe Vell Items.", "“A.txt” — Denied", "the only one" },
        { { { url, url }, { { "A", "r" } }, {} }, "1 of 3 items could not be added to Zanthe Vell Items.", "“A” — r", "one of several" },
        { { {}, { { "A", "r" }, { "B", "s" } }, {} }, "2 of 2 items could not be added to Zanthe Vell Items.", "“A” — r\n“B” — s", "all of several" },
        { { {}, {}, "Not a directory" }, "The Zanthe Vell Items folder could not be created.", "/home/u/Items\n\nNot a directory", "no folder" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        auto const alert = alertFor(row.outcome, Url::fromPath("/home/u/Items"));
        EXPECT_EQ(alert ? alert->message : "", row.message);
        EXPECT_EQ(alert ? alert->informativeText : "", row.text);
        if (alert) {
            EXPECT_EQ(alert->buttons, (std::vector<std::string> { "OK" }));
        }
    }
}

struct AddToItemsServiceTest : ItemsFolderTest {
    fakes::FakeTime time;
    fakes::FakeApplication application;
    fakes::FakeAlerts alerts;
    AddToItemsService service { folder, { application, alerts, time } };
};

TEST_F(AddToItemsServiceTest, AnswersAtOnceAndAddsInTheBackground)
{
    EXPECT_TRUE(service.addToZantheVellItems({ Url::fromPath("/home/u/Work"), *Url::parse("https://example.org/") }));
    EXPECT_FALSE(files.exists(folder.url())) << "who asked is not kept waiting";
    time.runTasks();
    EXPECT_EQ(names(), Names { "Work" });
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(AddToItemsServiceTest, RefusesWhatHoldsNoFiles)
{
    EXPECT_EQ(service.addToZantheVellItems({}).error(), "No files or folders were sent to Zanthe Vell.");
    EXPECT_EQ(service.addToZantheVellItems({ *Url::parse("https://example.org/") }).error(), "No files or folders were sent to Zanthe Vell.");
    EXPECT_EQ(time.pendingBackground(), 0u);
}

TEST_F(AddToItemsServiceTest, ActivatesBeforeItsAlert)
{
    EXPECT_TRUE(service.addToZantheVellItems({ Url::fromPath("/gone") }));
    EXPECT_TRUE(application.log.empty());
    time.runTasks();
    EXPECT_EQ(application.log, Names { "activate" });
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“gone” could not be added to Zanthe Vell Items.");
}

} // namespace
} // namespace zv
