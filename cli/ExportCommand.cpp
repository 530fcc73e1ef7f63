#include "app/model/MenuDocument.h"
#include "base/Translation.h"
#include "cli/Commands.h"
#include "cli/FileArgument.h"
#include "cli/Options.h"

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
    auto const options = Options::parse(arguments, {});
    if (!options)
        return failUsage(context, exportCommand, options.error());
    if (options->operands().size() != 1)
        return failUsage(context, exportCommand, tr("name one file"));
    return exportTo(options->operands()[0], context);
}

} // namespace

constexpr Command exportCommand { "export", "FILE", mark("write the menu to a file (- is standard output)"), run };

} // namespace zv
