#include "platform/linux/session/Programs.h"

#include "base/Split.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <thread>

extern char** environ;

namespace zv {

namespace {

using Time = std::chrono::steady_clock;

/// A program that is going to say "there is no session" does so within this.
constexpr std::chrono::milliseconds failsWithin { 500 };
constexpr std::chrono::milliseconds checkInterval { 10 };

std::vector<std::string> splitPath(std::string_view text)
{
    std::vector<std::string> folders;
    for (auto const folder : split(text, ':')) {
        if (folder.starts_with('/'))
            folders.emplace_back(folder);
    }
    return folders;
}

bool isProgram(std::string const& path)
{
    struct stat information { };
    return ::stat(path.c_str(), &information) == 0 && S_ISREG(information.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

/// In a session of its own, without our terminal and open files; zero when it could not be started.
pid_t spawnDetached(std::string const& path, std::vector<std::string> const& command)
{
    std::vector<char*> arguments;
    for (auto const& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    sigset_t none;
    sigset_t all;
    ::sigemptyset(&none);
    ::sigfillset(&all);
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawnattr_init(&attributes);
    for (int const descriptor : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO })
        ::posix_spawn_file_actions_addopen(&actions, descriptor, "/dev/null", O_RDWR, 0);
    ::posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setsigdefault(&attributes, &all);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    pid_t child = 0;
    bool const started = ::posix_spawn(&child, path.c_str(), &actions, &attributes, arguments.data(), environ) == 0;
    ::posix_spawn_file_actions_destroy(&actions);
    ::posix_spawnattr_destroy(&attributes);
    return started ? child : 0;
}

/// False when it ended with a failure within the first moments. One that goes on is
/// waited for elsewhere, so that nothing of it stays behind when it ends.
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

PathPrograms::PathPrograms(std::string_view searchPath, std::string_view dataFolders)
    : m_folders(splitPath(searchPath))
    , m_dataFolders(splitPath(dataFolders))
{
}

std::string PathPrograms::find(std::string_view name) const
{
    for (auto const& folder : m_folders) {
        auto path = folder + "/" + std::string(name);
        if (isProgram(path))
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
    auto const child = spawnDetached(path, command);
    return child != 0 && survivesItsStart(child);
}

bool PathPrograms::hasEntry(std::string_view fileName) const
{
    return std::ranges::any_of(
        m_dataFolders, [&](auto const& folder) { return ::access((folder + "/applications/" + std::string(fileName)).c_str(), R_OK) == 0; });
}

} // namespace zv
