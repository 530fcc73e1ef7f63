#include "app/doctor/MacChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace zv {
namespace {

using State = DoctorCheck::State;

/// A Mac that lacks nothing.
MacFindings everything()
{
    MacFindings found;
    found.openAtLogin = LoginService::Status::enabled;
    found.hasUpdateFramework = found.hasMenuBarFunctions = true;
    found.running = MacProgramFindings { PermissionState::granted, PermissionState::granted, {} };
    return found;
}

TEST(MacChecks, FindNothingWhereNothingIsWanting)
{
    auto const checks = macChecks(everything());
    EXPECT_EQ(checks.size(), 7U);
    for (auto const& check : checks) {
        EXPECT_EQ(check.state, State::ok) << check.name << ": " << check.explanation;
        EXPECT_EQ(check.remedy, "") << check.name;
    }
}

TEST(MacChecks, SayOfEachThingThatIsWantingWhatToDo)
{
    struct Row {
        char const* what;
        std::function<void(MacFindings&)> takeAway;
        std::string check;
        std::string explanation, remedy; ///< a part of each
    };
    Row const rows[] = {
        { "translocated", [](MacFindings& f) { f.place = RelocationSource::translocated; }, "Place", "read-only copy", "with the Finder" },
        { "a disk image", [](MacFindings& f) { f.place = RelocationSource::diskImage; }, "Place", "disk image", "Applications" },
        { "in quarantine", [](MacFindings& f) { f.isQuarantined = true; }, "Place", "quarantine", "xattr" },
        { "no functions", [](MacFindings& f) { f.hasMenuBarFunctions = false; }, "Menu bar", "does not tell", "icon" },
        { "refused",
            [](MacFindings& f) {
                f.running->refusedShortcuts = { "⌥⌘E", "F5" };
            },
            "Hotkeys", "⌥⌘E, F5", "hotkeys" },
        { "no events", [](MacFindings& f) { f.running->automation = PermissionState::refused; }, "Automation", "not allowed", "Automation" },
        { "no keys", [](MacFindings& f) { f.running->accessibility = PermissionState::refused; }, "Accessibility", "Lock Screen", "Accessibility" },
        { "no framework", [](MacFindings& f) { f.hasUpdateFramework = false; }, "Updates", "without the update framework", "new version" },
        { "switched off", [](MacFindings& f) { f.openAtLogin = LoginService::Status::requiresApproval; }, "Login", "switched off", "Login Items" },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.what);
        auto found = everything();
        row.takeAway(found);
        auto const checks = macChecks(found);
        auto const check = std::ranges::find(checks, row.check, &DoctorCheck::name);
        ASSERT_NE(check, checks.end());
        EXPECT_EQ(check->state, State::limited);
        EXPECT_NE(check->explanation.find(row.explanation), std::string::npos) << check->explanation;
        EXPECT_NE(check->remedy.find(row.remedy), std::string::npos) << check->remedy;
        EXPECT_EQ(std::ranges::count_if(checks, [](auto const& other) { return other.state != State::ok; }), 1) << "one cause, one complaint";
        EXPECT_EQ(macChecks(*decodedMacFindings(encoded(found))), checks) << "and it arrives at a command";
    }
    for (auto const& check : macChecks(everything()))
        EXPECT_TRUE(std::ranges::count(rows, check.name, &Row::check)) << check.name << " has no row";
}

TEST(MacChecks, AreSilentAboutWhatOnlyTheRunningProgramKnows)
{
    auto found = everything();
    found.running.reset();
    for (auto const& check : macChecks(*decodedMacFindings(encoded(found))))
        EXPECT_TRUE(check.name != "Hotkeys" && check.name != "Automation" && check.name != "Accessibility") << check.name;
}

TEST(MacChecks, DoNotGuessAPermissionWhileItsReceiverDoesNotRun)
{
    using Permission = PermissionState;
    auto found = everything();
    found.running->automation = combined(Permission::notKnown, Permission::granted);
    auto const checks = macChecks(*decodedMacFindings(encoded(found)));
    auto const check = std::ranges::find(checks, "Automation", &DoctorCheck::name);
    ASSERT_NE(check, checks.end());
    EXPECT_EQ(check->state, State::ok) << "nothing is wrong";
    EXPECT_TRUE(check->explanation.starts_with("Not known while System Events is not running. ")) << check->explanation;
    EXPECT_EQ(combined(Permission::notKnown, Permission::refused), Permission::refused);
    EXPECT_EQ(combined(Permission::notAsked, Permission::granted), Permission::granted);
}

TEST(MacChecks, TakeAnyTextForFindings)
{
    EXPECT_FALSE(decodedMacFindings("no JSON"));
    EXPECT_FALSE(decodedMacFindings("[]"));
    auto const odd = decodedMacFindings(R"({"place":99,"openAtLogin":-1,"quarantined":"yes","running":{"automation":7,"refusedShortcuts":[1,"F5"]}})");
    ASSERT_TRUE(odd && odd->running);
    EXPECT_EQ(odd->place, RelocationSource::none);
    EXPECT_EQ(odd->openAtLogin, LoginService::Status::notRegistered);
    EXPECT_FALSE(odd->isQuarantined);
    EXPECT_EQ(odd->running->automation, PermissionState::notAsked);
    EXPECT_EQ(odd->running->refusedShortcuts, std::vector<std::string> { "F5" });
}

} // namespace
} // namespace zv
