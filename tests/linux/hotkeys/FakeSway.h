#pragma once

#include "platform/linux/posix/FileDescriptor.h"
#include "tests/linux/TemporaryFolder.h"

#include <QByteArray>

#include <array>
#include <cstring>
#include <mutex>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

namespace zv::tests {

/// The other end of sway's connection, in a thread of its own: does all that it is told, and keeps it.
class FakeSway {
public:
    FakeSway()
    {
        sockaddr_un address { AF_UNIX, {} };
        socket().copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(m_listening.get(), reinterpret_cast<sockaddr const*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(m_listening.get(), 2), 0);
        m_thread = std::thread([this] { serve(); });
    }
    ~FakeSway()
    {
        ::shutdown(m_listening.get(), SHUT_RDWR);
        m_thread.join();
    }
    [[nodiscard]] std::string socket() const { return m_folder.path("socket"); }
    void setConfiguration(QByteArray const& text)
    {
        std::lock_guard const guard(m_mutex);
        m_configuration = text;
    }
    /// What was run since the last call.
    std::vector<std::string> takeCommands()
    {
        std::lock_guard const guard(m_mutex);
        return std::exchange(m_commands, {});
    }
    /// Tells who has asked for events, in one piece.
    void tell(std::vector<std::pair<std::uint32_t, QByteArray>> const& events)
    {
        QByteArray all;
        for (auto const& [type, text] : events)
            all += message(type, text);
        EXPECT_EQ(::send(m_listener, all.constData(), static_cast<std::size_t>(all.size()), 0), all.size());
    }

private:
    static QByteArray message(std::uint32_t type, QByteArray const& text)
    {
        std::uint32_t const header[] { static_cast<std::uint32_t>(text.size()), type };
        return "i3-ipc" + QByteArray(reinterpret_cast<char const*>(header), sizeof header) + text;
    }
    void serve()
    {
        std::vector<FileDescriptor> clients;
        for (;;) {
            std::vector<pollfd> waiting { { m_listening.get(), POLLIN, 0 } };
            for (auto const& client : clients)
                waiting.push_back({ client.get(), POLLIN, 0 });
            ::poll(waiting.data(), waiting.size(), -1);
            if (waiting[0].revents != 0) {
                auto const client = ::accept(m_listening.get(), nullptr, nullptr);
                if (client < 0)
                    return;
                clients.emplace_back(client);
            }
            for (std::size_t i = 1; i < waiting.size(); ++i) {
                if (waiting[i].revents != 0 && !answer(waiting[i].fd))
                    clients[i - 1] = FileDescriptor(-1);
            }
        }
    }
    bool answer(int client)
    {
        std::array<char, 14> header {};
        if (::recv(client, header.data(), header.size(), MSG_WAITALL) != static_cast<ssize_t>(header.size()))
            return false;
        std::array<std::uint32_t, 2> numbers {};
        std::memcpy(numbers.data(), header.data() + 6, sizeof numbers);
        QByteArray text(static_cast<qsizetype>(numbers[0]), 0);
        if (!text.isEmpty())
            (void)::recv(client, text.data(), numbers[0], MSG_WAITALL);
        auto const reply = message(numbers[1], answerTo(client, numbers[1], text));
        return ::send(client, reply.constData(), static_cast<std::size_t>(reply.size()), MSG_NOSIGNAL) == reply.size();
    }
    QByteArray answerTo(int client, std::uint32_t type, QByteArray const& text)
    {
        std::lock_guard const guard(m_mutex);
        if (type == 2)
            m_listener = client;
        if (type == 9)
            return R"({"config":")" + m_configuration + R"("})";
        if (type == 100)
            return R"([{"type":"pointer"},{"type":"keyboard","xkb_active_layout_index":0}])";
        if (type == 0)
            m_commands.push_back(text.toStdString());
        return R"([{"success":true}])";
    }

    TemporaryFolder m_folder;
    FileDescriptor m_listening { ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0) };
    std::mutex m_mutex; ///< guards what follows
    QByteArray m_configuration;
    std::vector<std::string> m_commands;
    int m_listener = -1;
    std::thread m_thread;
};

} // namespace zv::tests
