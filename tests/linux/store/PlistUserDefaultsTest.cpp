#include "platform/linux/store/PlistUserDefaults.h"

#include "base/Log.h"
#include "platform/text/PropertyListFormat.h"
#include "tests/linux/ChildProcess.h"
#include "tests/linux/TemporaryFolder.h"
#include "tests/linux/TextFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <functional>
#include <mutex>
#include <poll.h>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace zv {
namespace {

using tests::exitStatusOf;
using tests::inChild;
using tests::readText;
using tests::TemporaryFolder;
using tests::writeText;

constexpr char const* fileName = "org.zanthevell.ZantheVell.plist";

PropertyList contentOf(std::string const& path)
{
    auto const text = readText(path);
    auto const value = readPropertyList(std::as_bytes(std::span(text)));
    return value ? *value : PropertyList("unreadable: " + value.error());
}

void writeSettings(std::string const& path, PropertyListDictionary const& settings)
{
    auto const bytes = writePropertyList(settings, PropertyListEncoding::binary);
    writeText(path, { reinterpret_cast<char const*>(bytes->data()), bytes->size() });
}

class PlistUserDefaultsTest : public testing::Test {
protected:
    TemporaryFolder folder;
    std::string path = folder.path("config/") + fileName;
    std::vector<std::string> log;
    LogCapture capture { [this](std::string const& line) { log.push_back(line); } };

    void SetUp() override { std::filesystem::create_directory(folder.path("config")); }
};

TEST_F(PlistUserDefaultsTest, StoresNothingBeforeASettingIsChanged)
{
    PlistUserDefaults defaults(path);
    defaults.registerDefaults({ { "ShowIcons", true } });
    EXPECT_EQ(defaults.object("ShowIcons"), PropertyList(true));
    EXPECT_EQ(defaults.storedObject("ShowIcons"), std::nullopt);
    EXPECT_TRUE(defaults.removeObject("ShowIcons"));
    EXPECT_TRUE(folder.names("config").empty());
    EXPECT_TRUE(log.empty());
}

TEST_F(PlistUserDefaultsTest, GivenValuesStandBeforeRegisteredOnesAndLockedOnesBeforeStoredOnes)
{
    writeSettings(folder.path("first"), { { "Depth", 1 }, { "Locked", PropertyListArray { "Depth", "Plain" } } });
    writeSettings(folder.path("second"), { { "Depth", 2 }, { "Icons", 3 } });
    writeSettings(path, { { "Depth", 7 }, { "Icons", 8 }, { "Plain", 9 } });
    writeText(folder.path("damaged"), "?");
    PlistUserDefaults defaults(
        path, SettingsFile::usualPatience, GivenSettings::read({ folder.path("first"), folder.path("none"), folder.path("damaged"), folder.path("second") }));
    defaults.registerDefaults({ { "Plain", 5 } });
    EXPECT_EQ(defaults.object("Depth"), PropertyList(1)) << "locked";
    EXPECT_EQ(defaults.object("Plain"), PropertyList(5)) << "locked without a value";
    EXPECT_EQ(defaults.object("Icons"), PropertyList(8));
    EXPECT_FALSE(defaults.setObject("Depth", 4)) << "locked";
    EXPECT_FALSE(defaults.removeObject("Depth"));
    EXPECT_TRUE(defaults.removeObject("Icons"));
    EXPECT_EQ(defaults.object("Icons"), PropertyList(3));
    EXPECT_EQ(log.size(), 1U) << "the damaged one";
}

TEST_F(PlistUserDefaultsTest, KeepsSettingsInAPrivateXmlFileWhoseFolderItMakes)
{
    path = folder.path("new/deeper/") + fileName;
    {
        PlistUserDefaults defaults(path);
        EXPECT_TRUE(defaults.setObject("ShowIcons", false));
        EXPECT_TRUE(defaults.setObject("Menu", PropertyListArray { PropertyListDictionary { { "id", "1" }, { "kind", "sleep" } } }));
        EXPECT_TRUE(defaults.setObject("Gone", 1));
        EXPECT_TRUE(defaults.removeObject("Gone"));
    }
    EXPECT_TRUE(readText(path).starts_with("<?xml"));
    struct stat status { };
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    PlistUserDefaults const again(path);
    EXPECT_TRUE(again.object("Menu"));
    EXPECT_FALSE(again.object("Gone"));
    EXPECT_EQ(again.object("ShowIcons"), PropertyList(false));
}

TEST_F(PlistUserDefaultsTest, KeepsKeysThatItDoesNotKnowInTheirOrder)
{
    PropertyListDictionary const settings { { "Later version", PropertyListArray { PropertyListDate { 5 }, PropertyListData(3), UINT64_MAX } },
        { "ShowIcons", true }, { "zz", PropertyListDictionary { { "k", 1.5 } } } };
    writeSettings(path, settings);
    PlistUserDefaults defaults(path);
    EXPECT_TRUE(defaults.setObject("ShowIcons", false));
    auto expected = settings;
    expected.set("ShowIcons", false);
    auto const content = contentOf(path);
    ASSERT_TRUE(content.dictionary());
    EXPECT_TRUE(std::equal(content.dictionary()->begin(), content.dictionary()->end(), expected.begin(), expected.end()));
}

TEST_F(PlistUserDefaultsTest, WhatXmlCannotHoldComesBackFromABinaryFile)
{
    PropertyList const values[] = { "a\rb\n", "\x0B", "\xEF\xBF\xBE", PropertyListDate { 0.25 }, PropertyListDictionary { { "\r", 1 } } };
    PlistUserDefaults defaults(path);
    for (auto const& value : values) {
        EXPECT_TRUE(defaults.setObject("odd", PropertyListArray { value }).ok());
        EXPECT_EQ(PlistUserDefaults(path).object("odd"), PropertyList(PropertyListArray { value }));
        EXPECT_TRUE(readText(path).starts_with("bplist00"));
    }
    EXPECT_TRUE(defaults.setObject("odd", "plain").ok());
    EXPECT_TRUE(readText(path).starts_with("<?xml"));
}

TEST_F(PlistUserDefaultsTest, SetsAsideAFileThatItCannotReadAndSaysSoOnce)
{
    PropertyListDictionary const whole { { "ShowIcons", true }, { "Menu", PropertyListArray { "a", "b" } } };
    auto const xml = *writePropertyList(whole, PropertyListEncoding::xml);
    std::string const text(reinterpret_cast<char const*>(xml.data()), xml.size());
    std::string deep;
    for (int i = 0; i < 10'000; ++i)
        deep += "<array>";
    struct Row {
        std::string content;
        std::string reason;
    };
    Row const rows[] = {
        { "", "it is empty" },
        { text.substr(0, text.size() / 2), "damaged" },
        { "bplist00\xFF\x13garbage", "damaged" },
        { std::string(5000, '\xA7'), "not a property list" },
        { "<plist version=\"1.0\"><array/></plist>", "an array where a dictionary is expected" },
        { "<plist version=\"1.0\">" + deep, "nested deeper" },
    };
    std::set<std::string> names;
    for (auto const& row : rows) {
        SCOPED_TRACE(row.reason);
        log.clear();
        writeText(path, row.content);
        PlistUserDefaults defaults(path);
        EXPECT_TRUE(defaults.setObject("ShowIcons", false));
        EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "ShowIcons", false } }));
        ASSERT_EQ(log.size(), 1u);
        EXPECT_NE(log[0].find(row.reason), std::string::npos) << log[0];
        auto const kept = log[0].substr(log[0].rfind(" kept as ") + 9);
        EXPECT_NE(kept.find(".unreadable-2"), std::string::npos) << kept;
        EXPECT_TRUE(names.insert(kept).second) << "each has a name of its own";
        EXPECT_EQ(readText(kept), row.content);
    }
}

TEST_F(PlistUserDefaultsTest, OverwritesNothingThatTheSystemWillNotLetItRead)
{
    std::filesystem::create_directory(path);
    PlistUserDefaults defaults(path);
    auto const saved = defaults.setObject("ShowIcons", false);
    ASSERT_FALSE(saved);
    EXPECT_NE(saved.error().find("Is a directory"), std::string::npos);
    EXPECT_EQ(defaults.object("ShowIcons"), PropertyList(false)) << "kept in memory";
    EXPECT_TRUE(std::filesystem::is_directory(path));
    std::filesystem::remove(path);
    EXPECT_TRUE(defaults.setObject("Other", 1));
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "ShowIcons", false }, { "Other", 1 } }));
}

TEST_F(PlistUserDefaultsTest, LeavesAFolderThatCannotBeWrittenAsItIs)
{
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    for (std::string const content : { "<plist><dict><key>ShowIcons</key><true/></dict></plist>", "garbage" }) {
        log.clear();
        writeText(path, content);
        std::filesystem::permissions(folder.path("config"), std::filesystem::perms(0555));
        {
            tests::WithoutRoot const ordinary;
            PlistUserDefaults defaults(path);
            EXPECT_EQ(log.size(), content == "garbage" ? 1u : 0u) << "what cannot be set aside is told";
            auto const saved = defaults.setObject("ShowIcons", false);
            ASSERT_FALSE(saved);
            EXPECT_EQ(saved.error(), "Permission denied");
            EXPECT_EQ(defaults.object("ShowIcons"), PropertyList(false));
        }
        std::filesystem::permissions(folder.path("config"), std::filesystem::perms(0755));
        EXPECT_EQ(readText(path), content);
    }
}

TEST_F(PlistUserDefaultsTest, AValueThatNoFileCanHoldKeepsNoOtherFromBeingSaved)
{
    PlistUserDefaults defaults(path);
    EXPECT_TRUE(defaults.setObject("Menu", "good"));
    auto const saved = defaults.setObject("Menu", "\xFF");
    ASSERT_FALSE(saved);
    EXPECT_NE(saved.error().find("UTF-8"), std::string::npos);
    EXPECT_TRUE(defaults.setObject("ShowIcons", false));
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "Menu", "good" }, { "ShowIcons", false } }));
    EXPECT_EQ(defaults.object("Menu"), PropertyList("\xFF"));
    EXPECT_TRUE(defaults.setObject("Menu", "better"));
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "Menu", "better" }, { "ShowIcons", false } }));
}

TEST_F(PlistUserDefaultsTest, TakesOverWhatAnotherProcessWrote)
{
    writeSettings(path, { { "Same", 1 }, { "Changed", 1 }, { "Removed", 1 } });
    PlistUserDefaults mine(path);
    std::vector<std::string> announced;
    mine.onExternalChange = [&](auto const& keys) { announced = keys; };
    pollfd watch { mine.changeDescriptor(), POLLIN, 0 };
    ASSERT_GE(watch.fd, 0);
    ASSERT_EQ(::poll(&watch, 1, 0), 0);

    PlistUserDefaults theirs(path);
    EXPECT_TRUE(theirs.setObject("Changed", 2));
    EXPECT_TRUE(theirs.removeObject("Removed"));
    EXPECT_TRUE(theirs.setObject("Added", 3));
    ASSERT_EQ(::poll(&watch, 1, 5000), 1);
    mine.handleChange();
    EXPECT_EQ(announced, (std::vector<std::string> { "Added", "Changed", "Removed" }));
    EXPECT_EQ(mine.object("Changed"), PropertyList(2));
    EXPECT_EQ(mine.object("Removed"), std::nullopt);
    ASSERT_EQ(::poll(&watch, 1, 0), 0) << "all events were taken";
}

TEST_F(PlistUserDefaultsTest, AnnouncesWhatItFoundWhileSavingButNeverItsOwnKeys)
{
    PlistUserDefaults mine(path);
    std::vector<std::vector<std::string>> announced;
    mine.onExternalChange = [&](auto const& keys) { announced.push_back(keys); };
    ASSERT_GE(mine.changeDescriptor(), 0);
    PlistUserDefaults theirs(path);
    EXPECT_TRUE(theirs.setObject("Theirs", 1));
    EXPECT_TRUE(theirs.setObject("Both", "theirs"));
    EXPECT_EQ(mine.objectToOverwrite("Both"), PropertyList("theirs"));
    EXPECT_TRUE(mine.setObject("Both", "mine"));
    EXPECT_TRUE(announced.empty());
    mine.handleChange();
    mine.handleChange();
    EXPECT_EQ(announced, (std::vector<std::vector<std::string>> { { "Theirs" } }));
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "Theirs", 1 }, { "Both", "mine" } }));
}

TEST_F(PlistUserDefaultsTest, KeepsWhatItKnowsWhenTheFileBecomesUnreadable)
{
    writeSettings(path, { { "Known", 1 } });
    PlistUserDefaults defaults(path);
    ASSERT_GE(defaults.changeDescriptor(), 0);
    writeText(path, "<plist><dict><key>Known</key>");
    defaults.handleChange();
    EXPECT_EQ(log.size(), 1u);
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "Known", 1 } })) << "written at once";
    EXPECT_TRUE(defaults.setObject("New", 2));
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "Known", 1 }, { "New", 2 } }));
}

TEST_F(PlistUserDefaultsTest, KeepsALinkToAFileElsewhere)
{
    auto const elsewhere = folder.path("dotfiles.plist");
    writeSettings(elsewhere, { { "a", 1 } });
    std::filesystem::create_symlink(elsewhere, path);
    PlistUserDefaults defaults(path);
    EXPECT_TRUE(defaults.setObject("b", 2));
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(contentOf(elsewhere), PropertyList(PropertyListDictionary { { "a", 1 }, { "b", 2 } }));
}

TEST_F(PlistUserDefaultsTest, ForgetsNothingAndReplacesNothingWhileALinksTargetIsAway)
{
    auto const stick = folder.path("stick");
    std::filesystem::create_directory(stick);
    for (bool const linksFolder : { true, false }) {
        auto const link = folder.path(linksFolder ? "linked" : "config/linked.plist");
        std::filesystem::create_symlink(linksFolder ? stick : stick + "/" + fileName, link);
        writeSettings(stick + "/" + fileName, { { "a", 1 } });
        PlistUserDefaults defaults(linksFolder ? link + "/" + fileName : link);
        std::filesystem::rename(stick, stick + " away");
        defaults.handleChange();
        EXPECT_EQ(defaults.object("a"), PropertyList(1));
        auto const saved = defaults.setObject("b", 2);
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error(), "the link " + link + " leads to a place that is not there");
        EXPECT_TRUE(std::filesystem::is_symlink(link));
        std::filesystem::rename(stick + " away", stick);
        defaults.writeUnsaved();
        EXPECT_EQ(contentOf(stick + "/" + fileName), PropertyList(PropertyListDictionary { { "a", 1 }, { "b", 2 } }));
    }
}

TEST_F(PlistUserDefaultsTest, FollowsAChangeOfItsFolderAndOfLinksOnTheWay)
{
    for (auto const* name : { "one", "two", "three" }) {
        std::filesystem::create_directory(folder.path(name));
        writeSettings(folder.path(name) + "/" + fileName, { { "from", name } });
    }
    std::filesystem::create_directory_symlink("one", folder.path("link"));
    PlistUserDefaults defaults(folder.path("link/") + fileName);
    pollfd watch { defaults.changeDescriptor(), POLLIN, 0 };
    auto const move = [&](char const* from, char const* to) { std::filesystem::rename(folder.path(from), folder.path(to)); };
    struct Row {
        std::function<void()> change;
        char const* from;
        std::string why;
    };
    Row const rows[] = {
        { [&] { move("one", "old"), move("two", "one"); }, "two", "another folder in its place" },
        { [&] { std::filesystem::create_directory_symlink("three", folder.path("new")), move("new", "link"); }, "three", "another link" },
        { [&] { std::filesystem::remove_all(folder.path("three")), std::filesystem::copy(folder.path("old"), folder.path("three")); }, "one", "restored" },
        { [&] {
             writeSettings(folder.path("three/") + fileName, { { "from", "last" } });
         },
            "last", "and written there" },
    };
    for (auto const& row : rows) {
        row.change();
        ASSERT_EQ(::poll(&watch, 1, 5000), 1) << row.why;
        defaults.handleChange();
        EXPECT_EQ(defaults.object("from"), PropertyList(row.from)) << row.why;
        ASSERT_EQ(::poll(&watch, 1, 0), 0) << "all events were taken";
    }
}

TEST_F(PlistUserDefaultsTest, SleepsWhileOthersWriteInTheFoldersAbove)
{
    PlistUserDefaults defaults(folder.path("config/zv/") + fileName);
    EXPECT_TRUE(defaults.setObject("a", 1));
    pollfd watch { defaults.changeDescriptor(), POLLIN, 0 };
    writeSettings(folder.path("others.plist"), {});
    writeSettings(folder.path("config/others.plist"), {});
    EXPECT_EQ(::poll(&watch, 1, 0), 0);
    std::filesystem::rename(folder.path("config"), folder.path("old"));
    EXPECT_EQ(::poll(&watch, 1, 5000), 1);
}

TEST_F(PlistUserDefaultsTest, GivesUpWaitingForAProgramThatHoldsTheLock)
{
    PlistUserDefaults defaults(path, std::chrono::milliseconds(20));
    int const holder = ::open((path + ".lock").c_str(), O_RDWR | O_CREAT, 0600);
    ASSERT_EQ(::flock(holder, LOCK_EX), 0);
    auto const saved = defaults.setObject("a", 1);
    ASSERT_FALSE(saved);
    EXPECT_NE(saved.error().find("does not let go of"), std::string::npos) << saved.error();
    ::close(holder);
    EXPECT_TRUE(defaults.setObject("b", 2));
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "a", 1 }, { "b", 2 } }));
}

TEST_F(PlistUserDefaultsTest, TwoProcessesNeverLoseEachOthersKeys)
{
    constexpr int count = 30;
    auto const writer = [&](std::string const& prefix) {
        return inChild([&, prefix] {
            PlistUserDefaults defaults(path);
            for (int i = 0; i < count; ++i) {
                if (!defaults.setObject(prefix + std::to_string(i), i) || !defaults.setObject(prefix, i))
                    return 1;
            }
            return 0;
        });
    };
    auto const a = writer("a");
    auto const b = writer("b");
    EXPECT_EQ(exitStatusOf(a), 0);
    EXPECT_EQ(exitStatusOf(b), 0);
    PlistUserDefaults const defaults(path);
    for (auto const* prefix : { "a", "b" }) {
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(defaults.object(prefix + std::to_string(i)), PropertyList(i)) << prefix << i;
        EXPECT_EQ(defaults.object(prefix), PropertyList(count - 1));
    }
}

/// Threads, and a main thread that a test turns.
class Threads : public Tasks {
public:
    ~Threads() override
    {
        std::for_each(m_threads.begin(), m_threads.end(), [](auto& thread) { thread.join(); });
    }
    void runInBackground(TaskPriority, std::function<void()> work) override { m_threads.emplace_back(std::move(work)); }
    void runDetached(std::function<std::function<void()>()>) override { }
    void runOnMain(std::function<void()> work) override
    {
        std::lock_guard const lock(m_mutex);
        m_main.push_back(std::move(work));
    }
    void turn()
    {
        std::unique_lock lock(m_mutex);
        for (auto const& work : std::exchange(m_main, {})) {
            lock.unlock();
            work();
            lock.lock();
        }
    }

private:
    std::mutex m_mutex;
    std::vector<std::function<void()>> m_main;
    std::vector<std::thread> m_threads;
};

struct SavedAsideTest : PlistUserDefaultsTest {
    Threads threads;
    std::vector<std::string> outcomes;

    void save(PlistUserDefaults& defaults, std::string_view key, PropertyList value)
    {
        defaults.useTasks(threads);
        defaults.save(key, std::move(value), [this, name = std::string(key)](auto saved) { outcomes.push_back(name + (saved ? "" : ": " + saved.error())); });
    }
};

TEST_F(SavedAsideTest, CountsAtOnceAndIsStoredInOrder)
{
    {
        PlistUserDefaults defaults(path);
        for (int i = 1; i <= 3; ++i)
            save(defaults, "a", i);
        EXPECT_EQ(defaults.object("a"), PropertyList(3));
        EXPECT_TRUE(defaults.setObject("b", 1)) << "waits for those before it";
        EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "a", 3 }, { "b", 1 } }));
        EXPECT_EQ(outcomes, (std::vector<std::string> { "a", "a", "a" }));
        threads.turn();
        save(defaults, "a", 4);
        EXPECT_EQ(defaults.objectToOverwrite("a"), PropertyList(4)) << "is known once it is stored";
        save(defaults, "c", 1);
    }
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "a", 4 }, { "b", 1 }, { "c", 1 } })) << "the end waits, too";
}

TEST_F(SavedAsideTest, KeepsWhatAnotherProcessWroteAndTellsOfIt)
{
    PlistUserDefaults mine(path);
    std::vector<std::string> changed;
    mine.onExternalChange = [&](auto const& keys) { changed = keys; };
    PlistUserDefaults theirs(path);
    ASSERT_TRUE(theirs.setObject("theirs", 1));
    save(mine, "mine", 2);
    mine.writeUnsaved();
    threads.turn();
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "theirs", 1 }, { "mine", 2 } }));
    EXPECT_EQ(changed, std::vector<std::string> { "theirs" });
}

TEST_F(SavedAsideTest, TellsOfAFailureAndStoresTheValueWithTheNext)
{
    PlistUserDefaults defaults(path, std::chrono::milliseconds(20));
    int const holder = ::open((path + ".lock").c_str(), O_RDWR | O_CREAT, 0600);
    ASSERT_EQ(::flock(holder, LOCK_EX), 0);
    save(defaults, "a", 1);
    (void)defaults.objectToOverwrite("a");
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_NE(outcomes[0].find("does not let go of"), std::string::npos) << outcomes[0];
    ::close(holder);
    save(defaults, "bad", std::string("\0", 1));
    save(defaults, "good", 1);
    defaults.writeUnsaved();
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "a", 1 }, { "good", 1 } }));
    ASSERT_EQ(outcomes.size(), 3U);
    EXPECT_NE(outcomes[1].find("bad: "), std::string::npos) << outcomes[1];
    EXPECT_EQ(outcomes[2], "good");
}

} // namespace
} // namespace zv
