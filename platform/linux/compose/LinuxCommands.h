#pragma once

#include "cli/CommandContext.h"
#include "platform/linux/bus/BusRunningProgram.h"
#include "platform/linux/compose/LinuxFiles.h"

#include <memory>
#include <optional>
#include <vector>

namespace zv {

/// The command line's access to this machine, without a display. Costly parts are made when the
/// first command asks for them.
class LinuxCommands : public CommandContext {
public:
    LinuxCommands(Streams streams, Environment environment);
    ~LinuxCommands() override;

    Files const& files() override;
    Places const& places() override { return machine().places(); }
    Clock& clock() override { return machine().clock(); }
    RunningProgram& runningProgram() override;
    TurningSystem turningSystem() override;
    Url currentFolder() override;
    SystemKind systemKind() const override { return SystemKind::linuxDesktop; }
    bool present(Alert const& alert) override;
    std::vector<DoctorCheck> doctorChecks() override;

private:
    struct Turning;

    [[nodiscard]] LinuxFiles& machine();

    Environment m_environment;
    std::optional<LinuxFiles> m_machine;
    std::optional<Files> m_files;
    std::unique_ptr<BusRunningProgram> m_runningProgram;
    std::unique_ptr<Turning> m_turning;
};

} // namespace zv
