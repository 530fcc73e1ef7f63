#include "platform/linux/session/PosixToolRunner.h"

#include "platform/linux/posix/Spawn.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <thread>

namespace zv {

namespace {

using Time = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds grace { 1000 }; ///< between the request to end and the kill
constexpr milliseconds exitCheckInterval { 10 };
constexpr std::size_t keptOutput = std::size_t { 64 } << 20; ///< further output of a tool is read and dropped

/// A pipe whose ends lie above the standard descriptors, so that none is overwritten on its way into the child.
struct Pipe {
    FileDescriptor readEnd;
    FileDescriptor writeEnd;

    static Pipe make()
    {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0)
            return { FileDescriptor(), FileDescriptor() };
        FileDescriptor const low[2] { FileDescriptor(ends[0]), FileDescriptor(ends[1]) };
        return { FileDescriptor(::fcntl(ends[0], F_DUPFD_CLOEXEC, 3)), FileDescriptor(::fcntl(ends[1], F_DUPFD_CLOEXEC, 3)) };
    }
    explicit operator bool() const { return readEnd.isOpen() && writeEnd.isOpen(); }
};

/// A started tool until it has ended and its output is read.
class RunningTool {
public:
    RunningTool(pid_t child, FileDescriptor output, FileDescriptor errors, std::optional<milliseconds> timeout)
        : m_child(child)
        , m_streams { Stream { std::move(output), {} }, Stream { std::move(errors), {} } }
    {
        if (timeout)
            m_deadline = Time::now() + *timeout;
    }

    ToolResult finish()
    {
        while (isOpen() && wait()) { }
        while (m_deadline && !hasExited() && !isLate())
            std::this_thread::sleep_for(exitCheckInterval);
        if (m_deadline && (isOpen() || !hasExited()))
            end();
        return reap();
    }

private:
    struct Stream {
        FileDescriptor descriptor;
        std::string text;

        /// Reads once; closes the descriptor at the end of the stream.
        void readSome()
        {
            std::array<char, 65536> buffer; // not thread_local, which every thread of the program would have
            auto const count = ::read(descriptor.get(), buffer.data(), buffer.size());
            if (count > 0)
                text.append(buffer.data(), std::min(static_cast<std::size_t>(count), keptOutput - std::min(keptOutput, text.size())));
            else if (count == 0 || errno != EINTR)
                descriptor = FileDescriptor();
        }
    };

    [[nodiscard]] bool isOpen() const { return m_streams[0].descriptor.isOpen() || m_streams[1].descriptor.isOpen(); }
    [[nodiscard]] bool isLate() const { return m_deadline && Time::now() >= *m_deadline; }

    /// Reads from whichever stream has data, so that neither ever blocks the tool. False at the deadline.
    bool wait()
    {
        // A closed stream's descriptor is negative, which poll() passes over.
        std::array<pollfd, 2> polled { pollfd { m_streams[0].descriptor.get(), POLLIN, 0 }, pollfd { m_streams[1].descriptor.get(), POLLIN, 0 } };
        ::poll(polled.data(), polled.size(), millisecondsLeft());
        for (std::size_t i = 0; i < polled.size(); ++i) {
            if (polled[i].revents != 0)
                m_streams[i].readSome();
        }
        return !isLate();
    }

    [[nodiscard]] int millisecondsLeft() const
    {
        if (!m_deadline)
            return -1;
        auto const left = std::chrono::ceil<milliseconds>(*m_deadline - Time::now()).count();
        return static_cast<int>(std::clamp<std::int64_t>(left, 0, 60'000));
    }

    /// Whether the tool has ended. It stays a zombie, so that its process group keeps its number.
    [[nodiscard]] bool hasExited() const
    {
        siginfo_t info {};
        return ::waitid(P_PID, static_cast<id_t>(m_child), &info, WEXITED | WNOHANG | WNOWAIT) != 0 || info.si_pid != 0;
    }

    /// The watchdog: asks the whole group to end, then kills it.
    void end()
    {
        m_wasEndedByWatchdog = !hasExited();
        ::kill(-m_child, SIGTERM);
        auto const last = Time::now() + grace;
        while (!hasExited() && Time::now() < last)
            std::this_thread::sleep_for(exitCheckInterval);
        ::kill(-m_child, SIGKILL);
    }

    ToolResult reap()
    {
        int status = 0;
        while (::waitpid(m_child, &status, 0) < 0) {
            if (errno != EINTR)
                return {};
        }
        // A tool that answered the watchdog's signal by exiting counts as ended by it.
        bool const wasEnded = m_wasEndedByWatchdog || !WIFEXITED(status);
        ToolResult result;
        result.end = wasEnded ? ToolResult::End::signalled : ToolResult::End::exited;
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status);
        result.output = std::move(m_streams[0].text);
        result.errorOutput = std::move(m_streams[1].text);
        return result;
    }

    pid_t m_child;
    std::array<Stream, 2> m_streams;
    std::optional<Time::time_point> m_deadline;
    bool m_wasEndedByWatchdog = false;
};

} // namespace

ToolResult PosixToolRunner::run(ToolRequest const& request)
{
    auto output = Pipe::make();
    auto errors = Pipe::make();
    if (!output || !errors)
        return {};
    SpawnPlan plan(SpawnPlan::Group::ofItsOwn);
    plan.useNullDevice(STDIN_FILENO, O_RDONLY);
    if (request.output == ToolOutput::discarded)
        plan.useNullDevice(STDOUT_FILENO, O_WRONLY);
    else
        plan.use(STDOUT_FILENO, output.writeEnd);
    plan.use(STDERR_FILENO, request.output == ToolOutput::capturedWithErrors ? output.writeEnd : errors.writeEnd);
    auto command = request.arguments;
    command.insert(command.begin(), request.path);
    auto const child = plan.start(request.path, command, m_environment);
    output.writeEnd = FileDescriptor();
    errors.writeEnd = FileDescriptor();
    if (child == 0)
        return {};
    return RunningTool(child, std::move(output.readEnd), std::move(errors.readEnd), request.timeout).finish();
}

} // namespace zv
