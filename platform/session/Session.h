#pragma once

#include "platform/session/ComputerInfo.h"
#include "platform/session/DesktopCommands.h"
#include "platform/session/ScriptRunner.h"
#include "platform/session/SessionEvents.h"
#include "platform/session/ToolRunner.h"
#include "platform/session/Workspace.h"

#include <memory>

namespace zv {

/// The seams on which commands act: the desktop, the session, the machine.
struct Session {
    Workspace& workspace;
    DesktopCommands& desktop;
    ComputerInfo& computer;
    SessionEvents& events;
    ScriptRunner& scripts;
    std::shared_ptr<ToolRunner> tools;
};

} // namespace zv
