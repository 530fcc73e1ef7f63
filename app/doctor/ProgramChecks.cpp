#include "app/doctor/ProgramChecks.h"

#include "base/Translation.h"

#include <utility>

namespace zv {

namespace {

using State = DoctorCheck::State;

DoctorCheck programCheck(RunningProgram const& program)
{
    if (program.isRunning())
        return { tr("Program"), State::ok, tr("Zanthe Vell is running and answers."), {} };
    return { tr("Program"), State::limited, tr("Zanthe Vell is not running, or cannot be asked from this session."), tr("Start it with zanthe-vell.") };
}

DoctorCheck resourcesCheck(Resources const& resources)
{
    for (auto const* name : { "Default Apple Menu", "Library", "DockMenu" }) {
        if (!resources.load(name, "plist"))
            return { tr("Resources"), State::missing, tr("\"%1\" is missing.", std::string(name) + ".plist"), tr("Install Zanthe Vell anew.") };
    }
    return { tr("Resources"), State::ok, tr("The default menu, the library and the Dock menu are there."), {} };
}

DoctorCheck menuCheck(MenuStore const& store)
{
    if (auto const& failure = store.loadFailure())
        return { tr("Menu"), State::limited, tr("The stored menu cannot be read (%1); the default menu stands in.", failure->description()),
            tr("Import a backup; the stored menu is kept aside before it is replaced.") };
    return { tr("Menu"), State::ok, tr("The menu can be read."), {} };
}

/// Tests the nearest existing parent of a folder that does not exist yet.
bool canBeWritten(Url folder, FileSystem const& files)
{
    while (!files.isTaken(folder) && folder != folder.parent())
        folder = folder.parent();
    return files.isWritableDirectory(folder);
}

std::string titleOf(KeptFolder::Holds holds)
{
    if (holds == KeptFolder::Holds::settings)
        return tr("Settings");
    // TRANSLATORS: the folder of the entries under "Zanthe Vell Items"
    return holds == KeptFolder::Holds::items ? tr("Items") : tr("Backups");
}

DoctorCheck folderCheck(KeptFolder const& kept, FileSystem const& files)
{
    auto const path = kept.folder.path();
    if (canBeWritten(kept.folder, files))
        return { titleOf(kept.holds), State::ok, tr("kept in %1", path), {} };
    return { titleOf(kept.holds), State::missing, tr("%1 cannot be written.", path), tr("Make the folder yours, and writable.") };
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
