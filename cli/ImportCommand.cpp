#include "app/menu/DisplayText.h"
#include "app/model/MenuDocument.h"
#include "cli/Commands.h"
#include "cli/FileArgument.h"
#include "cli/Options.h"

#include <ostream>

namespace zv {

namespace {

std::string counted(std::size_t count, std::string const& noun) { return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s"); }

std::string summaryOf(ImportedMenu const& menu)
{
    auto summary = counted(menu.itemCount, "item");
    if (menu.renewedIds > 0)
        summary += "; " + counted(menu.renewedIds, "repeated id") + " renewed";
    return summary;
}

ExitStatus replaceMenu(ImportedMenu menu, CommandContext& context)
{
    auto const summary = summaryOf(menu);
    context.store().replaceAll(std::move(menu.items), MenuStore::Keeping::always);
    if (!context.store().lastSave())
        return ExitStatus::failed; // the store has said why
    context.out() << "Imported " << summary << ".\n";
    return ExitStatus::done;
}

ExitStatus run(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--check" } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, importCommand, options.error());
    if (options->operands().size() != 1)
        return failUsage(context, importCommand, "name one file");
    auto const& file = options->operands()[0];
    auto const bytes = readFileArgument(context, file);
    if (!bytes)
        return fail(context, file + ": " + bytes.error());
    auto menu = readMenuDocument(*bytes, context.locations());
    if (!menu)
        return fail(context, file + ": " + menu.error().description());
    if (!options->has("--check"))
        return replaceMenu(std::move(menu).value(), context);
    context.out() << displayText(file) << " is a menu of " << summaryOf(*menu) << ".\n";
    return ExitStatus::done;
}

} // namespace

constexpr Command importCommand { "import", "[--check] FILE", "put the menu of a file in place, in the document or the older form", run };

} // namespace zv
