#include "cli/Command.h"

#include "app/menu/DisplayText.h"
#include "base/Translation.h"

#include <ostream>

namespace zv {

namespace {

/// Joins the paragraphs of a window's message by blanks.
std::string oneLine(std::string_view message)
{
    std::string line;
    for (char const c : message) {
        if (c != '\n')
            line += c;
        else if (!line.ends_with(' '))
            line += ' ';
    }
    return displayText(line);
}

} // namespace

ExitStatus fail(CommandContext& context, std::string_view message)
{
    context.err() << "zanthe-vell: " << oneLine(message) << '\n';
    return ExitStatus::failed;
}

ExitStatus failUsage(CommandContext& context, Command const& command, std::string_view message)
{
    auto usage = "zanthe-vell " + std::string(command.name);
    if (!command.usage.empty())
        usage += ' ' + std::string(command.usage);
    context.err() << "zanthe-vell: " << tr("%1 (usage: %2)", oneLine(message), usage) << '\n';
    return ExitStatus::wrongUsage;
}

} // namespace zv
