#pragma once

#include "cli/CommandLine.h"
#include "tests/fakes/FakeSystem.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
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
    CommandLineFixture();
    ~CommandLineFixture() override;

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

    Outcome run(std::vector<std::string> arguments);

    void addFile(std::string const& path, std::string const& content) { files.addFile(path, content); }

private:
    class Context;
};

} // namespace zv
