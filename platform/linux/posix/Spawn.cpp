#include "platform/linux/posix/Spawn.h"

#include <csignal>

namespace zv {

namespace {

std::vector<char*> pointersTo(std::vector<std::string> const& texts)
{
    std::vector<char*> pointers;
    for (auto const& text : texts)
        pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

SpawnPlan::SpawnPlan(Group group)
{
    sigset_t none;
    sigset_t all;
    ::sigemptyset(&none);
    ::sigfillset(&all);
    ::posix_spawn_file_actions_init(&m_actions);
    ::posix_spawnattr_init(&m_attributes);
    ::posix_spawnattr_setsigmask(&m_attributes, &none);
    ::posix_spawnattr_setsigdefault(&m_attributes, &all);
    ::posix_spawnattr_setpgroup(&m_attributes, 0);
    int const grouping = group == Group::ofItsOwn ? POSIX_SPAWN_SETPGROUP : POSIX_SPAWN_SETSID;
    ::posix_spawnattr_setflags(&m_attributes, static_cast<short>(grouping | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
}

SpawnPlan::~SpawnPlan()
{
    ::posix_spawn_file_actions_destroy(&m_actions);
    ::posix_spawnattr_destroy(&m_attributes);
}

void SpawnPlan::useNullDevice(int descriptor, int flags) { ::posix_spawn_file_actions_addopen(&m_actions, descriptor, "/dev/null", flags, 0); }

void SpawnPlan::use(int descriptor, FileDescriptor const& source) { ::posix_spawn_file_actions_adddup2(&m_actions, source.get(), descriptor); }

pid_t SpawnPlan::start(std::string const& path, std::vector<std::string> const& command, Environment const& environment)
{
    // Descriptors that this program inherited, or that a library left open, are not passed on.
    ::posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1);
    std::vector<std::string> variables;
    for (auto const& [name, value] : environment)
        variables.push_back(name + "=" + value);
    pid_t child = 0;
    bool const isStarted = ::posix_spawn(&child, path.c_str(), &m_actions, &m_attributes, pointersTo(command).data(), pointersTo(variables).data()) == 0;
    return isStarted ? child : 0;
}

} // namespace zv
