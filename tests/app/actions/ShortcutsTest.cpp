#include "app/actions/ShortcutsProvider.h"

#include "tests/fakes/FakeActions.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using fakes::FakeToolRunner;
using namespace std::chrono_literals;

constexpr auto idA = "6D0A7CC2-1E0C-4E0F-9D8C-0B7C1B0F8A01";
constexpr auto idB = "6d0a7cc2-1e0c-4e0f-9d8c-0b7c1b0f8a02";
constexpr auto folderId = "6D0A7CC2-1E0C-4E0F-9D8C-0B7C1B0F8A03";
constexpr auto ungroupedList = "list|--folder-name|none|--show-identifiers";
constexpr auto folderList = "list|--folders|--show-identifiers";

std::string line(std::string const& name, std::string const& id) { return name + " (" + id + ")\n"; }

TEST(ShortcutsProvider, ReadsOneLine)
{
    struct Row {
        std::string line, name, why;
    };
    std::string const id = std::string(" (") + idA + ")";
    Row const rows[] = {
        { "Resize" + id, "Resize", "a name and its identifier" },
        { "Resize (large)" + id, "Resize (large)", "only the last parenthesis counts" },
        { " Padded " + id, " Padded ", "blanks belong to the name" },
        { "Lower (" + std::string(idB) + ")", "Lower", "either case" },
        { id, "", "no name" },
        { "Shortcuts (2)", "", "no identifier: a header" },
        { "Resize" + id + " ", "", "something follows" },
        { "Resize (" + std::string(idA) + "]", "", "never closed" },
        { "Resize(" + std::string(idA) + ")", "", "no blank before it" },
        { "", "", "nothing" },
        { ")", "", "only the end" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.line + ": " + row.why);
        auto const shortcut = ShortcutsProvider::parseLine(row.line);
        EXPECT_EQ(shortcut ? shortcut->name : "", row.name);
    }
    EXPECT_EQ(ShortcutsProvider::parseLine("B (" + std::string(idB) + ")")->id, idB) << "the identifier stays as it was written";
}

struct ShortcutTool : testing::Test {
    std::shared_ptr<FakeToolRunner> runner = std::make_shared<FakeToolRunner>();
    ShortcutsProvider provider { runner };
};

TEST_F(ShortcutTool, ExplainsAFailedRun)
{
    struct Row {
        ToolResult result;
        std::string failure, why;
    };
    Row const rows[] = {
        { FakeToolRunner::printing("ignored"), "", "done" },
        { {}, "The Shortcuts command-line tool is not installed on this Mac.", "not there" },
        { { ToolResult::End::signalled, 15 }, "The Shortcuts service did not respond.", "ended by a signal" },
        { FakeToolRunner::failing(1, "Error: No such shortcut.\n"), "No such shortcut.", "its own word for error is dropped" },
        { FakeToolRunner::failing(1, " \n Error: twice Error: x\n"), "twice Error: x", "once, and after trimming" },
        { FakeToolRunner::failing(1, "Trouble\xff"), "Trouble\xef\xbf\xbd", "invalid bytes are replaced" },
        { FakeToolRunner::failing(3, " \n"), "The Shortcuts tool exited with status 3.", "silent" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        runner->answers["run|X"] = row.result;
        auto const ran = provider.run("X");
        EXPECT_EQ(ran ? "" : ran.error().description(), row.failure);
    }
    EXPECT_EQ(runner->requests[0].path, "/usr/bin/shortcuts");
    EXPECT_EQ(runner->requests[0].output, ToolOutput::discarded);
    EXPECT_FALSE(runner->requests[0].timeout) << "a shortcut may run as long as it needs";
}

TEST_F(ShortcutTool, ListsUngroupedThenFolders)
{
    runner->answers[ungroupedList] = FakeToolRunner::printing("header\n" + line("Loose", idA));
    runner->answers[folderList] = FakeToolRunner::printing(line("Work; rm -rf", folderId));
    runner->answers["list|--folder-name|Work; rm -rf|--show-identifiers"] = FakeToolRunner::printing(line("Resize (large)", idB) + line("Bad\xff", idA));
    auto const library = provider.loadLibrary();
    ShortcutsLibrary const expected { { { folderId, "Work; rm -rf", { { idB, "Resize (large)" }, { idA, "Bad\xef\xbf\xbd" } } } }, { { idA, "Loose" } }, {} };
    EXPECT_EQ(library, expected);
    EXPECT_EQ(runner->runs.size(), 3u);
    for (auto const& request : runner->requests) {
        EXPECT_EQ(request.timeout, 10s);
        EXPECT_EQ(request.output, ToolOutput::captured);
    }
}

TEST_F(ShortcutTool, AFailedFirstListingEndsTheLoad)
{
    runner->answers[ungroupedList] = { ToolResult::End::signalled, 15 };
    EXPECT_EQ(provider.loadLibrary(), (ShortcutsLibrary { {}, {}, "The Shortcuts service did not respond." }));
    EXPECT_EQ(runner->runs.size(), 1u);
}

TEST_F(ShortcutTool, ALaterFailureKeepsWhatWasListed)
{
    runner->answers[ungroupedList] = FakeToolRunner::printing(line("Loose", idA));
    runner->answers[folderList] = FakeToolRunner::printing(line("Work", folderId) + line("Play", folderId));
    runner->answers["list|--folder-name|Work|--show-identifiers"] = FakeToolRunner::failing(1, "Error: gone");
    runner->answers["list|--folder-name|Play|--show-identifiers"] = FakeToolRunner::failing(1, "Error: another");
    EXPECT_EQ(provider.loadLibrary(), (ShortcutsLibrary { { { folderId, "Work", {} }, { folderId, "Play", {} } }, { { idA, "Loose" } }, "gone" }))
        << "of two failures the first";
}

} // namespace
} // namespace zv
