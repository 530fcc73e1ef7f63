#pragma once

#include "platform/linux/updates/AppcastUpdateEngine.h"

#include "base/Base64.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUpdateWindow.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/linux/TemporaryFolder.h"

#include <sodium.h>

namespace zv::tests {

struct RecordingDriver : UpdateChannels, UpdateUserDriver {
    std::set<std::string> allowedChannels() const override { return {}; }
    bool supportsGentleScheduledUpdateReminders() const override { return true; }
    bool shouldHandleShowingScheduledUpdate(UpdateItem const&, bool) override { return false; }
    void willHandleShowingUpdate(bool shows, UpdateItem const& item) override { log.push_back((shows ? "show " : "remind ") + item.displayVersion); }
    void didReceiveUserAttention(UpdateItem const&) override { log.emplace_back("attention"); }
    void willFinishUpdateSession() override { log.emplace_back("finish"); }

    std::vector<std::string> log;
};

/// The engine of version 1.3 with a key of its own, and feeds that are signed with it.
struct UpdateEngineFixture : testing::Test {
    explicit UpdateEngineFixture(Downloads& network)
        : network(network)
    {
        EXPECT_GE(sodium_init(), 0);
        crypto_sign_keypair(publicKey, secretKey);
        resources.info.set("CFBundleShortVersionString", "1.3");
        resources.info.set("SUPublicEDKey", toBase64(std::as_bytes(std::span(publicKey))));
    }

    void start()
    {
        engine.reset(); // it lets go of the window as it ends
        engine = std::make_unique<AppcastUpdateEngine>(
            AppcastUpdateEngine::Services { defaults, resources, time, time, application, workspace, network, origin, window,
                [this](Url const& package, auto done) {
                    workspace.open(package);
                    done(opening);
                } },
            driver, driver);
        EXPECT_TRUE(engine->start());
    }

    std::string signatureOf(std::string const& content)
    {
        unsigned char signature[crypto_sign_BYTES];
        crypto_sign_detached(signature, nullptr, reinterpret_cast<unsigned char const*>(content.data()), content.size(), secretKey);
        return toBase64(std::as_bytes(std::span(signature)));
    }

    /// An item for a file of eleven bytes, such as "the package".
    std::string itemSigned(std::string const& version, std::string const& signature, std::string const& more = "")
    {
        return "<item><sparkle:version>" + version + "</sparkle:version>" + more
            + "<link>https://a.b/notes</link><description>&lt;p&gt;Better&lt;/p&gt;</description><enclosure url=\"" + downloadAddress
            + "\" length=\"11\" sparkle:edSignature=\"" + signature + "\"/></item>";
    }
    std::string item(std::string const& version, std::string const& content, std::string const& more = "")
    {
        return itemSigned(version, signatureOf(content), more);
    }
    std::string signedText(std::string const& text) { return text + "<!-- edSignature: " + signatureOf(text) + " -->\n"; }
    std::string feed(std::string const& items)
    {
        return signedText("<rss xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel>" + items + "</channel></rss>");
    }

    Downloads& network;
    std::string downloadAddress = "https://a.b/zv.deb";
    unsigned char publicKey[crypto_sign_PUBLICKEYBYTES] {};
    unsigned char secretKey[crypto_sign_SECRETKEYBYTES] {};
    TemporaryFolder folder;
    std::string package = folder.write("zv.deb", "the package");
    fakes::FakeUserDefaults defaults;
    fakes::FakeResources resources;
    fakes::FakeApplication application;
    fakes::FakeTime time;
    fakes::FakeWorkspace workspace { time };
    Result<void> opening; ///< the outcome of opening a package
    fakes::FakePackageOrigin origin;
    fakes::FakeUpdateWindow window;
    RecordingDriver driver;
    std::unique_ptr<AppcastUpdateEngine> engine;
};

} // namespace zv::tests
