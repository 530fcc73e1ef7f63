#pragma once

#include "platform/linux/posix/GObjects.h"
#include "platform/linux/posix/XdgDirectories.h"
#include "platform/linux/session/DesktopAccess.h"
#include "platform/session/ScriptRunner.h"

#include <string>
#include <vector>

namespace zv {

/// The store of docks' settings. The default is the user's own, without any schema.
struct DockStore {
    GSettingsSchemaSource* systemSchemas = nullptr; ///< searched first; null for none; not owned
    std::vector<std::string> schemaFolders;
    GSettingsBackend* backend = nullptr; ///< null for the user's own; not owned

    /// The user's own store, with the schemas of the system and of shell extensions.
    [[nodiscard]] static DockStore ofThisMachine(XdgDirectories const& directories);
};

/// Changes the running dock: its hiding, its edge, its magnification. Blocks.
[[nodiscard]] ScriptOutcome changeDock(ScriptPurpose purpose, DesktopAccess const& access, DockStore const& store, std::chrono::milliseconds timeout);

} // namespace zv
