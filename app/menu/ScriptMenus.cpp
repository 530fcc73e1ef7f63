#include "app/menu/ScriptMenus.h"

#include "app/menu/MenuKeyEquivalent.h"
#include "base/MainThread.h"
#include "base/Translation.h"

namespace zv {

namespace {

constexpr std::chrono::seconds timeLimit { 10 };
constexpr std::size_t mostOutput = std::size_t { 1 } << 20;
constexpr char const* shell = "/bin/sh";

ScriptResult resultOf(ToolResult const& ran)
{
    ScriptResult result { parseScriptOutput(std::string_view(ran.output).substr(0, mostOutput)), {} };
    if (ran.end == ToolResult::End::signalled)
        result.problem = tr("The script did not end within 10 seconds.");
    else if (ran.end == ToolResult::End::notStarted)
        result.problem = tr("The script could not be started.");
    else if (ran.status != 0)
        result.problem = tr("The script ended with status %1.", std::to_string(ran.status));
    else if (result.entries.empty())
        result.problem = tr("The script gave no lines.");
    return result;
}

} // namespace

ScriptResult const* ScriptMenus::last(Url const& script) const
{
    auto const known = m_last.find(script);
    return known == m_last.end() ? nullptr : &known->second;
}

void ScriptMenus::run(Url const& script, Done done)
{
    assertMainThread();
    auto const [running, isFirst] = m_running.try_emplace(script);
    if (done)
        running->second.push_back(std::move(done));
    if (!isFirst)
        return;
    auto finish = m_lifetime.guard([this, script](ScriptResult const& result) { finished(script, result); });
    m_services.tasks.runDetached([tools = m_services.tools, path = script.path(), finish]() -> std::function<void()> {
        auto result = resultOf(tools->run({ shell, { path }, ToolOutput::captured, timeLimit }));
        return [finish, result = std::move(result)]() mutable { finish(result); };
    });
}

void ScriptMenus::finished(Url const& script, ScriptResult result)
{
    auto const waiting = m_running.extract(script);
    auto const* known = last(script);
    if (known && *known == result)
        return;
    auto const& kept = m_last.insert_or_assign(script, std::move(result)).first->second;
    for (auto const& done : waiting.mapped())
        done(kept);
}

std::vector<MenuEntry> ScriptMenus::entriesFor(Url const& script, ScriptResult const& result, OptionKey option)
{
    auto entries = entriesFor(script, result.entries, option);
    if (!result.problem.empty()) {
        if (!entries.empty())
            entries.push_back(MenuEntry::separator());
        entries.push_back(MenuEntry::disabled(result.problem));
    }
    return entries;
}

std::vector<MenuEntry> ScriptMenus::entriesFor(Url const& script, std::vector<ScriptEntry> const& lines, OptionKey option)
{
    std::vector<MenuEntry> entries;
    for (auto const& line : lines) {
        if (line.isAlternate && option != OptionKey::held)
            continue;
        auto entry = entryFor(script, line, option);
        if (line.isAlternate && !entries.empty())
            entries.back() = std::move(entry);
        else
            entries.push_back(std::move(entry));
    }
    return entries;
}

MenuEntry ScriptMenus::entryFor(Url const& script, ScriptEntry const& line, OptionKey option)
{
    if (line.isSeparator)
        return MenuEntry::separator();
    auto entry = MenuEntry::disabled(line.title);
    entry.color = line.color;
    if (line.children.empty() && !line.acts())
        return entry;
    entry.enabled = true;
    if (!line.children.empty()) {
        entry.submenu = std::make_shared<Menu>(line.title);
        entry.submenu->entries = entriesFor(script, line.children, option);
        return entry;
    }
    entry.target = std::make_shared<MenuActionTarget>(m_lifetime.guard([this, script, line] { perform(script, line); }));
    entry.representedObject = entry.target;
    if (line.key)
        applyKeyEquivalent(*line.key, entry);
    return entry;
}

void ScriptMenus::perform(Url const& script, ScriptEntry const& line)
{
    if (auto const url = Url::parse(line.href))
        m_services.workspace.open(*url);
    if (!line.program.empty())
        runProgram(script, line);
    else if (line.refreshes)
        run(script);
}

/// Runs the program with its arguments as they are: no shell reads them.
void ScriptMenus::runProgram(Url const& script, ScriptEntry const& line)
{
    if (line.inTerminal) {
        auto command = quotedForShell(line.program);
        for (auto const& argument : line.arguments)
            command += " " + quotedForShell(argument);
        if (auto const file = m_services.ownItems.writeForTerminal(command))
            m_services.workspace.open(*file);
        return;
    }
    std::vector<std::string> arguments { "-c", "exec \"$0\" \"$@\"", line.program };
    arguments.insert(arguments.end(), line.arguments.begin(), line.arguments.end());
    auto after = m_lifetime.guard([this, script, refreshes = line.refreshes] {
        if (refreshes)
            run(script);
    });
    m_services.tasks.runDetached([tools = m_services.tools, arguments, after]() -> std::function<void()> {
        (void)tools->run({ shell, arguments, ToolOutput::discarded });
        return [after]() mutable { after(); };
    });
}

} // namespace zv
