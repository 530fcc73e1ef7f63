#pragma once

#include "cli/CommandLine.h"
#include "tests/fakes/FakeSystem.h"

#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace zv {

/// A program that notes its requests.
class FakeRunningProgram : public RunningProgram {
public:
    bool isRunning() const override { return state.ok(); }
    Result<void> showMenu(std::optional<ScreenPoint> at) override { return note(at ? "show " + std::to_string(at->x) + ' ' + std::to_string(at->y) : "show"); }
    Result<void> openSettings() override { return note("settings"); }
    Result<void> quit() override { return note("quit"); }
    Result<void> addFiles(std::vector<Url> const& files) override
    {
        std::string request = "add";
        for (auto const& file : files)
            request += ' ' + file.toString();
        return note(request);
    }
    Result<std::string> hotkeys() override
    {
        if (!state)
            return Failure { state.error() };
        return hotkeysJson;
    }

    Result<void> state; ///< the answer to every request
    std::string hotkeysJson = R"({"registrations":[],"conflicts":[]})";
    std::vector<std::string> asked;

private:
    Result<void> note(std::string request)
    {
        asked.push_back(std::move(request));
        return state;
    }
};

/// The outcome of a command.
struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
    friend bool operator==(Outcome const&, Outcome const&) = default;
    friend std::ostream& operator<<(std::ostream& stream, Outcome const& outcome)
    {
        return stream << outcome.status << "\nout: " << outcome.out << "\nerr: " << outcome.err;
    }
};

/// Runs commands over a machine in memory. Each run acts as a new process: only the machine
/// stays.
struct CommandLineFixture : testing::Test {
    fakes::FakeSystem machine;
    fakes::FakeFileSystem& files = machine.files;
    fakes::FakeResources& resources = machine.resources;
    fakes::FakeUserDefaults& defaults = machine.defaults;
    fakes::FakeTime& time = machine.time;
    FakeRunningProgram program;
    std::vector<DoctorCheck> checks;
    std::optional<std::string> fileToLink;
    std::string input;
    bool isOutputFull = false;
    bool hasDisplay = false;
    std::vector<std::string> presented; ///< by --alert

    Outcome run(std::vector<std::string> arguments)
    {
        std::istringstream in(input);
        std::ostringstream out;
        std::ostringstream err;
        out.setstate(isOutputFull ? std::ios::badbit : std::ios::goodbit);
        Context context({ in, out, err }, *this);
        int const status = runCommandLine(arguments, context);
        return { status, out.str(), err.str() };
    }

    void addFile(std::string const& path, std::string const& content) { files.addFile(path, content); }

private:
    class Context : public CommandContext {
    public:
        Context(Streams streams, CommandLineFixture& machine)
            : CommandContext(streams)
            , m_machine(machine)
        {
        }
        ~Context() override { forgetMenu(); }
        Files const& files() override { return m_system.files; }
        Places const& places() override { return m_system.places; }
        Clock& clock() override { return m_machine.time; }
        RunningProgram& runningProgram() override { return m_machine.program; }
        TurningSystem turningSystem() override
        {
            return { .system = m_system, .looks = { .text = m_text, .icons = m_icons }, .pending = m_pending, .turnUntil = [this](auto const&, auto) {
                        m_machine.time.runTasks();
                    } };
        }
        Url currentFolder() override { return Url::fromPath("/here"); }
        std::optional<std::string> fileToLink() override { return m_machine.fileToLink; }
        SystemKind systemKind() const override { return m_machine.machine.kind; }
        bool present(Alert const& alert) override
        {
            m_machine.presented.push_back(alert.message);
            return m_machine.hasDisplay;
        }
        std::vector<DoctorCheck> doctorChecks() override { return m_machine.checks; }

    private:
        CommandLineFixture& m_machine;
        System m_system = m_machine.machine.system();
        fakes::FakeTextMeasure m_text;
        fakes::FakeIconSource m_icons;
        WorkCount m_pending;
    };
};

} // namespace zv
