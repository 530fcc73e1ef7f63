#pragma once

#include "platform/linux/session/DesktopAccess.h"
#include "platform/session/DesktopCommands.h"
#include "platform/time/Tasks.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

/// Opens system places with the programs installed for them.
class LinuxDesktopCommands : public DesktopCommands {
public:
    /// `releaseFile` is the os-release file.
    LinuxDesktopCommands(DesktopAccess access, std::string releaseFile, Tasks& tasks)
        : m_access(std::move(access))
        , m_releaseFile(std::move(releaseFile))
        , m_tasks(tasks)
    {
    }
    void open(SystemPlace place, std::function<void(PlaceOutcome)> done) override;
    void openTerminal(Url const& folder, std::function<void(PlaceOutcome)> done) override;

    /// The work of open(), in the caller's thread.
    [[nodiscard]] static PlaceOutcome perform(SystemPlace place, DesktopAccess const& access, std::string const& releaseFile);
    /// The work of openTerminal(), likewise.
    [[nodiscard]] static PlaceOutcome openTerminal(Url const& folder, DesktopAccess const& access);
    /// The places among settings, updates and store that no installed program serves.
    [[nodiscard]] static std::vector<SystemPlace> placesWithoutProgram(DesktopAccess const& access);

private:
    DesktopAccess m_access;
    std::string m_releaseFile;
    Tasks& m_tasks;
};

} // namespace zv
