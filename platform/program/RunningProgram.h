#pragma once

#include "base/Result.h"
#include "base/Url.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The program that runs for this user, asked from a command line. To show something, it is
/// started where the system knows how. The failures are sentences for standard error; one of
/// them says that the program does not run.
///
/// To add a request:
/// 1. Here: its method, and its handler in ProgramHandlers, which each front end fills in.
/// 2. Over the session bus: BusRunningProgram asks; BusProgramServer has it in its introspection and in its
///    table of methods.
/// 3. Over a message port: a kind of ProgramMessage with its name and what it carries, and its case in
///    answerTo(); PortRunningProgram asks.
/// 4. FakeRunningProgram, and a line in PortRunningProgramTest: what is asked arrives.
/// Then a command asks it (cli/CommandLine.cpp says what that takes).
class RunningProgram {
public:
    struct ScreenPoint {
        double x = 0;
        double y = 0;
    };

    /// The sentences of the failures.
    struct Texts {
        std::string noConnection; ///< without a way to reach the program
        std::string notRunning;
        std::function<std::string(std::string const& reason)> refused;
    };

    virtual ~RunningProgram() = default;
    [[nodiscard]] virtual bool isRunning() const = 0;
    /// Opens the menu; without a point, where a click on its icon opens it.
    [[nodiscard]] virtual Result<void> showMenu(std::optional<ScreenPoint> at) = 0;
    [[nodiscard]] virtual Result<void> openSettings() = 0;
    [[nodiscard]] virtual Result<void> quit() = 0;
    /// Has the program put files into the Items folder; it tells the user of failures.
    [[nodiscard]] virtual Result<void> addFiles(std::vector<Url> const& files) = 0;
    /// Registrations and conflicts in the form that `hotkeys --json` prints.
    [[nodiscard]] virtual Result<std::string> hotkeys() = 0;
};

/// The running program's handlers of requests. Main thread only.
struct ProgramHandlers {
    std::function<void(std::optional<RunningProgram::ScreenPoint>)> showMenu;
    std::function<void()> openSettings;
    std::function<void()> quit;
    std::function<Result<void>(std::vector<Url>)> addFiles; ///< URLs that are not files are ignored
    std::function<std::string()> hotkeys; ///< on Linux called on any thread
    std::function<std::string()> findings; ///< of the system's own survey, where the program knows more than a command
    /// Takes the right to come to the front that the caller had; empty where it needs none.
    std::function<void(std::string)> takeActivationToken {};
    std::function<Result<void>()> canShowMenu {}; ///< empty where it always can
};

} // namespace zv
