#pragma once

#include "app/doctor/DoctorCheck.h"
#include "app/model/MenuBackups.h"
#include "app/model/MenuStore.h"
#include "app/model/Preferences.h"
#include "cli/CommandMenu.h"
#include "platform/System.h"
#include "platform/desk/Alerts.h"
#include "platform/program/RunningProgram.h"

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The services of commands, made on first use, so that `--help` starts quickly and a command that
/// only reads makes nothing else.
class CommandContext {
public:
    struct Streams {
        std::istream& in;
        std::ostream& out;
        std::ostream& err;
    };

    explicit CommandContext(Streams streams);
    virtual ~CommandContext();
    CommandContext(CommandContext const&) = delete;
    CommandContext& operator=(CommandContext const&) = delete;

    [[nodiscard]] std::istream& in() { return m_streams.in; }
    [[nodiscard]] std::ostream& out() { return m_streams.out; }
    [[nodiscard]] std::ostream& err() { return m_streams.err; }

    /// The stored files and settings; a command that needs no more makes nothing else.
    [[nodiscard]] virtual Files const& files() = 0;
    [[nodiscard]] virtual Places const& places() = 0;
    [[nodiscard]] virtual Clock& clock() = 0;
    [[nodiscard]] virtual RunningProgram& runningProgram() = 0;
    [[nodiscard]] virtual TurningSystem turningSystem() = 0;
    /// The base of relative paths among the arguments.
    [[nodiscard]] virtual Url currentFolder() = 0;
    /// The program's file, if it is not installed as a command: --help tells how to make it one.
    [[nodiscard]] virtual std::optional<std::string> fileToLink() { return std::nullopt; }
    /// The system whose words apply.
    [[nodiscard]] virtual SystemKind systemKind() const = 0;
    /// Shows the alert in a window of its own; false where there is no display.
    [[nodiscard]] virtual bool present(Alert const&) { return false; }
    /// Finds out now what works on this desktop and what does not.
    [[nodiscard]] virtual std::vector<DoctorCheck> doctorChecks() = 0;

    [[nodiscard]] LocationServices locations();
    [[nodiscard]] Preferences& preferences();
    /// The loaded menu, with backups.
    [[nodiscard]] MenuStore& store();
    /// The menus without a display, and their actions.
    [[nodiscard]] CommandMenu& menu();

protected:
    /// Call when the system that the menus use ends.
    void forgetMenu() { m_menu.reset(); }

private:
    Streams m_streams;
    std::unique_ptr<Preferences> m_preferences;
    std::unique_ptr<MenuBackups> m_backups;
    std::unique_ptr<MenuStore> m_store;
    std::unique_ptr<CommandMenu> m_menu;
};

} // namespace zv
