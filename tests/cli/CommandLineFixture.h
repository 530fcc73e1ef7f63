#pragma once

#include "cli/CommandLine.h"
#include "tests/fakes/FakeActions.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeTime.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace zv {

/// A program that notes what it is asked.
class FakeRunningProgram : public RunningProgram {
public:
    bool isRunning() const override { return !failure; }
    MaybeFailure<> showMenu(std::optional<ScreenPoint> at) override
    {
        return note(at ? "show " + std::to_string(at->x) + ' ' + std::to_string(at->y) : "show");
    }
    MaybeFailure<> openSettings() override { return note("settings"); }
    MaybeFailure<> quit() override { return note("quit"); }
    MaybeFailure<> addFiles(std::vector<Url> const& files) override
    {
        std::string request = "add";
        for (auto const& file : files)
            request += ' ' + file.toString();
        return note(request);
    }
    Result<std::string> hotkeys() override
    {
        if (failure)
            return Failure { *failure };
        return hotkeysJson;
    }

    MaybeFailure<> failure;
    std::string hotkeysJson = R"({"registrations":[],"conflicts":[]})";
    std::vector<std::string> asked;

private:
    MaybeFailure<> note(std::string request)
    {
        asked.push_back(std::move(request));
        return failure;
    }
};

/// What a command left behind.
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

/// Runs commands over a machine in memory. Each run is a process of its own: only the
/// machine stays.
struct CommandLineFixture : testing::Test {
    fakes::FakeFileSystem files;
    fakes::FakeBookmarks bookmarks { files };
    fakes::FakeAliasFiles aliases { files };
    fakes::FakeResources resources;
    fakes::FakeUserDefaults defaults;
    fakes::FakeTime time;
    FakeRunningProgram program;
    std::vector<DoctorCheck> checks;
    std::optional<std::string> fileToLink;
    std::string input;
    MenuSession* menus = nullptr;

    Outcome run(std::vector<std::string> arguments)
    {
        std::istringstream in(input);
        std::ostringstream out;
        std::ostringstream err;
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
        UserDefaults& defaults() override { return m_machine.defaults; }
        Resources const& resources() override { return m_machine.resources; }
        FileSystem& files() override { return m_machine.files; }
        Bookmarks& bookmarks() override { return m_machine.bookmarks; }
        Clock const& clock() override { return m_machine.time; }
        RunningProgram& runningProgram() override { return m_machine.program; }
        MenuSession& menuSession() override
        {
            if (!m_machine.menus)
                std::abort(); // the test runs no command that asks for one
            return *m_machine.menus;
        }
        EntryChooser& chooser() override { std::abort(); }
        AliasFiles& aliases() override { return m_machine.aliases; }
        std::string const& homePath() override { return m_home; }
        Url backupsFolder() override { return Url::fromPath("/data/Backups"); }
        Url itemsFolder() override { return Url::fromPath("/data/Items"); }
        Url currentFolder() override { return Url::fromPath("/here"); }
        std::optional<std::string> fileToLink() override { return m_machine.fileToLink; }
        std::vector<DoctorCheck> doctorChecks() override { return m_machine.checks; }

    private:
        CommandLineFixture& m_machine;
        std::string m_home = "/home/ada";
    };
};

} // namespace zv
