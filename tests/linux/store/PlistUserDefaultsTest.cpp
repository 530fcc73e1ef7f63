#include "platform/linux/store/PlistUserDefaults.h"

#include "base/Log.h"
#include "platform/text/PropertyListFormat.h"
#include "tests/linux/ChildProcess.h"
#include "tests/linux/TemporaryFolder.h"
#include "tests/linux/TextFiles.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/resource.h>
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

/// A disk that takes no more than a few bytes, while it lives.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        ::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(FullDisk const&) = delete;
    FullDisk& operator=(FullDisk const&) = delete;

private:
    rlimit m_before {};
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
    for (auto const& row : rows) {
        SCOPED_TRACE(row.reason);
        log.clear();
        std::filesystem::remove_all(folder.path("config"));
        std::filesystem::create_directory(folder.path("config"));
        writeText(path, row.content);
        PlistUserDefaults defaults(path);
        EXPECT_TRUE(defaults.setObject("ShowIcons", false));
        EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "ShowIcons", false } }));
        ASSERT_EQ(log.size(), 1u);
        EXPECT_NE(log[0].find(row.reason), std::string::npos) << log[0];
        auto const kept = log[0].substr(log[0].rfind(" kept as ") + 9);
        EXPECT_NE(kept.find(".unreadable-2"), std::string::npos) << kept;
        EXPECT_EQ(readText(kept), row.content);
    }
}

TEST_F(PlistUserDefaultsTest, RefusesAFileOfAHundredMegabytesWithoutReadingIt)
{
    writeText(path, "<plist");
    ASSERT_EQ(::truncate(path.c_str(), 100 << 20), 0);
    PlistUserDefaults defaults(path);
    ASSERT_EQ(log.size(), 1u);
    EXPECT_NE(log[0].find("larger than the 64 MB"), std::string::npos);
    auto const kept = log[0].substr(log[0].rfind(" kept as ") + 9);
    EXPECT_EQ(std::filesystem::file_size(kept), std::uintmax_t { 100 } << 20);
}

TEST_F(PlistUserDefaultsTest, GivesEachUnreadableFileANameOfItsOwn)
{
    for (auto const* content : { "one", "two", "three" }) {
        writeText(path, content);
        PlistUserDefaults const defaults(path);
    }
    std::set<std::string> contents;
    for (auto const& name : folder.names("config")) {
        if (name.find("unreadable") != std::string::npos)
            contents.insert(readText(folder.path("config/") + name));
    }
    EXPECT_EQ(contents, (std::set<std::string> { "one", "two", "three" }));
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

TEST_F(PlistUserDefaultsTest, KeepsTheOldFileWholeOnAFullDiskAndSavesLater)
{
    PlistUserDefaults defaults(path);
    EXPECT_TRUE(defaults.setObject("ShowIcons", true));
    auto const before = readText(path);
    {
        FullDisk const disk(4096);
        auto const saved = defaults.setObject("Menu", std::string(20'000, 'm'));
        ASSERT_FALSE(saved);
        EXPECT_NE(saved.error().find("File too large"), std::string::npos) << saved.error();
    }
    EXPECT_EQ(readText(path), before);
    EXPECT_EQ(folder.names("config"), (std::vector<std::string> { fileName, std::string(fileName) + ".lock" }));
    EXPECT_EQ(defaults.object("Menu")->string()->size(), 20'000u);
    EXPECT_TRUE(defaults.setObject("ShowIcons", false));
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "ShowIcons", false }, { "Menu", std::string(20'000, 'm') } }));
}

TEST_F(PlistUserDefaultsTest, KeepsTheOldFileInAFolderThatCannotBeWritten)
{
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    writeSettings(path, { { "ShowIcons", true } });
    std::filesystem::permissions(folder.path("config"), std::filesystem::perms(0555));
    {
        tests::WithoutRoot const ordinary;
        PlistUserDefaults defaults(path);
        auto const saved = defaults.setObject("ShowIcons", false);
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error(), "Permission denied");
        EXPECT_EQ(defaults.object("ShowIcons"), PropertyList(false));
    }
    std::filesystem::permissions(folder.path("config"), std::filesystem::perms(0755));
    EXPECT_EQ(contentOf(path), PropertyList(PropertyListDictionary { { "ShowIcons", true } }));
}

TEST_F(PlistUserDefaultsTest, LeavesAnUnreadableFileInAFolderThatCannotBeWritten)
{
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    writeText(path, "garbage");
    std::filesystem::permissions(folder.path("config"), std::filesystem::perms(0555));
    {
        tests::WithoutRoot const ordinary;
        PlistUserDefaults defaults(path);
        EXPECT_EQ(log.size(), 1u);
        EXPECT_FALSE(defaults.setObject("ShowIcons", false));
    }
    std::filesystem::permissions(folder.path("config"), std::filesystem::perms(0755));
    EXPECT_EQ(readText(path), "garbage");
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
    EXPECT_EQ(defaults.object("Known"), PropertyList(1));
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

TEST_F(PlistUserDefaultsTest, AKilledSaveLeavesTheOldFileOrTheNewOne)
{
    writeSettings(path, { { "Kept", 1 }, { "Menu", PropertyListArray {} } });
    for (int round = 0; round < 40; ++round) {
        auto const child = inChild([&] {
            PlistUserDefaults defaults(path);
            for (std::size_t length = 1;; ++length) {
                if (!defaults.setObject("Menu", PropertyListArray(length % 3000, PropertyList("an entry of the menu"))))
                    return 1;
            }
        });
        std::this_thread::sleep_for(std::chrono::microseconds(1500 + round * 700));
        ::kill(child, SIGKILL);
        EXPECT_EQ(exitStatusOf(child), -1);
        auto const content = contentOf(path);
        ASSERT_TRUE(content.dictionary()) << *content.string();
        EXPECT_EQ(*content.dictionary()->find("Kept"), PropertyList(1));
        EXPECT_TRUE(content.dictionary()->find("Menu")->array());
    }
    EXPECT_TRUE(log.empty());
    EXPECT_LE(folder.names("config").size(), 3u) << "at most one temporary file stays";
    PlistUserDefaults defaults(path);
    EXPECT_TRUE(defaults.setObject("Menu", PropertyListArray {}));
    EXPECT_EQ(folder.names("config").size(), 2u);
}

} // namespace
} // namespace zv
