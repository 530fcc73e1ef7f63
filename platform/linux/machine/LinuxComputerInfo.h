#pragma once

#include "platform/session/ComputerInfo.h"
#include "platform/time/Tasks.h"

namespace zv {

/// The computer's facts, from the files in which the system describes the machine.
class LinuxComputerInfo : public ComputerInfo {
public:
    /// `root` is "/", or a tree of such files.
    LinuxComputerInfo(std::string root, Tasks& tasks)
        : m_root(std::move(root))
        , m_tasks(tasks)
    {
    }
    void gather(std::function<void(ComputerFacts)> done) override;

    /// The work of gather(), in the caller's thread.
    [[nodiscard]] static ComputerFacts read(std::string const& root);

private:
    std::string m_root;
    Tasks& m_tasks;
};

} // namespace zv
