#pragma once

#include "platform/DesktopFindings.h"
#include "platform/linux/DesktopAccess.h"

namespace zv {

/// Fills in what the message buses and the installed programs tell. Blocks, a few seconds
/// at most; starts nothing.
void surveyServices(DesktopAccess const& access, XdgDirectories const& directories, DesktopFindings& findings);

} // namespace zv
