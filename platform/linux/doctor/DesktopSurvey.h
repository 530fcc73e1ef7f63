#pragma once

#include "platform/linux/posix/XdgDirectories.h"
#include "platform/linux/session/DesktopAccess.h"
#include "platform/program/DesktopFindings.h"

namespace zv {

/// Fills in the findings from the message buses and the installed programs. Blocks a few seconds
/// at most; starts nothing.
/// `desktopNames` are the session's own, as application entries use them.
void surveyServices(DesktopAccess const& access, XdgDirectories const& directories, std::vector<std::string> const& desktopNames, DesktopFindings& findings);

} // namespace zv
