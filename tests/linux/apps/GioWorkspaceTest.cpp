#include "platform/linux/apps/GioWorkspace.h"

#include "platform/linux/apps/ApplicationIndex.h"
#include "tests/fakes/FakeLists.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

/// Nothing is started: no entry counts as the system's, so each start would ask first.
TEST(GioWorkspace, BringsARunningApplicationToTheFrontAndStartsAnother)
{
    tests::TemporaryFolder const folder;
    auto const entry = [&](std::string const& name) { return folder.write(name, "[Desktop Entry]\nType=Application\nName=N\nExec=true\n"); };
    auto const known = entry("share/editor.desktop"), other = entry("elsewhere/viewer.desktop");
    auto const link = folder.link("To the editor", known);
    auto const id = [](std::string const& name) { return RunningApplications::List({ { name, "", std::nullopt } }); };
    struct Row {
        std::string opened;
        RunningApplications::List running;
        std::vector<std::string> activated;
        std::vector<Url> asked;
        char const* why;
    };
    Row const rows[] = {
        { known, id("editor.desktop"), { "editor.desktop" }, {}, "it runs" },
        { link, id("editor.desktop"), { "editor.desktop" }, {}, "through a link, too" },
        { known, id("viewer.desktop"), {}, { Url::fromPath(known) }, "another runs" },
        { known, std::nullopt, {}, { Url::fromPath(known) }, "the desktop does not tell" },
        { other, id("viewer.desktop"), {}, { Url::fromPath(other) }, "an entry of the same name that is not installed" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        fakes::FakeTime time;
        fakes::FakeRunningApplications running { time };
        running.applications = row.running;
        ApplicationCatalog catalog(time, { folder.path("share") }, {});
        constexpr uid_t nobody = 4'000'000'000;
        GioWorkspace workspace("", LaunchLog(folder.path("launches")), StartTrust({}, { .system = nobody }), { time, running, catalog });
        std::vector<Url> asked;
        workspace.onUntrusted = [&](UntrustedStart const& start) { asked.push_back(start.file); };
        workspace.open(Url::fromPath(row.opened));
        time.runTasks();
        EXPECT_EQ(running.activated, row.activated);
        EXPECT_EQ(asked, row.asked);
        EXPECT_TRUE(LaunchLog(folder.path("launches")).read().empty());
    }
}

} // namespace
} // namespace zv
