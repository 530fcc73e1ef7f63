#pragma once

#include "platform/linux/posix/GObjects.h"
#include "platform/linux/posix/XdgDirectories.h"
#include "platform/linux/session/DesktopAccess.h"
#include "platform/session/ScriptRunner.h"

#include <string>
#include <vector>

namespace zv {

/// Where the settings of docks are kept. The default is the user's own store.
struct DockStore {
    std::vector<std::string> schemaFolders; ///< looked through after the system's schemas
    GSettingsBackend* backend = nullptr; ///< null for the user's own; not owned

    /// The user's own, with the schemas that shell extensions bring along.
    [[nodiscard]] static DockStore ofThisMachine(XdgDirectories const& directories);
};

/// Changes the dock that is there: its hiding, its edge, its magnification. Blocks.
[[nodiscard]] ScriptOutcome changeDock(ScriptPurpose purpose, DesktopAccess const& access, DockStore const& store, std::chrono::milliseconds timeout);

} // namespace zv
