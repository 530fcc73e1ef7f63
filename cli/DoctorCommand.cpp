#include "app/doctor/DoctorReport.h"
#include "base/Translation.h"
#include "cli/Commands.h"
#include "cli/FileArgument.h"
#include "cli/Options.h"
#include "cli/SetupCommands.h"

#include <ostream>

namespace zv {

namespace {

constexpr char const* usualReport = "zanthe-vell-report.txt";

/// Shows all that would be written before it asks.
ExitStatus writeReport(std::string const& file, CommandContext& context)
{
    (void)context.preferences(); // registers the defaults
    auto const text = "Zanthe Vell " ZV_VERSION "\n"
        + doctorReport(context.doctorChecks(), context.files().defaults, context.store().items(), context.places().environment);
    if (context.files().disk->isTaken(fileArgument(context, file)))
        return fail(context, tr("%1 is there already; name another file", file));
    context.out() << text << "\n" << tr("Write these lines to %1? Nothing is sent to anybody. [y/N]", file) << ' ' << std::flush;
    if (!agrees(context))
        return fail(context, tr("nothing was written"));
    auto const* begin = reinterpret_cast<std::byte const*>(text.data());
    if (auto const written = writeFileArgument(context, file, { begin, begin + text.size() }); !written)
        return fail(context, file + ": " + written.error());
    context.out() << "\n" << tr("Written. Say in your report what you did, what you saw and what you expected, and attach the file.") << "\n";
    return ExitStatus::done;
}

/// Succeeds always: a missing ability is an answer.
ExitStatus writeChecks(bool asJson, CommandContext& context)
{
    auto const checks = context.doctorChecks();
    context.out() << (asJson ? doctorJson(checks) + "\n" : doctorText(checks));
    return ExitStatus::done;
}

ExitStatus run(Arguments arguments, CommandContext& context)
{
    static constexpr Options::Known known[] = { { "--json" }, { "--report" } };
    auto const options = Options::parse(arguments, known);
    if (!options)
        return failUsage(context, doctorCommand, options.error());
    bool const reports = options->has("--report");
    auto const& operands = options->operands();
    if (operands.size() > (reports ? 1 : 0))
        return failUsage(context, doctorCommand, tr("there is nothing to name"));
    if (reports)
        return writeReport(operands.empty() ? usualReport : operands[0], context);
    return writeChecks(options->has("--json"), context);
}

} // namespace

constexpr Command doctorCommand { "doctor", "[--json | --report [FILE]]",
    mark("what works on this desktop and what does not, and why; a report of it to attach"), run };

} // namespace zv
