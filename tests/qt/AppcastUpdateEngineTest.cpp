#include "app/updates/AppcastUpdateEngine.h"

#include "base/Base64.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUpdateWindow.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sodium.h>

namespace zv {
namespace {

using namespace std::chrono_literals;

struct RecordingDriver : UpdateChannels, UpdateUserDriver {
    std::set<std::string> allowedChannels() const override { return {}; }
    bool supportsGentleScheduledUpdateReminders() const override { return true; }
    bool shouldHandleShowingScheduledUpdate(UpdateItem const&, bool) override { return engineShows; }
    void willHandleShowingUpdate(bool shows, UpdateItem const& item) override { log.push_back((shows ? "show " : "remind ") + item.displayVersion); }
    void didReceiveUserAttention(UpdateItem const&) override { log.emplace_back("attention"); }
    void willFinishUpdateSession() override { log.emplace_back("finish"); }

    bool engineShows = false;
    std::vector<std::string> log;
};

/// The engine over the real feed reader and real signatures; only the network is a fake.
struct UpdateEngineTest : testing::Test {
    UpdateEngineTest()
    {
        EXPECT_GE(sodium_init(), 0);
        crypto_sign_keypair(publicKey, secretKey);
        resources.info.set("CFBundleShortVersionString", "1.3");
        resources.info.set("SUFeedURL", "https://updates.zanthevell.org/appcast.xml");
        resources.info.set("SUPublicEDKey", toBase64(std::as_bytes(std::span(publicKey))));
        std::string pattern = testing::TempDir() + "zv-update-XXXXXX";
        folder = mkdtemp(pattern.data());
        package = folder / "zv.deb";
        std::ofstream(package) << "the package";
        start();
    }
    ~UpdateEngineTest() override { std::filesystem::remove_all(folder); }

    void start()
    {
        engine = std::make_unique<AppcastUpdateEngine>(
            AppcastUpdateEngine::Services { defaults, resources, time, time, application, workspace, downloads, origin, window }, driver, driver);
        EXPECT_FALSE(engine->start());
    }

    std::string signatureOf(std::string const& content)
    {
        unsigned char signature[crypto_sign_BYTES];
        crypto_sign_detached(signature, nullptr, reinterpret_cast<unsigned char const*>(content.data()), content.size(), secretKey);
        return toBase64(std::as_bytes(std::span(signature)));
    }

    std::vector<std::byte> feed(std::string const& version, std::string const& signature)
    {
        return fakes::bytesOf("<rss xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel><item><sparkle:version>" + version
            + "</sparkle:version><link>https://a.b/notes</link><description>&lt;p&gt;Better&lt;/p&gt;</description>"
              "<enclosure url=\"https://a.b/zv.deb\" length=\"11\" sparkle:edSignature=\""
            + signature + "\"/></item></channel></rss>");
    }
    std::vector<std::byte> goodFeed() { return feed("1.4", signatureOf("the package")); }

    unsigned char publicKey[crypto_sign_PUBLICKEYBYTES] {};
    unsigned char secretKey[crypto_sign_SECRETKEYBYTES] {};
    std::filesystem::path folder, package;
    fakes::FakeUserDefaults defaults;
    fakes::FakeResources resources;
    fakes::FakeTime time;
    fakes::FakeApplication application;
    fakes::FakeWorkspace workspace;
    fakes::FakeDownloads downloads;
    fakes::FakePackageOrigin origin;
    fakes::FakeUpdateWindow window;
    RecordingDriver driver;
    std::unique_ptr<AppcastUpdateEngine> engine;
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
    downloads.answerFile(Url::fromPath(package.string()));
    EXPECT_EQ(workspace.log, (std::vector<std::string> { "open " + Url::fromPath(package.string()).toString() }));
    EXPECT_FALSE(window.page);
    EXPECT_EQ(driver.log, (std::vector<std::string> { "show 1.4", "attention", "finish" }));
    EXPECT_TRUE(engine->canCheckForUpdates());
}

TEST_F(UpdateEngineTest, RefusesWhatIsNotOurs)
{
    for (auto const& signature : { signatureOf("another package"), std::string("AAAA"), std::string() }) {
        engine->checkForUpdates();
        downloads.answerFeed(feed("1.4", signature));
        ASSERT_TRUE(window.press("Install"));
        downloads.answerFile(Url::fromPath(package.string()));
        ASSERT_TRUE(window.page);
        EXPECT_EQ(window.page->title, "The update was refused");
        EXPECT_TRUE(window.page->message.ends_with("Nothing was changed."));
        EXPECT_EQ(downloads.discarded.back(), package.string());
        EXPECT_TRUE(workspace.log.empty());
        ASSERT_TRUE(window.press("OK"));
        EXPECT_TRUE(engine->canCheckForUpdates());
    }
}

TEST_F(UpdateEngineTest, TellsTheReasonWhenAskedAndStaysQuietWhenNot)
{
    std::vector<std::pair<Result<Downloads::Bytes>, std::string>> const answers {
        { Failure { std::string("the server answers 404") }, "The reason: the server answers 404." },
        { fakes::bytesOf("<rss><channel>"), "The reason: the feed cannot be read: " },
        { fakes::bytesOf("<!DOCTYPE x [<!ENTITY a \"b\">]><rss/>"), "The reason: the feed cannot be read: it declares a document type of its own." },
        { fakes::bytesOf("<html/>"), "The reason: the feed cannot be read: it is not a feed." },
        { feed("1.3", "x"), "Zanthe Vell 1.3 is the newest version." },
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
    downloads.answerFeed(feed("1.3", "x"));
    time.advance(23h);
    EXPECT_EQ(downloads.requested.size(), 1U);
    start(); // remembered across starts
    time.advance(30min);
    EXPECT_EQ(downloads.requested.size(), 1U);
    time.advance(3h);
    EXPECT_EQ(downloads.requested.size(), 2U);
    downloads.answerFeed(Failure { std::string("no network") });
    engine->setAutomaticallyChecksForUpdates(false);
    time.advance(100h);
    EXPECT_EQ(downloads.requested.size(), 2U);
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
    ASSERT_TRUE(window.press("Skip This Version"));
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
