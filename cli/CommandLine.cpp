#include "cli/CommandLine.h"

#include "base/Translation.h"
#include "cli/Commands.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace zv {

namespace {

// To add a command:
// 1. cli/NewCommand.cpp: a Command, and what it does; its line in Commands.h.
// 2. Here: its line, in the order of --help.
// 3. packaging/linux/zanthe-vell.1: its entry under COMMANDS.
// The shells learn it from here: its options from its usage, its operands from its `complete`. CommandLineTest goes through the table: what is forgotten fails
// there.
constexpr std::array table {
    &menuCommand,
    &performCommand,
    &hotkeysCommand,
    &addCommand,
    &checkNameCommand,
    &prefsCommand,
    &exportCommand,
    &importCommand,
    &showCommand,
    &settingsCommand,
    &quitCommand,
    &doctorCommand,
};

std::string synopsisOf(Command const& command)
{
    return command.usage.empty() ? std::string(command.name) : std::string(command.name) + ' ' + std::string(command.usage);
}

/// Quotes the text as one word of a shell.
std::string shellWord(std::string_view text)
{
    std::string word = "'";
    for (char const c : text)
        word += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return word + "'";
}

ExitStatus showHelp(CommandContext& context)
{
    auto& out = context.out();
    out << tr("usage: %1", "zanthe-vell [COMMAND]") << "\n\n" << tr("Without a command the program starts; a second start opens its settings.") << "\n\n";
    for (auto const* command : commandTable())
        out << "  " << synopsisOf(*command) << "\n        " << tr(command->summary) << '\n';
    out << "\n  --help      " << tr("this text") << "\n  --version   " << tr("the version") << "\n\n"
        << tr("Exit status: 0 done, 1 failed (one line on standard error says why), 2 wrong usage.") << '\n';
    if (auto const file = context.fileToLink())
        out << '\n'
            << tr("To have it as a command:") << "\n  sudo mkdir -p /usr/local/bin\n  sudo ln -sf " << shellWord(*file) << " /usr/local/bin/zanthe-vell\n";
    return ExitStatus::done;
}

bool asksForHelp(Arguments arguments) { return arguments.size() == 1 && arguments[0] == "--help"; }

ExitStatus showHelp(Command const& command, CommandContext& context)
{
    context.out() << tr("usage: %1", "zanthe-vell " + synopsisOf(command)) << "\n\n" << tr(command.summary) << '\n';
    return ExitStatus::done;
}

ExitStatus showVersion(CommandContext& context)
{
    context.out() << "Zanthe Vell " ZV_VERSION "\n";
    return ExitStatus::done;
}

ExitStatus run(Arguments arguments, CommandContext& context)
{
    auto const& name = arguments.front();
    if (name == "--help" || name == "-h" || name == "help")
        return showHelp(context);
    if (name == "--version")
        return showVersion(context);
    if (name == completeCommand.name)
        return completeCommand.run(arguments.subspan(1), context);
    auto const commands = commandTable();
    auto const found = std::find_if(commands.begin(), commands.end(), [&](Command const* command) { return command->name == name; });
    if (found != commands.end())
        return asksForHelp(arguments.subspan(1)) ? showHelp(**found, context) : (*found)->run(arguments.subspan(1), context);
    (void)fail(context, tr("there is no command \"%1\"; see zanthe-vell --help", name));
    return ExitStatus::wrongUsage;
}

/// Reports a full disk or a closed pipe as failure.
ExitStatus afterWriting(ExitStatus status, CommandContext& context)
{
    bool const isWritten = static_cast<bool>(context.out().flush());
    return status == ExitStatus::done && !isWritten ? fail(context, tr("the output could not be written")) : status;
}

} // namespace

std::span<Command const* const> commandTable() { return table; }

bool asksForCommand(Arguments arguments)
{
    if (arguments.empty())
        return false;
    auto const& first = arguments.front();
    return !first.starts_with('-') || first.starts_with("--") || first == "-h";
}

int runCommandLine(Arguments arguments, CommandContext& context)
{
    // What programs and developers read is the same in every language.
    if (std::any_of(arguments.begin(), arguments.end(), [](auto const& argument) { return argument == "--json" || argument == "--report"; }))
        translateBy(nullptr);
    if (arguments.empty())
        return static_cast<int>(afterWriting(showHelp(context), context));
    return static_cast<int>(afterWriting(run(arguments, context), context));
}

} // namespace zv
