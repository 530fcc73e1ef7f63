#include "platform/linux/updates/QtDownloads.h"

#include "tests/linux/updates/LoopbackServer.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace zv {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using tests::LoopbackServer;
using tests::turnUntil;

struct QtDownloadsTest : testing::Test {
    QtDownloadsTest()
    {
        server.answers = {
            { "/good", { .body = "hello" } },
            { "/circle", { .head = "302 Found\r\nLocation: /circle" } },
            { "/elsewhere", { .head = "302 Found\r\nLocation: file:///etc/hostname" } },
            { "/large", { .body = QByteArray(20'000'000, 'x') } },
            { "/cut", { .head = "200 OK\r\nContent-Length: 100", .body = "only this" } },
            { "/silent", { .head = "" } },
            { "/dripping", { .body = "x", .isEndless = true } },
        };
    }
    ~QtDownloadsTest() override { fs::remove_all(folder); }

    /// Limits, short only in tests of the time: a busy machine is slow, too.
    static DownloadLimits limits(std::chrono::milliseconds silence = 20s, std::chrono::milliseconds total = 30s) { return { 1'000'000, silence, total }; }
    std::string outcome(Url const& url, DownloadSchemes schemes = DownloadSchemes::localToo, DownloadLimits const& allowed = limits())
    {
        QtDownloads downloads(folder, schemes);
        std::string result;
        std::unique_ptr<Download> download = downloads.fetch(url, allowed, [&](Result<Downloads::Bytes> const& bytes) {
            result = bytes ? "ok " + std::string(reinterpret_cast<char const*>(bytes->data()), bytes->size()) : "failed: " + bytes.error();
            download.reset(); // as an owner may, within its own callback
        });
        turnUntil([&] { return !result.empty(); });
        return result;
    }

    std::string folder = testing::TempDir() + "zv-downloads-" + std::to_string(::getpid());
    std::unique_ptr<LoopbackServer> running = (ensureApplication(), std::make_unique<LoopbackServer>());
    LoopbackServer& server = *running;
};

TEST_F(QtDownloadsTest, IsBoundedInEveryDirection)
{
    struct Row {
        std::string path, outcome;
        DownloadLimits limits = QtDownloadsTest::limits();
    };
    Row const rows[] = {
        { "/good", "ok hello" },
        { "/missing", "failed: the server answers 404" },
        { "/circle", "failed: the server sends round in circles" },
        { "/large", "failed: it is larger than it may be" },
        { "/silent", "failed: the server does not answer", limits(300ms) },
        { "/dripping", "failed: the server is too slow", limits(20s, 1s) },
        { "/cut", "failed: Connection closed" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(outcome(server.url(row.path), DownloadSchemes::localToo, row.limits), row.outcome);
    EXPECT_EQ(outcome(server.url("/good"), DownloadSchemes::httpsOnly), "failed: the address is not one of https");
    EXPECT_EQ(outcome(*Url::parse("https://127.0.0.1:1/"), DownloadSchemes::httpsOnly), "failed: Connection refused");
}

TEST_F(QtDownloadsTest, KeepsAFileOnlyWhenItIsWhole)
{
    QtDownloads downloads(folder, DownloadSchemes::localToo);
    for (auto const& [path, isWhole] : { std::pair { "/good", true }, std::pair { "/large", false }, std::pair { "/cut", false } }) {
        std::optional<Result<Url>> result;
        auto const download = downloads.fetchFile(server.url(path), limits(), {}, [&](Result<Url> const& file) { result = file; });
        turnUntil([&] { return result.has_value(); });
        ASSERT_TRUE(result);
        EXPECT_EQ(result->ok(), isWhole) << path;
        if (!isWhole)
            continue;
        EXPECT_EQ((*result)->lastPathComponent(), "good");
        EXPECT_EQ(fs::file_size((*result)->path()), 5U);
    }
    EXPECT_TRUE(fs::is_empty(folder)) << "nothing is left of what was not kept, nor of what came before";
}

} // namespace
} // namespace zv
