#include "cli/TerminalDesk.h"

#include "base/Translation.h"

#include <ostream>
#include <utility>

namespace zv {

namespace {

using Failures = std::vector<std::string>;

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
        m_failures.push_back(inSequence(alert.message, alert.informativeText));
        return alert.escapeButton;
    }

private:
    std::ostream& m_out;
    Failures& m_failures;
};

/// Forwards to the running program; if there is none, nothing is ended.
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
    void note(Result<void> const& told)
    {
        if (!told)
            m_failures.push_back(told.error());
    }
    RunningProgram& m_program;
    Failures& m_failures;
};

struct ArgumentKeys : ModifierKeys {
    ModifierMask current() const override { return held; }
    ModifierMask ofCurrentEvent() const override { return held; }
    ModifierMask held = ModifierMask::none;
};

/// Prints the text, as a clipboard would end with this process.
struct PrintedClipboard : Clipboard {
    explicit PrintedClipboard(std::ostream& stream)
        : out(stream)
    {
    }
    void setText(std::string const& text) override { out << text << '\n'; }
    void setFiles(std::vector<Url> const& files) override
    {
        for (auto const& file : files)
            setText(file.path());
    }
    std::ostream& out;
};

} // namespace

struct TerminalDesk::Parts {
    Parts(RunningProgram& program, std::ostream& out)
        : application(program, failures)
        , alerts(out, failures)
        , clipboard(out)
    {
    }
    Failures failures;
    OtherApplication application;
    PrintedAlerts alerts;
    ArgumentKeys keys;
    PrintedClipboard clipboard;
};

TerminalDesk::TerminalDesk(RunningProgram& program, std::ostream& out)
    : m_parts(std::make_unique<Parts>(program, out))
{
}

TerminalDesk::~TerminalDesk() = default;

Desk TerminalDesk::desk()
{
    return { .application = m_parts->application, .alerts = m_parts->alerts, .modifierKeys = m_parts->keys, .clipboard = m_parts->clipboard };
}

void TerminalDesk::openSettings() { m_parts->application.openSettings(); }

void TerminalDesk::hold(ModifierMask keys) { m_parts->keys.held = keys; }

void TerminalDesk::fail(std::string sentence) { m_parts->failures.push_back(std::move(sentence)); }

std::vector<std::string> TerminalDesk::takeFailures() { return std::exchange(m_parts->failures, {}); }

} // namespace zv
