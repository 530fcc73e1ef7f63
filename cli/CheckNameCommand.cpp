#include "app/menu/DisplayText.h"
#include "app/model/FinderPopName.h"
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

using Json = nlohmann::ordered_json;

Json textOrNull(std::optional<std::string> const& text) { return text ? Json(*text) : Json(nullptr); }

std::optional<std::string> shortcutOf(FinderPopName const& name) { return name.hotkey ? std::optional(name.hotkey->description()) : std::nullopt; }

Json toJson(FinderPopName const& name)
{
    return { { "name", name.sortName }, { "title", name.title }, { "sortName", name.sortName }, { "isSeparator", name.isSeparator },
        { "orderingPrefix", textOrNull(name.orderingPrefix) }, { "hotkey", textOrNull(shortcutOf(name)) } };
}

void printJson(std::vector<std::string> const& names, std::ostream& out)
{
    auto array = Json::array();
    for (auto const& name : names)
        array.push_back(toJson(FinderPopName(name)));
    out << array.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

/// A line of the label and the value, which begins in one column.
void print(std::string const& label, std::string const& value, std::ostream& out)
{
    constexpr std::size_t column = 10;
    auto const blanks = column - std::min(column - 1, graphemeCount(label));
    out << "  " << label << std::string(blanks, ' ') << displayText(value) << '\n';
}

void print(FinderPopName const& name, SystemKind system, std::ostream& out)
{
    out << displayText(name.sortName) << '\n';
    if (name.isSeparator)
        out << "  " << tr("a separator") << '\n';
    else
        print(trc("of a file name", "title"), name.title, out);
    if (name.orderingPrefix)
        print(trc("of a file name", "prefix"), *name.orderingPrefix, out);
    if (auto const shortcut = shortcutOf(name))
        print(trc("of a file name", "shortcut"), shownShortcut(*shortcut, system), out);
}

ExitStatus run(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--json" } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, checkNameCommand, options.error());
    if (options->operands().empty())
        return failUsage(context, checkNameCommand, tr("no name to check"));
    if (options->has("--json")) {
        printJson(options->operands(), context.out());
        return ExitStatus::done;
    }
    for (auto const& name : options->operands())
        print(FinderPopName(name), context.systemKind(), context.out());
    return ExitStatus::done;
}

} // namespace

constexpr Command checkNameCommand { "check-name", "[--json] NAME…", mark("what a file name says: prefix, separator, shortcut, title"), run };

} // namespace zv
