#pragma once

#include "app/doctor/DoctorCheck.h"
#include "app/model/MenuStore.h"
#include "platform/program/RunningProgram.h"

#include <string>
#include <vector>

namespace zv {

/// A folder that keeps data of the user's.
struct KeptFolder {
    enum class Holds { settings, items, backups };

    Holds holds;
    Url folder;
};

/// The checks that need no display and work on any system: the program, its resources, and the
/// folders of the user's data.
[[nodiscard]] std::vector<DoctorCheck> programChecks(
    RunningProgram const& program, Resources const& resources, FileSystem const& files, MenuStore const& store, std::vector<KeptFolder> const& folders);

} // namespace zv
