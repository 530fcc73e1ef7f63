#pragma once

#include "platform/linux/posix/XdgDirectories.h"
#include "platform/linux/session/DesktopAccess.h"
#include "platform/program/DesktopFindings.h"

namespace zv {

/// Fills in the findings from the message buses and the installed programs. Blocks a few seconds
/// at most; starts nothing.
void surveyServices(DesktopAccess const& access, XdgDirectories const& directories, DesktopFindings& findings);

} // namespace zv
