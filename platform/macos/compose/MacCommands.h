#pragma once

#include "cli/CommandContext.h"
#include "cli/PortRunningProgram.h"
#include "platform/macos/compose/MacSystem.h"
#include "platform/program/MacFindings.h"

#include <memory>
#include <optional>

namespace zv {

/// The command line over this Mac, without an application object, with which the system
/// would take this process for the running program.
class MacCommands : public CommandContext {
public:
    explicit MacCommands(Streams streams);
    ~MacCommands() override;

    Files const& files() override { return m_stored; }
    Places const& places() override { return m_files.places(); }
    Clock& clock() override { return m_files.clock(); }
    RunningProgram& runningProgram() override { return m_program; }
    TurningSystem turningSystem() override;
    Url currentFolder() override;
    std::optional<std::string> fileToLink() override;
    SystemKind systemKind() const override { return SystemKind::macOS; }
    std::vector<DoctorCheck> doctorChecks() override;

private:
    struct Turning;

    [[nodiscard]] MacFindings findings();

    MacFiles m_files;
    Files m_stored;
    std::unique_ptr<MessagePort> m_port = makeMessagePort();
    PortRunningProgram m_program { *m_port };
    std::unique_ptr<Turning> m_turning;
};

} // namespace zv
