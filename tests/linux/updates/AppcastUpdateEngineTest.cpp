#include "tests/linux/updates/UpdateEngineFixture.h"

namespace zv {
namespace {

using namespace std::chrono_literals;

/// The engine over the real feed reader and real signatures; only the network is a fake.
struct UpdateEngineTest : tests::UpdateEngineFixture {
    UpdateEngineTest()
        : UpdateEngineFixture(downloads)
    {
        resources.info.set("SUFeedURL", "https://updates.zanthevell.org/appcast.xml");
        start();
    }
    ~UpdateEngineTest() override { engine.reset(); }

    std::vector<std::byte> goodFeed(char const* version = "1.4") { return fakes::bytesOf(feed(item(version, "the package"))); }

    fakes::FakeDownloads downloads;
};

TEST_F(UpdateEngineTest, HandsOverAVerifiedPackage)
{
    engine->checkForUpdates();
    EXPECT_FALSE(engine->canCheckForUpdates());
    downloads.answerFeed(goodFeed());
    ASSERT_TRUE(window.page);
    EXPECT_EQ(window.page->message, "Zanthe Vell 1.4 is available. You have 1.3.");
    EXPECT_EQ(window.page->notes, "Better");
    ASSERT_TRUE(window.press("Install"));
    EXPECT_EQ(downloads.requested.back(), "https://a.b/zv.deb");
    downloads.answerFile(Url::fromPath(package));
    EXPECT_EQ(workspace.log, (std::vector<std::string> { "open " + Url::fromPath(package).toString() }));
    EXPECT_FALSE(window.page);
    EXPECT_EQ(driver.log, (std::vector<std::string> { "show 1.4", "attention", "finish" }));
    EXPECT_TRUE(engine->canCheckForUpdates());
}

TEST_F(UpdateEngineTest, RefusesWhatIsNotOurs)
{
    for (auto const& signature : { signatureOf("another package"), std::string("AAAA"), std::string() }) {
        engine->checkForUpdates();
        downloads.answerFeed(fakes::bytesOf(feed(itemSigned("1.4", signature))));
        ASSERT_TRUE(window.press("Install"));
        downloads.answerFile(Url::fromPath(package));
        ASSERT_TRUE(window.page);
        EXPECT_EQ(window.page->title, "The update was refused");
        EXPECT_TRUE(window.page->message.ends_with("Nothing was changed."));
        EXPECT_EQ(downloads.discarded.back(), package);
        EXPECT_TRUE(workspace.log.empty());
        ASSERT_TRUE(window.press("OK"));
        EXPECT_TRUE(engine->canCheckForUpdates());
    }
}

TEST_F(UpdateEngineTest, BelievesNoFeedThatIsNotSignedAsAWhole)
{
    auto const good = feed(item("1.4", "the package"));
    auto const renamed = std::string(good).replace(good.find("1.4"), 3, "9.9");
    auto const before = good.substr(0, good.find("<!--"));
    for (auto const& forged : { renamed, before, good + "<item/>", before + "<!-- edSignature: AAAA -->", "<item/>" + good }) {
        engine->checkForUpdates();
        downloads.answerFeed(fakes::bytesOf(forged));
        ASSERT_TRUE(window.page);
        EXPECT_TRUE(window.page->message.starts_with("The reason: the list of versions is not signed as ours are")) << forged;
        ASSERT_TRUE(window.press("OK"));
    }
}

TEST_F(UpdateEngineTest, OffersAndOpensOnlyPackagesOfThisSystem)
{
    for (auto const* address : { "https://a.b/evil.desktop", "https://a.b/zv.rpm", "https://a.b/x.desktop?zv.deb" }) {
        downloadAddress = address;
        engine->checkForUpdates();
        downloads.answerFeed(goodFeed());
        EXPECT_FALSE(window.press("Install")) << address;
        ASSERT_TRUE(window.press("Remind Me Later"));
    }
    downloadAddress = "https://a.b/zv.deb";
    opening = Failure { std::string("No application is registered") };
    engine->checkForUpdates();
    downloads.answerFeed(goodFeed());
    ASSERT_TRUE(window.press("Install"));
    downloads.answerFile(Url::fromPath(package));
    ASSERT_TRUE(window.page);
    EXPECT_EQ(window.page->message, "“zv.deb” was downloaded, but nothing here installs it: No application is registered.");
    ASSERT_TRUE(window.press("Show in Folder"));
    EXPECT_EQ(workspace.log.back(), "reveal " + Url::fromPath(package).toString());
    EXPECT_TRUE(engine->canCheckForUpdates());
}

TEST_F(UpdateEngineTest, TellsTheReasonWhenAskedAndStaysQuietWhenNot)
{
    std::vector<std::pair<Result<Downloads::Bytes>, std::string>> const answers {
        { Failure { std::string("the server answers 404") }, "The reason: the server answers 404." },
        { fakes::bytesOf(signedText("<html/>")), "The reason: the feed cannot be read: it is not a feed." },
        { goodFeed("1.3"), "Zanthe Vell 1.3 is the newest version." },
    };
    for (auto const& [answer, message] : answers) {
        engine->checkForUpdates();
        downloads.answerFeed(answer);
        ASSERT_TRUE(window.page);
        EXPECT_TRUE(window.page->message.starts_with(message)) << window.page->message;
        ASSERT_TRUE(window.press("OK"));

        time.advance(27h);
        downloads.answerFeed(answer);
        EXPECT_FALSE(window.page) << "a scheduled check disturbs nobody with that";
    }
}

TEST_F(UpdateEngineTest, LooksOnceADayAndNeverRightAtTheStart)
{
    time.advance(59s);
    EXPECT_TRUE(downloads.requested.empty()) << "the menu comes first";
    time.advance(20min);
    ASSERT_EQ(downloads.requested.size(), 1U);
    downloads.answerFeed(goodFeed("1.3"));
    time.advance(23h);
    EXPECT_EQ(downloads.requested.size(), 1U);
    start(); // remembered across starts
    time.advance(30min);
    EXPECT_EQ(downloads.requested.size(), 1U);
    time.advance(3h);
    EXPECT_EQ(downloads.requested.size(), 2U);
    downloads.answerFeed(Failure { std::string("no network") });
    time.advance(23h);
    engine->checkForUpdates();
    downloads.answerFeed(goodFeed("1.3"));
    ASSERT_TRUE(window.press("OK"));
    time.advance(5h);
    EXPECT_EQ(downloads.requested.size(), 3U) << "the user's own check counts";
    engine->setAutomaticallyChecksForUpdates(false);
    time.advance(100h);
    EXPECT_EQ(downloads.requested.size(), 3U);
}

TEST_F(UpdateEngineTest, KeepsAReminderUntilItIsAttendedTo)
{
    time.advance(20min);
    downloads.answerFeed(goodFeed());
    EXPECT_EQ(driver.log, (std::vector<std::string> { "remind 1.4" }));
    EXPECT_FALSE(window.page);
    engine->checkForUpdates();
    ASSERT_TRUE(window.page);
    EXPECT_EQ(downloads.requested.size(), 1U) << "the pending update is brought forward";
    time.advance(27h);
    ASSERT_TRUE(window.press("Skip This Version"));
    time.advance(1h);
    EXPECT_EQ(downloads.requested.size(), 1U) << "it was on show when a check was due";
    time.advance(27h);
    downloads.answerFeed(goodFeed());
    EXPECT_EQ(driver.log.back(), "finish") << "a skipped version is not told again";
    engine->checkForUpdates();
    downloads.answerFeed(goodFeed());
    EXPECT_EQ(window.page->title, "A new version is available") << "but shown to who asks";
}

TEST_F(UpdateEngineTest, LeavesAPackageManagersFilesAlone)
{
    origin.package = "zanthe-vell";
    engine->checkForUpdates();
    downloads.answerFeed(goodFeed());
    EXPECT_FALSE(window.press("Install"));
    ASSERT_TRUE(window.press("Open Release Page"));
    EXPECT_EQ(workspace.log, (std::vector<std::string> { "open https://a.b/notes" }));
}

TEST_F(UpdateEngineTest, ChecksNothingWithoutFeedOrKey)
{
    for (auto const* key : { "SUFeedURL", "SUPublicEDKey" }) {
        resources.info.remove(key);
        start();
        EXPECT_FALSE(engine->canCheckForUpdates());
        engine->checkForUpdates();
        time.advance(50h);
        EXPECT_TRUE(downloads.requested.empty());
    }
}

TEST_F(UpdateEngineTest, CanBeCalledOff)
{
    engine->checkForUpdates();
    ASSERT_TRUE(window.press("Cancel"));
    EXPECT_FALSE(downloads.feedDone) << "the request is stopped";
    EXPECT_TRUE(engine->canCheckForUpdates());
}

} // namespace
} // namespace zv
