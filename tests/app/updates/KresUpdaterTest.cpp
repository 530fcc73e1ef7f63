#include "app/updates/KresUpdater.h"

#include "base/Base64.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeUpdates.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

struct KresUpdaterTest : testing::Test {
    KresUpdaterTest()
    {
        resources.info.set("CFBundleName", "Zanthe Vell");
        resources.info.set("SUFeedURL", "https://updates.zanthevell.org/appcast.xml");
        resources.info.set("SUPublicEDKey", toBase64(std::vector<std::byte>(32)));
    }
    std::unique_ptr<KresUpdater> make()
    {
        return std::make_unique<KresUpdater>(
            KresUpdater::Services { resources, { notifications, application, resources }, [this](UpdateChannels& channels, UpdateUserDriver& driver) {
                                       auto made = std::make_unique<fakes::FakeUpdateEngine>();
                                       made->channels = &channels;
                                       made->userDriver = &driver;
                                       made->automatic = automatic;
                                       made->starting = starting;
                                       engine = made.get();
                                       return made;
                                   } });
    }

    fakes::FakeResources resources;
    fakes::FakeUserNotifications notifications;
    fakes::FakeApplication application;
    fakes::FakeUpdateEngine* engine = nullptr;
    bool automatic = false;
    Result<void> starting;
};

TEST(UpdateChannel, TakesOnlyMarkersBehindDigitsForPreReleases)
{
    struct Row {
        std::string version;
        bool isPreRelease;
    };
    Row const rows[] = { { "2.0", false }, { "2.0b3", true }, { "2.0B3", true }, { "2.0-rc1", true }, { "2.0 beta", true }, { "2.0.alpha.1", true },
        { "2.0a", true }, { "Aurora 2.0", false }, { "b2.0", false }, { "2.0 build 7", false }, { "2.0 arc", false }, { "2.0dev-b3", false }, { "", false } };
    for (auto const& row : rows) {
        EXPECT_EQ(isPreReleaseVersion(row.version), row.isPreRelease) << row.version;
        fakes::FakeResources resources;
        resources.info.set("CFBundleShortVersionString", row.version);
        EXPECT_EQ(KresUpdateChannelDelegate(resources).allowedChannels().contains("beta"), row.isPreRelease);
    }
}

TEST_F(KresUpdaterTest, NamesTheFirstReasonWhyUpdatesCannotWork)
{
    std::string const noFeed = "No appcast URL is set, so there is nothing to check against.";
    std::string const noKey
        = "No update signing key is set, so no update could be verified. Run Sparkle's generate_keys and put the public key in SUPublicEDKey.";
    EXPECT_EQ(make()->startProblem(), std::nullopt);

    auto const goodKey = *resources.info.find("SUPublicEDKey");
    std::vector<PropertyList> const wrongKeys { PropertyList(7), PropertyList("not base64!"), PropertyList(toBase64(std::vector<std::byte>(31))),
        PropertyList("") };
    for (auto const& wrong : wrongKeys) {
        resources.info.set("SUPublicEDKey", wrong);
        EXPECT_EQ(make()->startProblem(), noKey);
    }
    resources.info.remove("SUPublicEDKey");
    EXPECT_EQ(make()->startProblem(), noKey);

    for (auto const* wrong : { "", "no address", "mailto:me", "https://", "https://updates.zanthevell.example/appcast.xml", "https://example.com/appcast.xml" }) {
        resources.info.set("SUFeedURL", wrong);
        EXPECT_EQ(make()->startProblem(), noFeed) << wrong << ": the feed comes before the key";
    }

    starting = Failure { "it is broken" };
    auto const updater = make();
    updater->start();
    EXPECT_EQ(updater->startProblem(), "KresUpdater: it is broken");
}

TEST_F(KresUpdaterTest, MirrorsTheEngineAndTellsObservers)
{
    auto const updater = make();
    int changes = 0;
    auto const observation = withObservationTracking([&] { (void)updater->canCheckForUpdates(); }, [&] { ++changes; });
    engine->canCheck = true;
    engine->lastCheck = WallTime(std::chrono::hours(5));
    engine->onCanCheckChanged();
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_EQ(updater->lastCheckDate(), engine->lastCheck);
    EXPECT_EQ(changes, 1);

    engine->automatic = true;
    engine->onAutomaticallyChecksChanged();
    EXPECT_TRUE(updater->checksAutomatically());
    updater->setChecksAutomatically(true);
    EXPECT_EQ(engine->automaticWrites, 0) << "the engine has the value already";
}

TEST_F(KresUpdaterTest, AsksForNotificationsOnce)
{
    auto updater = make();
    updater->start();
    EXPECT_EQ(notifications.requests, 0) << "not before checks are automatic";
    updater->setChecksAutomatically(true);
    updater->setChecksAutomatically(false);
    updater->setChecksAutomatically(true);
    EXPECT_EQ(notifications.requests, 1);

    automatic = true;
    updater = make();
    updater->start();
    updater->setChecksAutomatically(true);
    EXPECT_EQ(notifications.requests, 2);
}

TEST_F(KresUpdaterTest, RemindsGentlyOnlyInTheBackgroundAndWithPermission)
{
    struct Row {
        bool granted, active, immediate;
        bool reminds;
    };
    Row const rows[] = { { true, false, false, true }, { false, false, false, false }, { true, true, false, false }, { true, false, true, false } };
    for (auto const& row : rows) {
        notifications.granted = row.granted;
        notifications.delivered.clear();
        application.active = row.active;
        automatic = true;
        auto const updater = make();
        updater->start();
        engine->find({ "1.4" }, row.immediate);
        ASSERT_EQ(notifications.delivered.size(), row.reminds ? 1U : 0U);
        if (!row.reminds)
            continue;
        EXPECT_EQ(notifications.delivered[0].title, "Zanthe Vell 1.4 is available");
        EXPECT_EQ(notifications.delivered[0].body, "Click to install it.");

        notifications.onActivated("Another");
        EXPECT_EQ(engine->checks, 0);
        notifications.onActivated("KresUpdateAvailable");
        EXPECT_EQ(engine->checks, 1) << "brings the pending update forward";
        engine->userDriver->didReceiveUserAttention({ "1.4" });
        EXPECT_TRUE(notifications.delivered.empty());
        engine->find({ "1.5" }, false);
        engine->userDriver->willFinishUpdateSession();
        EXPECT_TRUE(notifications.delivered.empty());
    }
}

TEST(Base64, RoundTripsEveryLengthAndRefusesTheRest)
{
    for (std::size_t length = 0; length < 40; ++length) {
        std::vector<std::byte> bytes(length);
        for (std::size_t i = 0; i < length; ++i)
            bytes[i] = static_cast<std::byte>(i * 37 + 251);
        EXPECT_EQ(fromBase64(toBase64(bytes)), bytes);
    }
    for (auto const* wrong : { "A", "AAA", "A=AA", "AA A", "====", "AAAA\n" })
        EXPECT_FALSE(fromBase64(wrong)) << wrong;
}

} // namespace
} // namespace zv
