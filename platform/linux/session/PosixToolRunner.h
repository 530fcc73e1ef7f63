#pragma once

#include "platform/program/Environment.h"
#include "platform/session/ToolRunner.h"

#include <utility>

namespace zv {

/// Tools as child processes, each in a process group of its own, so that the watchdog
/// ends what they started too.
class PosixToolRunner : public ToolRunner {
public:
    /// Of the tools.
    explicit PosixToolRunner(Environment environment)
        : m_environment(std::move(environment))
    {
    }
    ToolResult run(ToolRequest const& request) override;

private:
    Environment m_environment;
};

} // namespace zv
