#include "app/shell/Relocation.h"

#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeShell.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

struct RelocationTest : testing::Test {
    bool relocate(Environment const& environment = {})
    {
        Relocation relocation({ installation, application, alerts, workspace });
        bool const ends = relocation.relocateIfNeeded(Url::fromPath("/Volumes/Zanthe Vell/Zanthe Vell.app"), environment);
        time.runTasks();
        return ends;
    }

    fakes::FakeInstallation installation;
    fakes::FakeApplication application;
    fakes::FakeAlerts alerts;
    fakes::FakeTime time;
    fakes::FakeWorkspace workspace { time };
};

TEST_F(RelocationTest, AsksOnlyWhereTheProgramWillNotStay)
{
    EXPECT_FALSE(relocate());
    installation.from = RelocationSource::diskImage;
    EXPECT_FALSE(relocate({ { "XCTestBundlePath", "" } }));
    installation.folder = std::nullopt;
    EXPECT_FALSE(relocate());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(RelocationTest, NamesTheDestinationAndTheReason)
{
    alerts.answers = { 1, 1 };
    installation.from = RelocationSource::translocated;
    EXPECT_FALSE(relocate());
    installation.from = RelocationSource::diskImage;
    EXPECT_FALSE(relocate());
    EXPECT_EQ(alerts.shown[1].message, "Copy Zanthe Vell to /Applications?");
    EXPECT_EQ(alerts.shown[1].escapeButton, 1U);
    EXPECT_NE(alerts.shown[0].informativeText, alerts.shown[1].informativeText) << "each place has a reason of its own";
    EXPECT_TRUE(installation.files.empty()) << "“Not Now” copies nothing";
    EXPECT_EQ(application.policy, ActivationPolicy::regular) << "so that the alert comes to the front";
}

TEST_F(RelocationTest, StartsTheCopyAndGivesWayToIt)
{
    installation.from = RelocationSource::diskImage;
    EXPECT_TRUE(relocate());
    EXPECT_EQ(installation.files, (std::set<std::string> { "/Applications/Zanthe Vell.app" }));
    EXPECT_EQ(workspace.log, (std::vector<std::string> { "launch file:///Applications/Zanthe%20Vell.app" }));
    EXPECT_EQ(application.log.back(), "terminate");
    EXPECT_TRUE(installation.hasGivenWay) << "or the copy would find that the program runs already";
}

TEST_F(RelocationTest, BuildsNothingMoreWhenToldToQuitWhileItAsks)
{
    installation.from = RelocationSource::diskImage;
    alerts.answers = { 1 };
    application.terminating = true;
    EXPECT_TRUE(relocate());
    EXPECT_TRUE(installation.files.empty());
}

TEST_F(RelocationTest, CarriesOnWhenTheCopyFailsHalfWay)
{
    installation.from = RelocationSource::diskImage;
    installation.copying = Failure { "No space left on device." };
    EXPECT_FALSE(relocate());
    EXPECT_TRUE(installation.files.empty()) << "nothing is left behind";
    EXPECT_EQ(alerts.shown.back().message, "“Zanthe Vell” could not be copied to /Applications.");
    EXPECT_EQ(alerts.shown.back().informativeText, "No space left on device.");
}

TEST_F(RelocationTest, EndsWithAWordWhenTheCopyDoesNotStart)
{
    installation.from = RelocationSource::translocated;
    workspace.launching = Failure { "It is damaged." };
    EXPECT_TRUE(relocate());
    EXPECT_EQ(alerts.shown.back().message, "“Zanthe Vell” could not be opened after copying.");
    EXPECT_EQ(alerts.shown.back().informativeText, "It is damaged. Open the copy in /Applications.");
    EXPECT_EQ(application.log.back(), "terminate");
}

} // namespace
} // namespace zv
