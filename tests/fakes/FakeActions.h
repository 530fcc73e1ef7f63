#pragma once

#include "platform/files/AliasFiles.h"
#include "platform/session/ComputerInfo.h"
#include "platform/session/DesktopCommands.h"
#include "platform/session/ScriptRunner.h"
#include "platform/session/SessionEvents.h"
#include "platform/session/ToolRunner.h"
#include "tests/fakes/FakeFiles.h"

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zv::fakes {

/// Answers each command line as the test says; a tool that is not there cannot be started.
class FakeToolRunner : public ToolRunner {
public:
    ToolResult run(ToolRequest const& request) override
    {
        std::string line;
        for (auto const& argument : request.arguments)
            line += (line.empty() ? "" : "|") + argument;
        runs.push_back(line);
        requests.push_back(request);
        auto const found = answers.find(line);
        return found == answers.end() ? ToolResult {} : found->second;
    }

    static ToolResult printing(std::string output) { return { ToolResult::End::exited, 0, std::move(output), {} }; }
    static ToolResult failing(int status, std::string errorOutput) { return { ToolResult::End::exited, status, {}, std::move(errorOutput) }; }

    std::map<std::string, ToolResult> answers; ///< by the arguments, joined by "|"
    std::vector<std::string> runs;
    std::vector<ToolRequest> requests;
};

class FakeSessionEvents : public SessionEvents {
public:
    void send(FourCharCode eventClass, FourCharCode eventID, std::chrono::seconds timeout, std::function<void(SessionEventOutcome)> done) override
    {
        sent.push_back(textOf(eventClass) + "/" + textOf(eventID));
        lastTimeout = timeout;
        auto const found = outcomes.find(textOf(eventID));
        done(found == outcomes.end() ? SessionEventOutcome {} : found->second);
    }

    std::map<std::string, SessionEventOutcome> outcomes; ///< by event identifier; others are sent
    std::vector<std::string> sent;
    std::chrono::seconds lastTimeout {};

private:
    static std::string textOf(FourCharCode code)
    {
        std::string text;
        for (int shift = 24; shift >= 0; shift -= 8)
            text += static_cast<char>(code >> shift & 0xff);
        return text;
    }
};

class FakeScriptRunner : public ScriptRunner {
public:
    void run(Script const& script, std::function<void(ScriptOutcome)> done) override
    {
        scripts.push_back(script);
        done(script.userWasTold ? ScriptOutcome {} : outcome);
    }
    ScriptOutcome outcome; ///< of scripts that were not told about
    std::vector<Script> scripts;
};

class FakeDesktopCommands : public DesktopCommands {
public:
    void open(SystemPlace place, std::function<void(PlaceOutcome)> done) override
    {
        opened.push_back(place);
        done(outcome);
    }
    PlaceOutcome outcome = PlaceOutcome::hasFixedTarget;
    std::vector<SystemPlace> opened;
};

class FakeComputerInfo : public ComputerInfo {
public:
    void gather(std::function<void(ComputerFacts)> done) override { done(facts); }
    ComputerFacts facts;
};

/// Aliases as links of the fake disk.
class FakeAliasFiles : public AliasFiles {
public:
    explicit FakeAliasFiles(FakeFileSystem& files)
        : m_files(files)
    {
    }
    Result<void, AliasFailure> createAlias(Url const& target, Url const& place) override
    {
        if (beforeCreating)
            beforeCreating(place);
        if (!m_files.isTaken(target))
            return Failure { AliasFailure { false, "No such file or directory" } };
        if (m_files.readOnly.contains(place.parent().path()))
            return Failure { AliasFailure { false, "Permission denied" } };
        if (m_files.isTaken(place))
            return Failure { AliasFailure { true, "File exists" } };
        m_files.addLink(place.path(), target.path());
        return {};
    }
    std::function<void(Url const& place)> beforeCreating; ///< lets another one be quicker

private:
    FakeFileSystem& m_files;
};

} // namespace zv::fakes
