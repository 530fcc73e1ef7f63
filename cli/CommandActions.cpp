#include "cli/CommandActions.h"

#include "base/Log.h"

#include <ostream>
#include <utility>

namespace zv {

namespace {

using Failures = std::vector<std::string>;

/// A shortcut may run for as long as it likes.
constexpr std::chrono::hours noLimit { 24 * 20 };

/// What an alert warns of is a failure here, and what it asks is declined; what it merely
/// tells is printed, and goes on.
class PrintedAlerts : public Alerts {
public:
    PrintedAlerts(std::ostream& out, Failures& failures)
        : m_out(out)
        , m_failures(failures)
    {
    }
    std::size_t run(Alert const& alert) override
    {
        if (alert.style == AlertStyle::informational) {
            m_out << alert.message << '\n' << alert.informativeText << '\n';
            return 0;
        }
        m_failures.push_back(alert.message + " " + alert.informativeText);
        return alert.escapeButton;
    }

private:
    std::ostream& m_out;
    Failures& m_failures;
};

/// The running program stands for the application; without one there is nothing to end.
class OtherApplication : public Application {
public:
    OtherApplication(RunningProgram& program, Failures& failures)
        : m_program(program)
        , m_failures(failures)
    {
    }
    void activate() override { }
    void terminate() override { note(m_program.quit()); }
    bool isActive() const override { return false; }
    bool isHidden() const override { return false; }
    ActivationPolicy activationPolicy() const override { return ActivationPolicy::accessory; }
    void setActivationPolicy(ActivationPolicy /*policy*/) override { }
    std::vector<WindowState> windows() const override { return {}; }
    void openSettings() { note(m_program.openSettings()); }

private:
    void note(MaybeFailure<> const& failure)
    {
        if (failure)
            m_failures.push_back(*failure);
    }
    RunningProgram& m_program;
    Failures& m_failures;
};

/// Lines of the log begin with the name of the program, which a command says itself.
std::string withoutProgramName(std::string const& line)
{
    constexpr std::string_view name = "Zanthe Vell: ";
    return line.starts_with(name) ? line.substr(name.size()) : line;
}

struct ArgumentKeys : ModifierKeys {
    ModifierMask current() const override { return held; }
    ModifierMask ofCurrentEvent() const override { return held; }
    ModifierMask held = ModifierMask::none;
};

/// A clipboard would end with this process; a terminal's is its output.
struct PrintedClipboard : Clipboard {
    explicit PrintedClipboard(std::ostream& stream)
        : out(stream)
    {
    }
    void setText(std::string const& text) override { out << text << '\n'; }
    std::ostream& out;
};

} // namespace

struct CommandActions::Parts {
    explicit Parts(Services services)
        : pending(services.pending)
        , turnUntil(std::move(services.turnUntil))
        , tasks(services.tasks, pending)
        , running(services.runningApplications, pending)
        , alerts(services.out, failures)
        , application(services.program, failures)
        , clipboard(services.out)
        , session(services.sessionEvents, confirmation)
        , scripts(services.scripts, [this] { return confirmation.confirmsForceQuit(); })
        , actions({ services.workspace, application, alerts, keys, clipboard, running, services.desktop, services.computer, session, scripts, tasks,
                      services.locations },
              ShortcutsProvider(services.tools), NetworkLocations(services.tools), services.itemsFolder, { [this] { application.openSettings(); }, {}, {} })
    {
    }

    WorkCount& pending;
    MenuSession::TurnUntil turnUntil;
    Failures failures;
    CountedTasks tasks;
    CountedRunningApplications running;
    PrintedAlerts alerts;
    OtherApplication application;
    ArgumentKeys keys;
    PrintedClipboard clipboard;
    AlertConfirmation confirmation { application, alerts };
    SessionControl session;
    SystemEventsBridge scripts;
    MenuActions actions;
};

CommandActions::CommandActions(Services services)
    : m_parts(std::make_unique<Parts>(std::move(services)))
{
}

CommandActions::~CommandActions() = default;

MenuActions& CommandActions::commands() { return m_parts->actions; }

std::vector<std::string> CommandActions::choose(MenuEntry const& entry, ModifierMask held)
{
    // What the program would have logged is a failure that nobody else tells here.
    LogCapture const log([this](std::string const& line) { m_parts->failures.push_back(withoutProgramName(line)); });
    m_parts->keys.held = held;
    entry.target->invoke();
    m_parts->turnUntil([this] { return m_parts->pending.isZero(); }, noLimit);
    return std::exchange(m_parts->failures, {});
}

} // namespace zv
