#include "platform/linux/session/Programs.h"

#include "base/Split.h"
#include "platform/linux/posix/Spawn.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace zv {

namespace {

using Time = std::chrono::steady_clock;

/// The time within which a program fails that finds no session.
constexpr std::chrono::milliseconds failsWithin { 500 };
constexpr std::chrono::milliseconds checkInterval { 10 };

bool isProgram(std::string const& path)
{
    struct stat information { };
    return ::stat(path.c_str(), &information) == 0 && S_ISREG(information.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

/// Starts in a new session, without our terminal; zero on failure.
pid_t startDetached(std::string const& path, std::vector<std::string> const& command, Environment const& environment)
{
    SpawnPlan plan(SpawnPlan::Group::sessionOfItsOwn);
    for (int const descriptor : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO })
        plan.useNullDevice(descriptor, O_RDWR);
    return plan.start(path, command, environment);
}

/// False when the child fails at once. A child that goes on is waited for elsewhere, so that it
/// leaves no zombie.
bool survivesItsStart(pid_t child)
{
    auto const last = Time::now() + failsWithin;
    int status = 0;
    while (Time::now() < last) {
        if (::waitpid(child, &status, WNOHANG) == child)
            return WIFEXITED(status) && WEXITSTATUS(status) == 0;
        std::this_thread::sleep_for(checkInterval);
    }
    std::thread([child] { ::waitpid(child, nullptr, 0); }).detach();
    return true;
}

} // namespace

PathPrograms::PathPrograms(Environment environment, std::vector<std::string> applicationFolders)
    : m_environment(std::move(environment))
    , m_applicationFolders(std::move(applicationFolders))
{
}

std::string PathPrograms::find(std::string_view name) const
{
    auto const searchPath = valueOf(m_environment, "PATH");
    for (auto const folder : split(searchPath, ':')) {
        auto path = std::string(folder) + "/" + std::string(name);
        if (path.starts_with('/') && isProgram(path))
            return path;
    }
    return {};
}

bool PathPrograms::has(std::string_view name) const { return !find(name).empty(); }

bool PathPrograms::start(std::vector<std::string> const& command)
{
    auto const path = command.empty() ? std::string() : find(command.front());
    if (path.empty())
        return false;
    auto const child = startDetached(path, command, m_environment);
    return child != 0 && survivesItsStart(child);
}

bool PathPrograms::hasEntry(std::string_view fileName) const
{
    return std::ranges::any_of(m_applicationFolders, [&](auto const& folder) { return ::access((folder + "/" + std::string(fileName)).c_str(), R_OK) == 0; });
}

} // namespace zv
