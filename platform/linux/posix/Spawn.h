#pragma once

#include "platform/linux/posix/FileDescriptor.h"
#include "platform/program/Environment.h"

#include <spawn.h>
#include <string>
#include <vector>

namespace zv {

/// The start of a child process: with default signals, and only the given ones of our
/// descriptors.
class SpawnPlan {
public:
    enum class Group { ofItsOwn, sessionOfItsOwn };

    explicit SpawnPlan(Group group);
    ~SpawnPlan();
    SpawnPlan(SpawnPlan const&) = delete;
    SpawnPlan& operator=(SpawnPlan const&) = delete;

    void useNullDevice(int descriptor, int flags);
    void use(int descriptor, FileDescriptor const& source);
    /// Starts the program; `command` is the child's name and its arguments. Zero on failure.
    [[nodiscard]] pid_t start(std::string const& path, std::vector<std::string> const& command, Environment const& environment);

private:
    posix_spawn_file_actions_t m_actions {};
    posix_spawnattr_t m_attributes {};
};

} // namespace zv
