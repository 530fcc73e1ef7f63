#include "app/doctor/ProgramChecks.h"

#include <utility>

namespace zv {

namespace {

using State = DoctorCheck::State;

DoctorCheck programCheck(RunningProgram const& program)
{
    if (program.isRunning())
        return { "Program", State::ok, "Zanthe Vell is running and answers.", {} };
    return { "Program", State::limited, "Zanthe Vell is not running, or cannot be asked from this session.", "Start it with zanthe-vell." };
}

DoctorCheck resourcesCheck(Resources const& resources)
{
    for (auto const* name : { "Default Apple Menu", "Library", "DockMenu" }) {
        if (!resources.load(name, "plist"))
            return { "Resources", State::missing, "\"" + std::string(name) + ".plist\" is missing.", "Install Zanthe Vell anew." };
    }
    return { "Resources", State::ok, "The default menu, the library and the Dock menu are there.", {} };
}

DoctorCheck menuCheck(MenuStore const& store)
{
    if (auto const& failure = store.loadFailure())
        return { "Menu", State::limited, "The stored menu cannot be read (" + failure->description() + "); the default menu stands in.",
            "Import a backup; the stored menu is kept aside before it is replaced." };
    return { "Menu", State::ok, "The menu can be read.", {} };
}

/// Tests the nearest existing parent of a folder that does not exist yet.
bool canBeWritten(Url folder, FileSystem const& files)
{
    while (!files.isTaken(folder) && folder != folder.parent())
        folder = folder.parent();
    return files.isWritableDirectory(folder);
}

DoctorCheck folderCheck(KeptFolder const& kept, FileSystem const& files)
{
    auto const path = kept.folder.path();
    if (canBeWritten(kept.folder, files))
        return { kept.name, State::ok, "kept in " + path, {} };
    return { kept.name, State::missing, path + " cannot be written.", "Make the folder yours, and writable." };
}

} // namespace

std::vector<DoctorCheck> programChecks(
    RunningProgram const& program, Resources const& resources, FileSystem const& files, MenuStore const& store, std::vector<KeptFolder> const& folders)
{
    std::vector<DoctorCheck> checks { programCheck(program), resourcesCheck(resources), menuCheck(store) };
    for (auto const& kept : folders)
        checks.push_back(folderCheck(kept, files));
    return checks;
}

} // namespace zv
