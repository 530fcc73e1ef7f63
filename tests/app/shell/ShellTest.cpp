#include "app/settings/LoginItem.h"
#include "app/shell/DockIconController.h"

#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zv {
namespace {

using Policy = ActivationPolicy;

TEST(DockIcon, IsShownWhileATitledWindowIsOpenOrNothingElseLeadsToTheProgram)
{
    struct Row {
        bool statusItem, overlay;
        std::vector<WindowState> windows;
        bool hidden;
        Policy before, after;
        std::string why;
    };
    WindowState const panel { false, true, false }, settings { true, true, false }, minimised { true, false, true }, closed { true, false, false };
    Row const rows[] = {
        { true, true, {}, false, Policy::regular, Policy::accessory, "both presences" },
        { true, false, {}, false, Policy::regular, Policy::accessory, "one is enough" },
        { false, true, {}, false, Policy::regular, Policy::accessory, "either one" },
        { false, false, {}, false, Policy::accessory, Policy::regular, "none" },
        { true, true, { panel }, false, Policy::accessory, Policy::accessory, "a window without a title bar never counts" },
        { true, true, { panel, settings }, false, Policy::accessory, Policy::regular, "an open window" },
        { true, true, { minimised }, false, Policy::accessory, Policy::regular, "a minimised one too" },
        { true, true, { closed }, false, Policy::regular, Policy::accessory, "a closed one is over" },
        { true, true, { settings }, true, Policy::accessory, Policy::accessory, "while hidden nothing changes" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        fakes::FakeUserDefaults defaults;
        Preferences preferences(defaults);
        preferences.setShowsStatusItem(row.statusItem);
        preferences.setReplacesAppleMenu(row.overlay);
        fakes::FakeTime time;
        fakes::FakeApplication application;
        application.windowList = row.windows;
        application.hidden = row.hidden;
        application.policy = row.before;
        DockIconController controller({ application, preferences, time });
        EXPECT_EQ(application.policy, row.after);
        bool const becameRegular = row.before != row.after && row.after == Policy::regular;
        EXPECT_EQ(std::ranges::count(application.log, "activate"), becameRegular && !row.windows.empty()) << "its window gets the keyboard";
    }
}

TEST(DockIcon, FollowsPreferencesAndWindowsOnceATurn)
{
    fakes::FakeUserDefaults defaults;
    Preferences preferences(defaults);
    fakes::FakeTime time;
    fakes::FakeApplication application;
    DockIconController controller({ application, preferences, time });

    for (bool const shown : { false, true, false }) { // armed again after each change
        preferences.setShowsStatusItem(shown);
        preferences.setReplacesAppleMenu(shown);
        time.runTasks();
        EXPECT_EQ(application.policy, shown ? Policy::accessory : Policy::regular);
    }

    preferences.setShowsStatusItem(true);
    application.windowList = { { true, true, false } };
    time.runTasks();
    EXPECT_EQ(application.policy, Policy::regular) << "until the window closes";
    application.windowList.clear();
    application.log.clear();
    for (int i = 0; i < 50; ++i)
        application.onWindowsChanged();
    EXPECT_TRUE(application.log.empty());
    time.runTasks();
    EXPECT_EQ(application.log, (std::vector<std::string> { "accessory" }));
}

TEST(LoginItem, ReducesTheSystemsStatesAndShapesItsFailures)
{
    fakes::FakeLoginService service;
    LoginItem item(service);

    service.current = LoginService::Status::notFound;
    EXPECT_EQ(item.state(), LoginItem::State::disabled);
    EXPECT_TRUE(item.disable());
    EXPECT_EQ(service.unregistrations, 0) << "nothing is registered, so nothing is taken back";

    ASSERT_TRUE(item.enable().ok());
    EXPECT_EQ(item.state(), LoginItem::State::enabled);

    service.current = LoginService::Status::requiresApproval;
    EXPECT_TRUE(item.enable().value().requiresApproval);
    EXPECT_TRUE(item.disable());
    EXPECT_EQ(item.state(), LoginItem::State::disabled);

    service.outcome = Failure { LoginService::Error { 13, "Permission denied." } };
    auto const failed = item.enable();
    ASSERT_FALSE(failed.ok());
    EXPECT_EQ(failed.error().code, 13);
    EXPECT_EQ(failed.error().description, "Permission denied.");
    EXPECT_EQ(LoginItem::alertFor("Permission denied.").message, "“Open at login” could not be changed.");
}

} // namespace
} // namespace zv
