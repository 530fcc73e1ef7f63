#pragma once

#include "platform/program/Environment.h"
#include "platform/session/ToolRunner.h"

#include <utility>

namespace zv {

/// Runs tools as child processes, each in its own process group, so that the watchdog ends their
/// children too.
class PosixToolRunner : public ToolRunner {
public:
    /// The environment of the tools.
    explicit PosixToolRunner(Environment environment)
        : m_environment(std::move(environment))
    {
    }
    ToolResult run(ToolRequest const& request) override;

private:
    Environment m_environment;
};

} // namespace zv
