#pragma once

#include "base/Url.h"
#include "tests/linux/toolkit/TestApplication.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace zv::tests {

/// Answers requests on a loopback port with the test's answers by path.
class LoopbackServer : public QTcpServer {
public:
    struct Answer {
        QByteArray head = "200 OK"; ///< status and more header lines
        QByteArray body {};
        bool isEndless = false; ///< the body comes again and again, a moment apart
    };

    LoopbackServer()
    {
        EXPECT_TRUE(listen(QHostAddress::LocalHost));
        connect(this, &QTcpServer::newConnection, this, [this] { serve(nextPendingConnection()); });
    }
    [[nodiscard]] std::string address(std::string const& path) const { return "http://127.0.0.1:" + std::to_string(serverPort()) + path; }
    [[nodiscard]] Url url(std::string const& path) const { return *Url::parse(address(path)); }

    /// Answers by path. Other paths are not found; one without a head is never answered.
    std::map<QByteArray, Answer> answers;

private:
    void serve(QTcpSocket* socket)
    {
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
            auto const found = answers.find(socket->readAll().split(' ').value(1));
            answer(*socket, found == answers.end() ? Answer { "404 Not Found", "nothing here" } : found->second);
        });
    }
    static void answer(QTcpSocket& socket, Answer const& answer)
    {
        if (answer.head.isEmpty())
            return;
        socket.write("HTTP/1.1 " + answer.head + "\r\nConnection: close\r\n\r\n" + answer.body);
        if (!answer.isEndless)
            return socket.disconnectFromHost();
        auto* const more = new QTimer(&socket);
        connect(more, &QTimer::timeout, &socket, [&socket, body = answer.body] { socket.write(body); });
        more->start(20);
    }
};

} // namespace zv::tests
