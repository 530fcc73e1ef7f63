#include "cli/CommandLine.h"

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
std::string quoted(std::string_view text)
{
    std::string word = "'";
    for (char const c : text)
        word += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return word + "'";
}

ExitStatus showHelp(CommandContext& context)
{
    auto& out = context.out();
    out << "usage: zanthe-vell [COMMAND]\n\n"
           "Without a command the program starts; a second start opens its settings.\n\n";
    for (auto const* command : commandTable())
        out << "  " << synopsisOf(*command) << "\n        " << command->summary << '\n';
    out << "\n  --help      this text\n  --version   the version\n\n"
           "Exit status: 0 done, 1 failed (one line on standard error says why), 2 wrong usage.\n";
    if (auto const file = context.fileToLink())
        out << "\nTo have it as a command:\n  sudo mkdir -p /usr/local/bin\n  sudo ln -sf " << quoted(*file) << " /usr/local/bin/zanthe-vell\n";
    return ExitStatus::done;
}

bool asksForHelp(Arguments arguments) { return arguments.size() == 1 && arguments[0] == "--help"; }

ExitStatus showHelp(Command const& command, CommandContext& context)
{
    context.out() << "usage: zanthe-vell " << synopsisOf(command) << "\n\n" << command.summary << '\n';
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
    (void)fail(context, "there is no command \"" + name + "\"; see zanthe-vell --help");
    return ExitStatus::wrongUsage;
}

/// Reports a full disk or a closed pipe as failure.
ExitStatus afterWriting(ExitStatus status, CommandContext& context)
{
    bool const isWritten = static_cast<bool>(context.out().flush());
    return status == ExitStatus::done && !isWritten ? fail(context, "the output could not be written") : status;
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
    if (arguments.empty())
        return static_cast<int>(afterWriting(showHelp(context), context));
    return static_cast<int>(afterWriting(run(arguments, context), context));
}

} // namespace zv
