#pragma once

#include "platform/linux/bus/BusConnection.h"
#include "tests/linux/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>
#include <utility>
#include <vector>

extern char** environ;

namespace zv::tests {

/// A silent child process that ends with its owner, by its own number.
class ChildProcess {
public:
    ChildProcess(std::vector<std::string> command, std::vector<std::string> const& environment = {})
    {
        std::vector<std::string> variables = environment;
        for (char** variable = environ; *variable; ++variable)
            variables.emplace_back(*variable);
        auto const pointers = [](std::vector<std::string>& texts) {
            std::vector<char*> list;
            for (auto& text : texts)
                list.push_back(text.data());
            list.push_back(nullptr);
            return list;
        };
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        for (int const descriptor : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO })
            ::posix_spawn_file_actions_addopen(&actions, descriptor, "/dev/null", O_RDWR, 0);
        if (::posix_spawn(&m_pid, command[0].c_str(), &actions, nullptr, pointers(command).data(), pointers(variables).data()) != 0)
            m_pid = 0;
        ::posix_spawn_file_actions_destroy(&actions);
    }
    ~ChildProcess()
    {
        if (m_pid == 0)
            return;
        ::kill(m_pid, SIGTERM);
        ::waitpid(m_pid, nullptr, 0);
    }
    ChildProcess(ChildProcess const&) = delete;
    ChildProcess& operator=(ChildProcess const&) = delete;

private:
    pid_t m_pid = 0;
};

/// Waits until `isTrue`, at most ten seconds.
template <class Condition> bool eventually(Condition isTrue)
{
    for (int i = 0; i < 1000 && !isTrue(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return isTrue();
}

/// A message bus of the test's own, which can start no service.
class PrivateBus {
public:
    PrivateBus()
        : m_configuration(writeConfiguration())
        , m_daemon({ "/usr/bin/dbus-daemon", "--nofork", "--nopidfile", "--config-file=" + m_configuration })
    {
        eventually([&] { return BusConnection::open(address(), Deadline(std::chrono::seconds(5))).has_value(); });
    }
    [[nodiscard]] std::string address() const { return "unix:path=" + m_folder.path("socket"); }

private:
    std::string writeConfiguration()
    {
        return m_folder.write("bus.conf",
            "<busconfig><type>session</type><listen>" + address()
                + "</listen><policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
                  "<allow own=\"*\"/></policy></busconfig>");
    }

    TemporaryFolder m_folder;
    std::string m_configuration;
    ChildProcess m_daemon;
};

/// A mocked service on a private bus; its methods are Python texts.
class MockService {
public:
    MockService(PrivateBus const& bus, std::string service, std::string path, std::string interface)
        : m_service(std::move(service))
        , m_path(std::move(path))
        , m_interface(std::move(interface))
        , m_connection(BusConnection::open(bus.address(), Deadline(std::chrono::seconds(5))))
        , m_process({ "/usr/bin/python3", "-m", "dbusmock", "--session", m_service, m_path, m_interface }, { "DBUS_SESSION_BUS_ADDRESS=" + bus.address() })
    {
        eventually([&] { return m_connection->hasOwner(m_service.c_str(), deadline()); });
    }

    /// Adds or replaces a method; "" does nothing, "ret = 'yes'" answers.
    void method(char const* name, char const* in, char const* out, char const* code)
    {
        auto const reply = m_connection->call(mock(), "AddMethod", g_variant_new("(sssss)", m_interface.c_str(), name, in, out, code), deadline());
        ASSERT_TRUE(reply.ok()) << reply.error().message;
    }

    /// Sends a signal; `values` is a tuple of what it carries, of the D-Bus types in `types`.
    void emitSignal(char const* name, char const* types, char const* values)
    {
        GVariantRef const tuple(g_variant_parse(nullptr, values, nullptr, nullptr, nullptr));
        ASSERT_TRUE(tuple);
        GVariantBuilder boxed;
        g_variant_builder_init(&boxed, G_VARIANT_TYPE("av"));
        for (gsize i = 0; i < g_variant_n_children(tuple.get()); ++i)
            g_variant_builder_add(&boxed, "v", GVariantRef(g_variant_get_child_value(tuple.get(), i)).get());
        auto const reply = m_connection->call(mock(), "EmitSignal", g_variant_new("(sssav)", m_interface.c_str(), name, types, &boxed), deadline());
        ASSERT_TRUE(reply.ok()) << reply.error().message;
    }

    /// The calls since the last look, such as "Suspend true".
    std::vector<std::string> calls()
    {
        std::vector<std::string> lines;
        auto const reply = m_connection->call(mock(), "GetCalls", nullptr, deadline(), "(a(tsav))");
        if (!reply)
            return { reply.error().message };
        GVariantRef const list(g_variant_get_child_value(reply->get(), 0));
        for (gsize i = 0; i < g_variant_n_children(list.get()); ++i) {
            GVariantRef const call(g_variant_get_child_value(list.get(), i));
            GVariantRef const name(g_variant_get_child_value(call.get(), 1));
            GVariantRef const arguments(g_variant_get_child_value(call.get(), 2));
            std::string line = g_variant_get_string(name.get(), nullptr);
            for (gsize j = 0; j < g_variant_n_children(arguments.get()); ++j) {
                GVariantRef const boxed(g_variant_get_child_value(arguments.get(), j));
                GVariantRef const value(g_variant_get_variant(boxed.get()));
                line += std::string(" ") + GString8(g_variant_print(value.get(), FALSE)).get();
            }
            lines.push_back(line);
        }
        if (!lines.empty()) // a call between looking and clearing would be lost
            (void)m_connection->call(mock(), "ClearCalls", nullptr, deadline());
        return lines;
    }

private:
    [[nodiscard]] BusObject mock() const { return { m_service.c_str(), m_path.c_str(), "org.freedesktop.DBus.Mock" }; }
    [[nodiscard]] static Deadline deadline() { return Deadline(std::chrono::seconds(10)); }

    std::string m_service;
    std::string m_path;
    std::string m_interface;
    std::optional<BusConnection> m_connection;
    ChildProcess m_process;
};

} // namespace zv::tests
