#include "tests/cli/CommandLineFixture.h"

#include <sstream>

namespace zv {

class CommandLineFixture::Context : public CommandContext {
public:
    Context(Streams streams, CommandLineFixture& machine)
        : CommandContext(streams)
        , m_machine(machine)
    {
    }
    ~Context() override { forgetMenu(); }
    Files const& files() override { return m_system.files; }
    Places const& places() override { return m_system.places; }
    Clock& clock() override { return m_machine.time; }
    RunningProgram& runningProgram() override { return m_machine.program; }
    TurningSystem turningSystem() override
    {
        return { .system = m_system, .looks = { .text = m_text, .icons = m_icons }, .pending = m_pending, .turnUntil = [this](auto const&, auto) {
                    m_machine.time.runTasks();
                } };
    }
    Url currentFolder() override { return Url::fromPath("/here"); }
    std::optional<std::string> fileToLink() override { return m_machine.fileToLink; }
    SystemKind systemKind() const override { return m_machine.machine.kind; }
    bool present(Alert const& alert) override
    {
        m_machine.presented.push_back(alert.message);
        return m_machine.hasDisplay;
    }
    std::vector<DoctorCheck> doctorChecks() override { return m_machine.checks; }

private:
    CommandLineFixture& m_machine;
    System m_system = m_machine.machine.system();
    fakes::FakeTextMeasure m_text;
    fakes::FakeIconSource m_icons;
    WorkCount m_pending;
};

CommandLineFixture::CommandLineFixture() = default;
CommandLineFixture::~CommandLineFixture() = default;

Outcome CommandLineFixture::run(std::vector<std::string> arguments)
{
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    out.setstate(isOutputFull ? std::ios::badbit : std::ios::goodbit);
    Context context({ in, out, err }, *this);
    int const status = runCommandLine(arguments, context);
    return { status, out.str(), err.str() };
}

} // namespace zv
