#pragma once

#include "platform/session/ToolRunner.h"

namespace zv {

/// Tools as child processes, each in a process group of its own, so that the watchdog
/// ends what they started too.
class PosixToolRunner : public ToolRunner {
public:
    ToolResult run(ToolRequest const& request) override;
};

} // namespace zv
