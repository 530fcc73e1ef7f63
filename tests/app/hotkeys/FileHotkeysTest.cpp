#include "app/hotkeys/FileHotkeys.h"

#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeFolderReader.h"
#include "tests/fakes/FakeHotkeys.h"
#include "tests/fakes/FakeTime.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zv {
namespace {

KeyEquivalentSpec commandOption(std::string_view character) { return { .trigger = KeyEquivalentSpec::Trigger::character(character), .option = true }; }

DynamicEntry entry(std::string const& path, std::string_view character)
{
    DynamicEntry made;
    made.fileURL = Url::fromPath(path);
    made.hotkey = commandOption(character);
    return made;
}

class FileHotkeysTest : public testing::Test {
protected:
    FileHotkeysTest()
    {
        source.set({ { { 0, "a" }, { 11, "b" }, { 8, "c" } } });
        for (auto const* folder : { "/f", "/g", "/h" })
            files->addFolder(folder);
    }

    void list(std::string const& folder, std::vector<DynamicEntry> const& entries) { hotkeys.folderListed(Url::fromPath(folder), entries); }

    std::vector<std::string> registeredPaths() const
    {
        std::vector<std::string> paths;
        for (auto const& [id, registration] : center.registrations())
            paths.push_back(registration.target.fileURL()->path());
        return paths;
    }

    std::shared_ptr<fakes::FakeFileSystem> files = std::make_shared<fakes::FakeFileSystem>();
    std::shared_ptr<fakes::FakeFolderReader> reader = std::make_shared<fakes::FakeFolderReader>();
    fakes::FakeTime time;
    fakes::FakeHotkeyRegistrar registrar;
    fakes::FakeKeyboardLayoutSource source;
    Notifications notifications;
    KeyboardLayout layout { source, notifications };
    HotkeyCenter center { registrar, layout };
    FileHotkeys hotkeys { { time, reader, files }, center };
};

TEST_F(FileHotkeysTest, LearnFromEveryFolderThatIsListed)
{
    auto separator = entry("/f/-***", "C");
    separator.isSeparator = true;
    auto withoutFile = entry("/f/x", "C");
    withoutFile.fileURL.reset();
    DynamicEntry plain;
    plain.fileURL = Url::fromPath("/f/plain");

    auto doubtful = entry("/f/d", "C");
    doubtful.hotkeyDoubt = NameDoubt::downloaded;
    list("/f", { entry("/f/a", "A"), separator, withoutFile, plain, doubtful });
    list("/g", { entry("/g/b", "B") });
    EXPECT_EQ(registeredPaths(), (std::vector<std::string> { "/f/a", "/g/b" }));

    list("/f", { entry("/f/c", "C") });
    EXPECT_EQ(registeredPaths(), (std::vector<std::string> { "/f/c", "/g/b" }));
    list("/g", {});
    EXPECT_EQ(registeredPaths(), (std::vector<std::string> { "/f/c" }));
}

TEST_F(FileHotkeysTest, KnowAFolderByWhereLinksLead)
{
    files->addFolder("/real");
    files->addLink("/link", "/real");
    list("/link", { entry("/link/a", "A") });
    list("/real", { entry("/real/a", "A") });
    EXPECT_EQ(registeredPaths(), (std::vector<std::string> { "/real/a" }));
    EXPECT_TRUE(center.conflicts().empty());
}

TEST_F(FileHotkeysTest, RegisterNothingAnewWhenAFolderIsAsItWas)
{
    list("/f", {});
    EXPECT_EQ(registrar.passes, 0);
    list("/f", { entry("/f/a", "A") });
    list("/f", { entry("/f/a", "A") });
    EXPECT_EQ(registrar.passes, 1);
    list("/f", { entry("/f/a", "B") });
    EXPECT_EQ(registrar.passes, 2);
}

TEST_F(FileHotkeysTest, LetGoOfFoldersThatHaveVanished)
{
    list("/f", { entry("/f/a", "A") });
    list("/g", { entry("/g/b", "B") });
    files->erase("/f");
    list("/h", { entry("/h/a", "A") });
    EXPECT_EQ(registeredPaths(), (std::vector<std::string> { "/g/b", "/h/a" })) << "what was moved keeps its combination";
    EXPECT_TRUE(center.conflicts().empty());

    files->erase("/h");
    center.reregister();
    EXPECT_EQ(registeredPaths(), (std::vector<std::string> { "/g/b" })) << "every pass looks";
    files->erase("/g");
    list("/f", {});
    EXPECT_TRUE(registrar.held.empty()) << "so does every listing, even one that brings nothing new";
}

TEST_F(FileHotkeysTest, PutAPrescanOverWhatIsKnown)
{
    list("/f", { entry("/f/a", "A") });
    list("/g", { entry("/g/b", "B") });
    hotkeys.install({ { "/f", { { Url::fromPath("/f/c"), commandOption("C") } } }, { "/h", {} } });
    EXPECT_EQ(registeredPaths(), (std::vector<std::string> { "/f/c", "/g/b" }));

    auto const passes = registrar.passes;
    hotkeys.install({});
    EXPECT_EQ(registrar.passes, passes);
}

TEST_F(FileHotkeysTest, PrescanOffTheMainThreadAndOnlyWhenAskedTo)
{
    files->addFolder("/f");
    reader->folders["/f"] = { { "a-*[cmd+opt+A]*" }, { "b-*[cmd+opt+B]*" } };
    reader->doubts["/f/b-*[cmd+opt+B]*"] = NameDoubt::ofAnotherUser;
    hotkeys.prescan([]() -> std::vector<Url> { throw std::logic_error("asked for"); }, 0, HiddenFiles::skipped);
    EXPECT_EQ(time.pendingBackground(), 0U);

    hotkeys.prescan([] { return std::vector { Url::fromPath("/f") }; }, 1, HiddenFiles::skipped);
    EXPECT_TRUE(reader->readings.empty());
    time.runTasks();
    EXPECT_EQ(registeredPaths(), (std::vector<std::string> { "/f/a-*[cmd+opt+A]*" }));
    hotkeys.forget(Url::fromPath("/f/a-*[cmd+opt+A]*"));
    EXPECT_TRUE(registrar.held.empty());
}

TEST_F(FileHotkeysTest, ForgetAPrescanThatOutlivesThem)
{
    files->addFolder("/f");
    reader->folders["/f"] = { { "a-*[cmd+opt+A]*" } };
    auto passing = std::make_unique<FileHotkeys>(PrescanServices { time, reader, files }, center);
    passing->prescan([] { return std::vector { Url::fromPath("/f") }; }, 1, HiddenFiles::skipped);
    passing.reset();
    time.runTasks();
    EXPECT_EQ(registrar.passes, 0);
}

TEST_F(FileHotkeysTest, PrescanTheFoldersOfVisibleItemsAndTheItemsFolder)
{
    files->addFolder("/real");
    files->addLink("/link", "/real");
    files->addFolder("/below");
    files->addFolder("/secret");
    files->addFolder("/items");
    fakes::FakeBookmarks bookmarks(*files);
    LocationServices const services { *files, bookmarks };
    auto const item = [&](std::string const& path, bool hidden = false) {
        auto made = MenuItem::ofKind(MenuItemKind::fsObject);
        made.location = ItemLocation::forURL(Url::fromPath(path), services);
        made.isHidden = hidden;
        return made;
    };
    auto group = MenuItem::ofKind(MenuItemKind::submenu);
    group.isHidden = true;
    group.children = { item("/below"), item("/secret", true) };
    auto sleeping = item("/secret");
    sleeping.kind = MenuItemKind::sleep;
    auto gone = MenuItem::ofKind(MenuItemKind::fsObject);
    gone.location = ItemLocation { .path = "/gone" };

    auto const roots = foldersToPrescan({ item("/link"), group, item("/real"), sleeping, gone }, Url::fromPath("/items"), services);
    EXPECT_EQ(roots, (std::vector { Url::fromPath("/real"), Url::fromPath("/below"), Url::fromPath("/items") }));
}

} // namespace
} // namespace zv
