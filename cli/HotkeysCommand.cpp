#include "app/doctor/HotkeyCheck.h"
#include "app/menu/DisplayText.h"
#include "app/menu/ShownShortcut.h"
#include "base/Translation.h"
#include "cli/Commands.h"
#include "cli/Options.h"
#include "platform/text/Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>

namespace zv {

namespace {

using Json = nlohmann::json;

constexpr std::size_t glyphWidth = 8;
constexpr std::size_t wordWidth = 20; // of "Ctrl+Alt+Shift+F12"

std::string textOf(Json const& entry, char const* key)
{
    auto const found = entry.find(key);
    return found != entry.end() && found->is_string() ? found->get<std::string>() : std::string();
}

/// The item's title as the menu shows it, or the file's path.
std::string targetName(Json const& entry, CommandContext& context)
{
    if (entry.contains("menu"))
        return tr("the menu itself");
    if (entry.contains("file"))
        return textOf(entry, "file");
    if (entry.contains("title"))
        return textOf(entry, "title");
    auto const id = Uuid::parse(textOf(entry, "item"));
    auto const* item = id ? context.store().find(*id) : nullptr;
    return item ? item->displayTitle() : textOf(entry, "item");
}

void print(Json const& entries, std::string_view remark, CommandContext& context)
{
    for (auto const& entry : entries) {
        auto const shortcut = shownShortcut(textOf(entry, "shortcut"), context.systemKind());
        auto const width = context.systemKind() == SystemKind::linuxDesktop ? wordWidth : glyphWidth;
        auto const blanks = width - std::min(width - 1, graphemeCount(shortcut));
        context.out() << displayText(shortcut) << std::string(blanks, ' ') << displayText(targetName(entry, context)) << remark << '\n';
    }
}

std::string remarkOn(Json const& unavailable)
{
    if (textOf(unavailable, "reason") == "keptBySystem")
        return "  " + tr("(never arrives: the system keeps it for itself)");
    return "  " + tr("(never arrives: no key of this keyboard layout types it)");
}

ExitStatus print(std::string const& report, CommandContext& context)
{
    auto const parsed = Json::parse(report, nullptr, false);
    if (!parsed.is_object())
        return fail(context, tr("the running program gave an answer that is none"));
    print(parsed.value("registrations", Json::array()), "", context);
    print(parsed.value("conflicts", Json::array()), "  " + tr("(taken: another program or another entry has it)"), context);
    for (auto const& entry : parsed.value("unavailable", Json::array()))
        print(Json::array({ entry }), remarkOn(entry), context);
    if (textOf(parsed, "support") == "none")
        context.out() << hotkeyCheck(HotkeySupport::none).explanation << '\n';
    if (parsed.contains("bindings"))
        context.out() << tr("“zanthe-vell hotkeys --bindings” prints lines for %1.", textOf(parsed["bindings"].front(), "file")) << '\n';
    if (report.find("\"file\":") != std::string::npos)
        context.out() << '\n' << tr("To take a file’s shortcut away, rename the file without “-*[…]*”.") << '\n';
    return ExitStatus::done;
}

/// The lines alone, so that they can be appended to the file.
ExitStatus printBindings(std::string const& report, CommandContext& context)
{
    auto const parsed = Json::parse(report, nullptr, false);
    auto const bindings = parsed.is_object() ? parsed.value("bindings", Json::array()) : Json::array();
    if (bindings.empty())
        return fail(context, tr("no lines are known that would give this desktop’s keys to programs, or it needs none"));
    for (auto const& binding : bindings)
        context.out() << textOf(binding, "line") << '\n';
    return ExitStatus::done;
}

ExitStatus run(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--json" }, { "--bindings" } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, hotkeysCommand, options.error());
    if (!options->operands().empty())
        return failUsage(context, hotkeysCommand, tr("there is nothing to name"));
    auto const report = context.runningProgram().hotkeys();
    if (!report)
        return fail(context, report.error());
    if (options->has("--bindings"))
        return printBindings(*report, context);
    if (!options->has("--json"))
        return print(*report, context);
    context.out() << *report << '\n';
    return ExitStatus::done;
}

} // namespace

constexpr Command hotkeysCommand { "hotkeys", "[--json | --bindings]", mark("the shortcuts that the running program holds, and those that others have"), run };

} // namespace zv
