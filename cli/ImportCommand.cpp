#include "app/menu/DisplayText.h"
#include "app/model/MenuDocument.h"
#include "base/Translation.h"
#include "cli/Commands.h"
#include "cli/FileArgument.h"
#include "cli/Options.h"
#include "cli/SetupCommands.h"

#include <ostream>

namespace zv {

namespace {

std::string summaryOf(ImportedMenu const& menu)
{
    auto const items = trn("%1 item", "%1 items", menu.itemCount);
    if (menu.renewedIds == 0)
        return items;
    // TRANSLATORS: the size of a menu ("3 items"), and that entries that came twice were told apart
    return tr("%1; %2", items, trn("%1 repeated id renewed", "%1 repeated ids renewed", menu.renewedIds));
}

ExitStatus replaceMenu(ImportedMenu menu, CommandContext& context)
{
    auto const summary = summaryOf(menu);
    context.store().replaceAll(std::move(menu.items), MenuStore::Keeping::always);
    if (!context.store().lastSave())
        return ExitStatus::failed; // the store has said why
    context.out() << tr("Imported %1.", summary) << '\n';
    return ExitStatus::done;
}

ExitStatus run(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--all" }, { "--check" }, { "--yes" } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, importCommand, options.error());
    if (options->operands().size() != 1)
        return failUsage(context, importCommand, tr("name one file"));
    auto const& file = options->operands()[0];
    if (options->has("--all"))
        return importSetup(file, options->has("--check") ? SetupImport::check : options->has("--yes") ? SetupImport::take : SetupImport::ask, context);
    auto const bytes = readFileArgument(context, file);
    if (!bytes)
        return fail(context, file + ": " + bytes.error());
    auto menu = readMenuDocument(*bytes, context.locations());
    if (!menu)
        return fail(context, file + ": " + menu.error().description());
    if (!options->has("--check"))
        return replaceMenu(std::move(menu).value(), context);
    context.out() << tr("%1 is a menu of %2.", displayText(file), summaryOf(*menu)) << '\n';
    return ExitStatus::done;
}

} // namespace

constexpr Command importCommand { "import", "[--check] [--all [--yes]] FILE",
    mark("put the menu of a file in place, or all that --all exported; --check says what it holds"), run };

} // namespace zv
