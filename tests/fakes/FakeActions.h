#pragma once

#include "platform/files/AliasFiles.h"
#include "platform/session/ComputerInfo.h"
#include "platform/session/DesktopCommands.h"
#include "platform/session/ScriptRunner.h"
#include "platform/session/SessionEvents.h"
#include "platform/session/ToolRunner.h"
#include "tests/fakes/FakeFiles.h"
#include "tests/fakes/FakeTime.h"

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zv::fakes {

/// Answers each command line as the test says; an unknown tool cannot be started.
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

class FakeSessionEvents : public SessionEvents, AnswersLater {
public:
    using AnswersLater::AnswersLater;
    void send(SessionEvent event, std::chrono::seconds /*timeout*/, std::function<void(SessionEventOutcome)> done) override
    {
        sent.push_back(nameOf(event));
        auto const found = outcomes.find(nameOf(event));
        answer(std::move(done), found == outcomes.end() ? SessionEventOutcome {} : found->second);
    }

    std::map<std::string, SessionEventOutcome> outcomes; ///< by the event's name; others are sent
    std::vector<std::string> sent;

private:
    static std::string nameOf(SessionEvent event)
    {
        static constexpr char const* names[] { "sleep", "ask to restart", "ask to shut down", "ask to log out", "restart", "shut down", "log out" };
        return names[static_cast<std::size_t>(event)];
    }
};

class FakeScriptRunner : public ScriptRunner, AnswersLater {
public:
    using AnswersLater::AnswersLater;
    void run(Script const& script, std::function<void(ScriptOutcome)> done) override
    {
        scripts.push_back(script);
        answer(std::move(done), script.userWasTold ? whenTold : outcome);
    }
    ScriptOutcome outcome; ///< of scripts whose user was not told
    ScriptOutcome whenTold;
    std::vector<Script> scripts;
};

class FakeDesktopCommands : public DesktopCommands, AnswersLater {
public:
    using AnswersLater::AnswersLater;
    void open(SystemPlace place, std::function<void(PlaceOutcome)> done) override
    {
        opened.push_back(place);
        answer(std::move(done), outcome);
    }
    void openTerminal(Url const& folder, std::function<void(PlaceOutcome)> done) override
    {
        terminals.push_back(folder.path());
        answer(std::move(done), outcome);
    }
    std::vector<std::string> terminals;
    PlaceOutcome outcome = PlaceOutcome::hasFixedTarget;
    std::vector<SystemPlace> opened;
};

class FakeComputerInfo : public ComputerInfo, AnswersLater {
public:
    using AnswersLater::AnswersLater;
    void gather(std::function<void(ComputerFacts)> done) override { answer(std::move(done), facts); }
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
    std::function<void(Url const& place)> beforeCreating; ///< lets another program be quicker

private:
    FakeFileSystem& m_files;
};

} // namespace zv::fakes
