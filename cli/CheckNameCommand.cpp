#include "app/menu/DisplayText.h"
#include "app/model/FinderPopName.h"
#include "cli/Commands.h"
#include "cli/MenuText.h"
#include "cli/Options.h"

#include <nlohmann/json.hpp>

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

void print(FinderPopName const& name, SystemKind system, std::ostream& out)
{
    out << displayText(name.sortName) << '\n';
    if (name.isSeparator)
        out << "  a separator\n";
    else
        out << "  title     " << displayText(name.title) << '\n';
    if (name.orderingPrefix)
        out << "  prefix    " << displayText(*name.orderingPrefix) << '\n';
    if (auto const shortcut = shortcutOf(name))
        out << "  shortcut  " << displayText(shownShortcut(*shortcut, system)) << '\n';
}

ExitStatus run(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--json" } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, checkNameCommand, options.error());
    if (options->operands().empty())
        return failUsage(context, checkNameCommand, "no name to check");
    if (options->has("--json")) {
        printJson(options->operands(), context.out());
        return ExitStatus::done;
    }
    for (auto const& name : options->operands())
        print(FinderPopName(name), context.systemKind(), context.out());
    return ExitStatus::done;
}

} // namespace

constexpr Command checkNameCommand { "check-name", "[--json] NAME…", "what a file name says: prefix, separator, shortcut, title", run };

} // namespace zv
