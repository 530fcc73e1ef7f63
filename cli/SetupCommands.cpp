#include "cli/SetupCommands.h"

#include "app/actions/SetupSummary.h"
#include "app/menu/DisplayText.h"
#include "base/Translation.h"
#include "cli/FileArgument.h"

#include <istream>
#include <ostream>
#include <utility>

namespace zv {

namespace {

SetupTransfer transferFor(CommandContext& context)
{
    (void)context.preferences(); // registers the defaults
    return SetupTransfer(
        { .system = context.systemKind(), .files = context.files(), .home = context.places().home, .itemsFolder = context.places().itemsFolder });
}

void print(CommandContext& context, std::vector<std::string> const& lines)
{
    for (auto const& line : lines)
        context.out() << line << '\n';
}

/// Asks where programs come along, for whoever has not said that they are wanted.
bool mayTake(Setup const& setup, SetupImport how, CommandContext& context)
{
    if (how == SetupImport::take || !bringsPrograms(setup))
        return true;
    context.out() << tr("Take all of this? Commands may do whatever you may do. [y/N]") << ' ' << std::flush;
    return agrees(context);
}

ExitStatus take(Setup setup, SetupTransfer const& transfer, CommandContext& context)
{
    auto const kept = transfer.keep(context.store().items(), context.places().backupsFolder, context.clock().now());
    auto const written = kept ? transfer.writeFiles(setup) : Failure { kept.error() };
    auto const stored = written ? transfer.storePreferences(setup) : written;
    if (!stored)
        return fail(context, stored.error());
    if (transfer.takesMenu())
        context.store().replaceAll(std::move(setup.menu.items), MenuStore::Keeping::always);
    if (!context.store().lastSave())
        return ExitStatus::failed; // the store has said why
    context.out() << tr("Imported. What was here before is kept in %1.", kept->path()) << '\n';
    return ExitStatus::done;
}

} // namespace

bool agrees(CommandContext& context)
{
    std::string answer;
    std::getline(context.in(), answer);
    return answer == "y" || answer == "Y" || answer == "yes";
}

ExitStatus exportSetup(std::string const& file, CommandContext& context)
{
    auto const& store = context.store();
    if (auto const& failure = store.loadFailure())
        return fail(context, tr("the stored menu cannot be read: %1", failure->description()));
    auto const bytes = setupDocument(transferFor(context).collect(store.items()));
    if (!bytes)
        return fail(context, tr("the menu cannot be written: %1", bytes.error()));
    if (auto const written = writeFileArgument(context, file, *bytes); !written)
        return fail(context, file + ": " + written.error());
    return ExitStatus::done;
}

ExitStatus importSetup(std::string const& file, SetupImport how, CommandContext& context)
{
    auto const bytes = readFileArgument(context, file);
    if (!bytes)
        return fail(context, file + ": " + bytes.error());
    auto read = readSetup(*bytes, context.locations());
    if (!read)
        return fail(context, file + ": " + read.error().description());
    auto const transfer = transferFor(context);
    auto setup = transfer.movedHere(std::move(read).value());
    print(context, contentLines(setup, allLines));
    print(context, leftOutLines(setup, transfer.locked(setup), allLines));
    print(context, missingLines(transfer.missing(setup), allLines));
    if (how == SetupImport::check)
        return ExitStatus::done;
    if (!mayTake(setup, how, context))
        return fail(context, tr("nothing was imported"));
    return take(std::move(setup), transfer, context);
}

} // namespace zv
