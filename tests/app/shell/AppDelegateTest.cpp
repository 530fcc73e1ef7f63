#include "app/shell/AppDelegate.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zv {
namespace {

struct RecordingSteps : LaunchSteps {
    bool relocateIfNeeded() override
    {
        log.emplace_back("relocate");
        return relocates;
    }
    void makeStatusItem() override { log.emplace_back("status item"); }
    void makeDockIcon() override { log.emplace_back("dock icon"); }
    void setServicesProvider() override { log.emplace_back("services"); }
    void startUpdater() override { log.emplace_back("updater"); }
    void showNotesIfDue() override { log.emplace_back("notes"); }
    void openSettings() override { log.emplace_back("settings"); }

    bool relocates = false;
    std::vector<std::string> log;
};

TEST(AppDelegate, LaunchesInOrderAndReopensTheSettings)
{
    RecordingSteps steps;
    AppDelegate delegate(steps);
    EXPECT_EQ(delegate.applicationDidFinishLaunching(), AppDelegate::Launch::running);
    EXPECT_EQ(steps.log, (std::vector<std::string> { "relocate", "status item", "dock icon", "services", "updater", "notes" }));

    steps.log.clear();
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(true));
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(false));
    EXPECT_EQ(steps.log, (std::vector<std::string> { "settings", "settings" }));
}

TEST(AppDelegate, BuildsNothingWhenACopyTakesOver)
{
    RecordingSteps steps;
    steps.relocates = true;
    EXPECT_EQ(AppDelegate(steps).applicationDidFinishLaunching(), AppDelegate::Launch::relocated);
    EXPECT_EQ(steps.log, (std::vector<std::string> { "relocate" }));
}

} // namespace
} // namespace zv
