#pragma once

#include "app/doctor/DoctorCheck.h"
#include "app/model/MenuBackups.h"
#include "app/model/MenuStore.h"
#include "app/model/Preferences.h"
#include "cli/CommandMenu.h"
#include "platform/System.h"
#include "platform/program/RunningProgram.h"

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// What commands need, made when the first of them asks, so that `--help` starts as
/// quickly as it can and a command that only reads never makes anything else.
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

    /// What is stored, and where; nothing else is made for a command that asks for no more.
    [[nodiscard]] virtual Files const& files() = 0;
    [[nodiscard]] virtual Places const& places() = 0;
    [[nodiscard]] virtual Clock& clock() = 0;
    [[nodiscard]] virtual RunningProgram& runningProgram() = 0;
    [[nodiscard]] virtual TurningSystem turningSystem() = 0;
    /// What relative paths among the arguments start from.
    [[nodiscard]] virtual Url currentFolder() = 0;
    /// The program's file, where it does not lie among the commands by itself: --help tells
    /// how to make it one.
    [[nodiscard]] virtual std::optional<std::string> fileToLink() { return std::nullopt; }
    /// What works on this desktop and what does not, found out now.
    [[nodiscard]] virtual std::vector<DoctorCheck> doctorChecks() = 0;

    [[nodiscard]] LocationServices locations();
    [[nodiscard]] Preferences& preferences();
    /// Loaded, and keeping backups.
    [[nodiscard]] MenuStore& store();
    /// Menus over all this, without a display, and what their entries do.
    [[nodiscard]] CommandMenu& menu();

protected:
    /// For the end of the system that the menus are over.
    void forgetMenu() { m_menu.reset(); }

private:
    Streams m_streams;
    std::unique_ptr<Preferences> m_preferences;
    std::unique_ptr<MenuBackups> m_backups;
    std::unique_ptr<MenuStore> m_store;
    std::unique_ptr<CommandMenu> m_menu;
};

} // namespace zv
