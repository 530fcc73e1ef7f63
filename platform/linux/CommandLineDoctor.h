#pragma once

#include "app/model/MenuStore.h"
#include "app/shell/DoctorCheck.h"
#include "platform/RunningProgram.h"
#include "platform/linux/XdgDirectories.h"

#include <vector>

namespace zv {

/// What can be found out without a display: the program, its resources, and the places
/// where it keeps what is the user's.
[[nodiscard]] std::vector<DoctorCheck> filesAndProgramChecks(
    RunningProgram& program, Resources const& resources, FileSystem const& files, MenuStore const& store, XdgDirectories const& directories);

} // namespace zv
