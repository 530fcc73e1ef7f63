#include "platform/linux/qt/QtDownloads.h"

#include "tests/qt/TestApplication.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace zv {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

/// Answers every request on a loopback port as its path asks for.
class Server : public QTcpServer {
public:
    Server()
    {
        EXPECT_TRUE(listen(QHostAddress::LocalHost));
        connect(this, &QTcpServer::newConnection, this, [this] { serve(nextPendingConnection()); });
    }
    [[nodiscard]] Url url(std::string const& path) const { return *Url::parse("http://127.0.0.1:" + std::to_string(serverPort()) + path); }
    QByteArray lastRequest;

private:
    void serve(QTcpSocket* socket)
    {
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
            lastRequest = socket->readAll();
            auto const path = lastRequest.split(' ').value(1);
            if (path == "/good")
                answer(socket, "200 OK", "hello");
            else if (path == "/circle")
                answer(socket, "302 Found\r\nLocation: /circle", "");
            else if (path == "/large")
                answer(socket, "200 OK", QByteArray(5'000'000, 'x'));
            else if (path == "/cut")
                answer(socket, "200 OK\r\nContent-Length: 100", "only this");
            else if (path != "/silent")
                answer(socket, "404 Not Found", "nothing here");
        });
    }
    static void answer(QTcpSocket* socket, QByteArray const& head, QByteArray const& body)
    {
        socket->write("HTTP/1.1 " + head + "\r\nConnection: close\r\n\r\n" + body);
        socket->disconnectFromHost();
    }
};

struct QtDownloadsTest : testing::Test {
    ~QtDownloadsTest() override { fs::remove_all(folder); }

    static DownloadLimits limits()
    {
        DownloadLimits made;
        made.bytes = 1'000'000;
        made.silence = 300ms;
        return made;
    }
    template <class Condition> static void turnUntil(Condition condition)
    {
        QElapsedTimer patience;
        patience.start();
        while (!condition() && patience.elapsed() < 10'000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    std::string outcome(Url const& url, DownloadSchemes schemes = DownloadSchemes::localToo)
    {
        QtDownloads downloads(folder, schemes);
        std::string result;
        std::unique_ptr<Download> download = downloads.fetch(url, limits(), [&](Result<Downloads::Bytes> const& bytes) {
            result = bytes ? "ok " + std::string(reinterpret_cast<char const*>(bytes->data()), bytes->size()) : "failed: " + bytes.error();
            download.reset(); // as an owner may, within its own callback
        });
        turnUntil([&] { return !result.empty(); });
        return result;
    }

    std::string folder = testing::TempDir() + "zv-downloads";
    std::unique_ptr<Server> running = (ensureApplication(), std::make_unique<Server>());
    Server& server = *running;
};

TEST_F(QtDownloadsTest, IsBoundedInEveryDirection)
{
    struct Row {
        std::string path, outcome;
    };
    Row const rows[] = {
        { "/good", "ok hello" },
        { "/missing", "failed: the server answers 404" },
        { "/circle", "failed: the server sends round in circles" },
        { "/large", "failed: it is larger than it may be" },
        { "/silent", "failed: the server does not answer" },
        { "/cut", "failed: Connection closed" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(outcome(server.url(row.path)), row.outcome);
    EXPECT_EQ(outcome(server.url("/good"), DownloadSchemes::httpsOnly), "failed: the address is not one of https");
    EXPECT_EQ(outcome(*Url::parse("https://127.0.0.1:1/"), DownloadSchemes::httpsOnly), "failed: Connection refused");
}

TEST_F(QtDownloadsTest, TellsNothingOfTheUser)
{
    EXPECT_EQ(outcome(server.url("/good")), "ok hello");
    auto const request = server.lastRequest.toStdString();
    EXPECT_NE(request.find("User-Agent: Zanthe Vell\r\n"), std::string::npos) << request;
    EXPECT_EQ(request.find("Cookie"), std::string::npos);
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
        downloads.discard(**result);
    }
    EXPECT_TRUE(fs::is_empty(folder)) << "nothing is left of what was not kept";
}

} // namespace
} // namespace zv
