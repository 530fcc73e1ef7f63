#pragma once

#include "app/doctor/DoctorCheck.h"
#include "app/model/MenuStore.h"
#include "platform/program/RunningProgram.h"

#include <string>
#include <vector>

namespace zv {

/// A folder where something of the user's is kept.
struct KeptFolder {
    std::string name; ///< of its check: "Backups"
    Url folder;
};

/// What can be found out on any system, without a display: the program, its resources, and
/// the places where it keeps what is the user's.
[[nodiscard]] std::vector<DoctorCheck> programChecks(
    RunningProgram const& program, Resources const& resources, FileSystem const& files, MenuStore const& store, std::vector<KeptFolder> const& folders);

} // namespace zv
