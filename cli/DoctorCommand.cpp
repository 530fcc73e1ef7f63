#include "base/Translation.h"
#include "cli/Commands.h"
#include "cli/Options.h"

#include <ostream>

namespace zv {

namespace {

/// Succeeds always: a missing ability is an answer.
ExitStatus run(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--json" } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, doctorCommand, options.error());
    if (!options->operands().empty())
        return failUsage(context, doctorCommand, tr("there is nothing to name"));
    auto const checks = context.doctorChecks();
    context.out() << (options->has("--json") ? doctorJson(checks) + "\n" : doctorText(checks));
    return ExitStatus::done;
}

} // namespace

constexpr Command doctorCommand { "doctor", "[--json]", mark("what works on this desktop and what does not, and why"), run };

} // namespace zv
