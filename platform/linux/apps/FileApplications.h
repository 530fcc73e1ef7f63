#pragma once

#include "base/Result.h"
#include "base/Url.h"
#include "platform/lists/InstalledApplications.h"
#include "platform/session/Workspace.h"

#include <string>
#include <vector>

/// What the desktop does with a file beside opening it. The functions block, and never run on the
/// main thread.
namespace zv {

/// The applications for the file's type, the default one first, each once.
[[nodiscard]] std::vector<InstalledApplication> applicationsFor(Url const& file);
/// Starts the application, by its entry, with the file. `sessionBus` is an address; empty where there is no bus.
[[nodiscard]] Result<void> openFileWith(Url const& file, Url const& application, std::string const& sessionBus);
[[nodiscard]] Result<void> moveToTrash(Url const& file);
/// A move to another disk copies first, and removes the file only once that has succeeded.
[[nodiscard]] Result<void> transferFile(Url const& file, Url const& place, FileTransfer how);

} // namespace zv
