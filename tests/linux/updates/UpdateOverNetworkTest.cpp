#include "platform/linux/updates/QtDownloads.h"

#include "tests/linux/TextFiles.h"
#include "tests/linux/updates/LoopbackServer.h"
#include "tests/linux/updates/UpdateEngineFixture.h"

namespace zv {
namespace {

using tests::LoopbackServer;
using tests::readText;
using tests::turnUntil;
using Answer = LoopbackServer::Answer;

/// The engine with all its parts on a desktop but the window; the feed and the package come
/// from a server of the test's own.
struct UpdateOverNetworkTest : tests::UpdateEngineFixture {
    UpdateOverNetworkTest()
        : UpdateEngineFixture(downloads)
    {
        downloadAddress = server.address("/zv.deb");
        resources.info.set("SUFeedURL", server.address("/appcast.xml"));
    }
    ~UpdateOverNetworkTest() override { engine.reset(); }

    void serve(std::string const& feedText, Answer const& packageAnswer = { .body = "the package" })
    {
        server.answers = { { "/appcast.xml", { .body = QByteArray::fromStdString(feedText) } }, { "/zv.deb", packageAnswer } };
    }

    /// Checks, installs the offer, and tells the end: the window's last text, or the file handed
    /// over.
    std::string run()
    {
        workspace.log.clear();
        start();
        engine->checkForUpdates();
        turnUntil([&] { return !isBusy(); });
        if (window.press("Install"))
            turnUntil([&] { return !isBusy(); });
        auto const result = window.page ? window.page->title + "|" + window.page->message : "handed over " + handedOver();
        engine.reset();
        window.page.reset();
        return result;
    }
    [[nodiscard]] bool isBusy() const { return window.page && window.page->progress; }
    [[nodiscard]] std::string handedOver() const
    {
        if (workspace.log.size() != 1)
            return std::to_string(workspace.log.size()) + " files";
        auto const file = Url::parse(workspace.log[0].substr(std::string_view("open ").size()));
        return readText(file ? file->path() : "");
    }

    std::unique_ptr<LoopbackServer> running = (ensureApplication(), std::make_unique<LoopbackServer>());
    LoopbackServer& server = *running;
    QtDownloads downloads { folder.path("downloads"), DownloadSchemes::localToo };
};

constexpr auto upToDate = "You’re up to date|Zanthe Vell 1.3 is the newest version.";
constexpr auto noFeed = "Updates could not be looked for|The reason: ";
constexpr auto noDownload = "The update could not be downloaded|The reason: ";
constexpr auto refused = "The update was refused|Its signature does not match: it is damaged, or it is not ours. Nothing was changed.";

TEST_F(UpdateOverNetworkTest, HandsOverOnlyWhatIsSignedAndWhole)
{
    std::string const good = feed(item("1.4", "the package"));
    struct Row {
        char const* why;
        std::string feedText;
        Answer packageAnswer;
        std::string ending;
    };
    Row const rows[] = {
        { "a good one", good, { .body = "the package" }, "handed over the package" },
        { "another file", good, { .body = "the pack4ge" }, refused },
        { "a shorter file", good, { .body = "the pack" }, refused },
        { "a longer file", good, { .body = "the package and more" }, std::string(noDownload) + "it is larger than it may be. Nothing was changed." },
        { "a file that breaks off", good, { .head = "200 OK\r\nContent-Length: 11", .body = "the pa" },
            std::string(noDownload) + "Connection closed. Nothing was changed." },
        { "no file", good, { .head = "404 Not Found" }, std::string(noDownload) + "the server answers 404. Nothing was changed." },
        { "signed by nobody", feed(itemSigned("1.4", "")), { .body = "the package" },
            "The update was refused|The feed gives no signature for it. Nothing was changed." },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        serve(row.feedText, row.packageAnswer);
        EXPECT_EQ(run(), row.ending);
    }
}

TEST_F(UpdateOverNetworkTest, TellsInOneSentenceWhyThereIsNothing)
{
    auto const repeated = [](std::string const& text, int times) {
        std::string all;
        for (int i = 0; i < times; ++i)
            all += text;
        return all;
    };
    constexpr int levels = 100'000;
    std::string const laughs = "<!DOCTYPE rss [<!ENTITY a \"haha\"><!ENTITY b \"&a;&a;&a;&a;\"><!ENTITY c \"&b;&b;&b;&b;\">]><rss>&c;</rss>";
    std::string const outside = "<!DOCTYPE rss SYSTEM \"file:///etc/hostname\"><rss/>";
    struct Row {
        char const* why;
        std::string feedText;
        std::string ending;
    };
    Row const rows[] = {
        { "an older version", feed(item("1.2", "the package")), upToDate },
        { "a version of a channel that is not asked for", feed(item("2.0b1", "the package", "<sparkle:channel>beta</sparkle:channel>")), upToDate },
        { "a feed of no version", feed(""), upToDate },
        { "a billion laughs", signedText(laughs), "the feed cannot be read: it declares a document type of its own." },
        { "something of this computer", signedText(outside), "the feed cannot be read: it declares a document type of its own." },
        { "no feed", signedText("<html/>"), "the feed cannot be read: it is not a feed." },
        { "nothing", signedText(""), "the feed cannot be read: line 1: Premature end of document." },
        { "an unsigned feed", "<rss/>", "the list of versions is not signed as ours are: it is damaged, or it is not ours." },
        { "100 MB", feed("") + std::string(100'000'000, ' '), "it is larger than it may be." },
        { "a nested description", feed("<item><description>" + repeated("<a>", levels) + repeated("</a>", levels) + "</description></item>"), upToDate },
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.why);
        serve(row.feedText);
        EXPECT_EQ(run(), row.ending == upToDate ? row.ending : noFeed + row.ending);
    }

    serve("");
    server.answers["/appcast.xml"] = { .head = "302 Found\r\nLocation: /appcast.xml" };
    EXPECT_EQ(run(), std::string(noFeed) + "the server sends round in circles.");
    server.answers.clear();
    EXPECT_EQ(run(), std::string(noFeed) + "the server answers 404.");
    server.close();
    EXPECT_EQ(run(), std::string(noFeed) + "Connection refused.");
}

} // namespace
} // namespace zv
