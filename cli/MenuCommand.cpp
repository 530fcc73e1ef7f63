#include "base/Translation.h"
#include "cli/Commands.h"
#include "cli/MenuSession.h"
#include "cli/MenuText.h"
#include "cli/Options.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <optional>
#include <ostream>

namespace zv {

namespace {

using Json = nlohmann::ordered_json;

/// The levels to expand: none without the option; empty when it is no count.
std::optional<int> levelsOf(Options const& options)
{
    auto const* const text = options.value("--expand");
    if (!text)
        return 0;
    int levels = 0;
    auto const* const end = text->data() + text->size();
    auto const [stop, error] = std::from_chars(text->data(), end, levels);
    return error == std::errc() && stop == end && levels >= 0 ? std::optional(levels) : std::nullopt;
}

ExitStatus run(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--json" }, { "--option" }, { "--expand", Options::Takes::value } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, menuCommand, options.error());
    if (!options->operands().empty())
        return failUsage(context, menuCommand, tr("\"%1\" is not expected", options->operands().front()));
    auto const levels = levelsOf(*options);
    if (!levels)
        return failUsage(context, menuCommand, tr("--expand takes a number of levels"));

    bool const isHeld = options->has("--option");
    auto& session = context.menu().session();
    context.menu().hold(isHeld ? ModifierMask::option : ModifierMask::none);
    auto const menu = session.build(context.store().items(), isHeld ? OptionKey::held : OptionKey::released);
    session.openSubmenus(*menu, *levels);
    if (options->has("--json"))
        context.out() << menuAsJson(*menu).dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    else
        context.out() << menuAsText(*menu, session.builder().text(), context.systemKind());
    return ExitStatus::done;
}

} // namespace

constexpr Command menuCommand { "menu", "[--json] [--option] [--expand N]", mark("the menu as it would open now; N levels of self-filling submenus filled"),
    run };

} // namespace zv
