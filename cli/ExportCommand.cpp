#include "app/model/MenuDocument.h"
#include "cli/Commands.h"
#include "cli/FileArgument.h"
#include "cli/Options.h"

namespace zv {

namespace {

ExitStatus exportTo(std::string const& file, CommandContext& context)
{
    auto const& store = context.store();
    if (auto const& failure = store.loadFailure())
        return fail(context, "the stored menu cannot be read: " + failure->description());
    auto const bytes = menuDocument(store.items());
    if (!bytes)
        return fail(context, "the menu cannot be written: " + bytes.error());
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
        return failUsage(context, exportCommand, "name one file");
    return exportTo(options->operands()[0], context);
}

} // namespace

constexpr Command exportCommand { "export", "FILE", "write the menu to a file (- is standard output)", run };

} // namespace zv
