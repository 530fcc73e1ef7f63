#include "platform/linux/x11/X11ClientWindows.h"

#include "platform/linux/x11/DesktopRunningApplications.h"
#include "tests/desktop/PrivateX.h"
#include "tests/fakes/FakeTime.h"
#include "tests/linux/ChildProcess.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

/// A window manager that only keeps the list, and windows with a test's properties.
class X11ClientWindowsTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(server.isRunning());
        client = std::make_unique<desktop::XClient>();
    }

    xcb_atom_t atom(char const* name) const { return client->atom(name); }
    void set(xcb_window_t window, char const* property, std::string const& text) const
    {
        xcb_change_property(
            client->xcb(), XCB_PROP_MODE_REPLACE, window, atom(property), XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()), text.data());
    }
    void set(xcb_window_t window, char const* property, xcb_atom_t type, std::vector<std::uint32_t> const& values) const
    {
        xcb_change_property(client->xcb(), XCB_PROP_MODE_REPLACE, window, atom(property), type, 32, static_cast<std::uint32_t>(values.size()), values.data());
    }
    xcb_window_t window(std::string const& classNames) const
    {
        auto const id = xcb_generate_id(client->xcb());
        xcb_create_window(
            client->xcb(), XCB_COPY_FROM_PARENT, id, client->root(), 0, 0, 10, 10, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        if (!classNames.empty())
            set(id, "WM_CLASS", classNames);
        return id;
    }
    void manage(std::vector<std::uint32_t> const& windows) const
    {
        set(client->root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, windows);
        client->sync();
    }
    X11ClientWindows windows() const { return { client->xcb(), client->root() }; }

    desktop::PrivateX server;
    std::unique_ptr<desktop::XClient> client;
};

std::string classNames(std::string const& instance, std::string const& name) { return instance + '\0' + name + '\0'; }

TEST_F(X11ClientWindowsTest, TellNothingWithoutAWindowManagerAndAnEmptyListWithOne)
{
    EXPECT_FALSE(windows().list());
    manage({});
    ASSERT_TRUE(windows().list());
    EXPECT_TRUE(windows().list()->empty());
}

TEST_F(X11ClientWindowsTest, LeaveOutDocksDesktopsHiddenOnesAndOurs)
{
    auto const plain = window(classNames("xterm", "XTerm"));
    auto const dock = window(classNames("panel", "Panel"));
    set(dock, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, { atom("_NET_WM_WINDOW_TYPE_DOCK") });
    auto const skipped = window(classNames("helper", "Helper"));
    set(skipped, "_NET_WM_STATE", XCB_ATOM_ATOM, { atom("_NET_WM_STATE_MODAL"), atom("_NET_WM_STATE_SKIP_TASKBAR") });
    auto const ours = window(classNames("zv", "Zv"));
    set(ours, "_NET_WM_PID", XCB_ATOM_CARDINAL, { static_cast<std::uint32_t>(getpid()) });
    auto const sibling = tests::inChild([] { return pause(); });
    auto const ofTheRunningProgram = window(classNames("zv", "Zv"));
    set(ofTheRunningProgram, "_NET_WM_PID", XCB_ATOM_CARDINAL, { static_cast<std::uint32_t>(sibling) });
    auto const dialog = window(classNames("xterm", "XTerm"));
    set(dialog, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, { atom("_NET_WM_WINDOW_TYPE_DIALOG") });
    manage({ plain, dock, skipped, ours, ofTheRunningProgram, dialog });
    auto const found = windows().list();
    kill(sibling, SIGKILL);
    tests::exitStatusOf(sibling);
    ASSERT_TRUE(found);
    ASSERT_EQ(found->size(), 2u);
    EXPECT_EQ((*found)[0].windowClass, "XTerm");
    EXPECT_EQ((*found)[0].windowInstance, "xterm");
    EXPECT_EQ((*found)[1].window, dialog);
}

TEST_F(X11ClientWindowsTest, SurviveWindowsThatLieOrAreGone)
{
    auto const bare = window("");
    auto const halfNamed = window("no-terminator");
    auto const wrongTypes = window("");
    set(wrongTypes, "WM_CLASS", XCB_ATOM_CARDINAL, { 1, 2, 3 });
    set(wrongTypes, "_NET_WM_PID", "text");
    set(wrongTypes, "_GTK_APPLICATION_ID", std::string(100'000, 'x'));
    auto const gone = window(classNames("gone", "Gone"));
    xcb_destroy_window(client->xcb(), gone);
    manage({ bare, halfNamed, wrongTypes, gone, 0xFFFFFFFF, 0 });
    set(bare, "WM_NAME", "An old title");
    auto const found = windows().list();
    ASSERT_TRUE(found);
    ASSERT_GE(found->size(), 3u);
    EXPECT_EQ((*found)[0].title, "An old title");
    EXPECT_EQ((*found)[1].windowInstance, "no-terminator");
    EXPECT_EQ((*found)[1].windowClass, "");
    EXPECT_EQ((*found)[2].windowClass, "");
    EXPECT_EQ((*found)[2].pid, 0u);
    EXPECT_LE((*found)[2].gtkApplicationId.size(), 4096u);
}

TEST_F(X11ClientWindowsTest, BringTheTopmostWindowOfAnApplicationToTheFront)
{
    auto const lower = window(classNames("xterm", "XTerm"));
    auto const upper = window(classNames("xterm", "XTerm"));
    auto const other = window(classNames("other", "Other"));
    manage({ upper, lower, other });
    set(client->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, { lower, upper, other });
    desktop::XClient manager;
    std::uint32_t const mask = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    xcb_change_window_attributes(manager.xcb(), manager.root(), XCB_CW_EVENT_MASK, &mask);
    manager.sync();

    fakes::FakeTime time;
    tests::TemporaryFolder const disk;
    disk.write("late.desktop", "[Desktop Entry]\nType=Application\nName=Late\nExec=late\n");
    ApplicationCatalog catalog(time, { disk.path() }, {});
    std::vector<std::string> launched;
    DesktopRunningApplications applications(
        { catalog, [&](Url const& url) { launched.push_back(url.lastPathComponent()); } }, std::make_unique<X11ClientWindows>(windows()));
    applications.activate("class:XTerm");
    applications.activate("late.desktop");
    applications.activate("class:Gone");
    applications.quit("class:XTerm");
    time.runTasks();
    client->sync();
    manager.sync();

    std::pair<char const*, xcb_window_t> const asked[] = { { "_NET_ACTIVE_WINDOW", upper }, { "_NET_CLOSE_WINDOW", lower }, { "_NET_CLOSE_WINDOW", upper } };
    for (auto const& [name, window] : asked) {
        std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> const event(xcb_poll_for_event(manager.xcb()), &std::free);
        ASSERT_TRUE(event) << name;
        auto const& message = reinterpret_cast<xcb_client_message_event_t const&>(*event);
        EXPECT_EQ(message.response_type & 0x7F, XCB_CLIENT_MESSAGE);
        EXPECT_EQ(message.type, atom(name));
        EXPECT_EQ(message.window, window);
    }
    EXPECT_EQ(launched, (std::vector<std::string> { "late.desktop" })) << "one that has ended meanwhile is started";

    RunningApplications::List list;
    applications.list([&](auto found) { list = std::move(found); });
    ASSERT_TRUE(list) << "at hand by now";
    EXPECT_EQ(list->size(), 3u);
}

} // namespace
} // namespace zv
