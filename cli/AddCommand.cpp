#include "app/actions/AddToItemsService.h"
#include "base/Translation.h"
#include "cli/Commands.h"
#include "cli/FileArgument.h"
#include "cli/Options.h"

#include <algorithm>
#include <string_view>

namespace zv {

namespace {

/// Resolves "." and "..", which are no names.
Url namedFile(CommandContext& context, std::string const& argument)
{
    auto url = Url::fromPath("/");
    auto const path = fileArgument(context, argument).path();
    std::string_view rest = path;
    while (!rest.empty()) {
        auto const name = rest.substr(0, rest.find('/'));
        if (name == "..")
            url = url.parent();
        else if (!name.empty() && name != ".")
            url = url.appending(name);
        rest.remove_prefix(std::min(rest.size(), name.size() + 1));
    }
    return url;
}

/// Works without the running program: the submenu lists the folder when it opens.
ExitStatus run(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--alert" } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, addCommand, options.error());
    if (options->operands().empty())
        return failUsage(context, addCommand, AddToItemsService::noFilesText());
    std::vector<Url> urls;
    for (auto const& argument : options->operands())
        urls.push_back(namedFile(context, argument));
    if (options->has("--alert") && context.runningProgram().isRunning()) {
        auto const sent = context.runningProgram().addFiles(urls);
        return sent ? ExitStatus::done : fail(context, sent.error());
    }
    auto const outcome = ItemsFolder(context.places().itemsFolder, *context.files().disk, context.files().aliases).add(urls);
    auto const alert = alertFor(outcome, context.places().itemsFolder);
    if (alert && options->has("--alert") && context.present(*alert))
        return ExitStatus::failed;
    return alert ? fail(context, inSequence(alert->message, alert->informativeText)) : ExitStatus::done;
}

} // namespace

constexpr Command addCommand { "add", "[--alert] FILE…", mark("add to the Zanthe Vell Items folder; with --alert a window tells what fails"), run };

} // namespace zv
