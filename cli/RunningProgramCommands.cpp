#include "base/Translation.h"
#include "cli/Commands.h"
#include "cli/Options.h"

#include <charconv>

namespace zv {

namespace {

std::optional<int> pixel(std::string_view text)
{
    int value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

/// Parses "X,Y", in pixels from the top left corner of the desktop.
std::optional<RunningProgram::ScreenPoint> placeFrom(std::string_view text)
{
    auto const comma = text.find(',');
    if (comma == std::string_view::npos)
        return std::nullopt;
    auto const x = pixel(text.substr(0, comma));
    auto const y = pixel(text.substr(comma + 1));
    if (!x || !y)
        return std::nullopt;
    return RunningProgram::ScreenPoint { static_cast<double>(*x), static_cast<double>(*y) };
}

ExitStatus statusOf(Result<void> const& told, CommandContext& context) { return told ? ExitStatus::done : fail(context, told.error()); }

ExitStatus show(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--at", Options::Takes::value } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, showCommand, options.error());
    if (!options->operands().empty())
        return failUsage(context, showCommand, tr("it takes no arguments"));
    auto const* text = options->value("--at");
    auto const place = text ? placeFrom(*text) : std::nullopt;
    if (text && !place)
        return failUsage(context, showCommand, tr("\"%1\" is no place on the screen; say --at X,Y", *text));
    return statusOf(context.runningProgram().showMenu(place), context);
}

ExitStatus settings(Arguments arguments, CommandContext& context)
{
    if (!arguments.empty())
        return failUsage(context, settingsCommand, tr("it takes no arguments"));
    return statusOf(context.runningProgram().openSettings(), context);
}

ExitStatus quit(Arguments arguments, CommandContext& context)
{
    if (!arguments.empty())
        return failUsage(context, quitCommand, tr("it takes no arguments"));
    return statusOf(context.runningProgram().quit(), context);
}

} // namespace

Command const showCommand { "show", "[--at X,Y]", mark("opens the menu of the running program, which is started if need be"), show };
Command const settingsCommand { "settings", "", mark("opens the settings; starts the program if need be"), settings };
Command const quitCommand { "quit", "", mark("ends the running program"), quit };

} // namespace zv
