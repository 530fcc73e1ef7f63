#include "app/model/MenuDocument.h"
#include "base/Translation.h"
#include "cli/Commands.h"
#include "cli/FileArgument.h"
#include "cli/Options.h"
#include "cli/SetupCommands.h"

namespace zv {

namespace {

ExitStatus exportTo(std::string const& file, CommandContext& context)
{
    auto const& store = context.store();
    if (auto const& failure = store.loadFailure())
        return fail(context, tr("the stored menu cannot be read: %1", failure->description()));
    auto const bytes = menuDocument(store.items());
    if (!bytes)
        return fail(context, tr("the menu cannot be written: %1", bytes.error()));
    if (auto const written = writeFileArgument(context, file, *bytes); !written)
        return fail(context, file + ": " + written.error());
    return ExitStatus::done;
}

ExitStatus run(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--all" } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, exportCommand, options.error());
    if (options->operands().size() != 1)
        return failUsage(context, exportCommand, tr("name one file"));
    auto const& file = options->operands()[0];
    return options->has("--all") ? exportSetup(file, context) : exportTo(file, context);
}

} // namespace

constexpr Command exportCommand { "export", "[--all] FILE", mark("write the menu, or all that you have made, to a file (- is standard output)"), run };

} // namespace zv
