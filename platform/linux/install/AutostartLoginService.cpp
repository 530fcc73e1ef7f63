#include "platform/linux/install/AutostartLoginService.h"

#include "platform/linux/entries/ApplicationEntry.h"
#include "platform/linux/entries/DesktopEntry.h"
#include "platform/linux/entries/ExecLine.h"
#include "platform/linux/posix/WholeFiles.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace zv {

namespace {

Result<void, LoginService::Error> resultOf(std::error_code code)
{
    if (!code)
        return {};
    return Failure { LoginService::Error { code.value(), code.message() } };
}

/// "Hidden" switches off everywhere (https://specifications.freedesktop.org/autostart-spec), the
/// other key comes from GNOME's settings.
bool isSwitchedOff(DesktopEntry const& entry)
{
    constexpr char const* gnomeKey = "X-GNOME-Autostart-enabled";
    return (entry.has(gnomeKey) && !entry.flag(gnomeKey)) || entry.flag("Hidden");
}

/// The program itself, or a command of the user's own that names it.
bool startsThis(std::string const& program, std::string const& commandLine, std::string const& own)
{
    auto const name = own.substr(own.rfind('/') + 1);
    return withoutLinks(program) == withoutLinks(own) || commandLine.find(name) != std::string::npos;
}

std::string entryText(std::string const& program)
{
    return "[Desktop Entry]\nType=Application\nName=Zanthe Vell\nComment=A menu of your own making\nExec=" + quotedForExec(program)
        + "\nIcon=org.zanthevell.ZantheVell\nX-GNOME-Autostart-enabled=true\n";
}

} // namespace

std::string AutostartLoginService::folder() const { return m_options.configHome + "/autostart"; }

std::string AutostartLoginService::entryPath() const { return folder() + "/org.zanthevell.ZantheVell.desktop"; }

LoginService::Status AutostartLoginService::status() const
{
    switch (start()) {
    case Start::sure:
        return Status::enabled;
    case Start::switchedOff:
        return Status::requiresApproval;
    default:
        return Status::notRegistered;
    }
}

AutostartLoginService::Start AutostartLoginService::start() const
{
    auto const text = readTextFile(entryPath()).value_or("");
    DesktopEntry const entry(text);
    if (!entry.isThere())
        return Start::absent;
    if (isSwitchedOff(entry))
        return Start::switchedOff;
    if (!entry.isMeantFor(m_options.desktops))
        return Start::elsewhere;
    auto const program = programOfCommandLine(entry.text("Exec"));
    auto const condition = entry.text("TryExec");
    bool const isThere = program && isInstalled(*program) && (condition.empty() || isInstalled(condition));
    if (!isThere)
        return Start::lost;
    return startsThis(*program, entry.text("Exec"), m_options.program) ? Start::sure : Start::elsewhere;
}

void AutostartLoginService::mend()
{
    if (start() == Start::lost)
        (void)registerService();
}

Result<void, LoginService::Error> AutostartLoginService::registerService()
{
    if (status() == Status::requiresApproval)
        return {};
    std::error_code code;
    std::filesystem::create_directories(folder(), code);
    if (code)
        return resultOf(code);
    auto const temporary = entryPath() + ".new";
    errno = 0;
    std::ofstream stream(temporary, std::ios::trunc);
    stream << entryText(m_options.program);
    stream.close();
    if (!stream)
        return resultOf({ errno != 0 ? errno : EIO, std::generic_category() });
    std::filesystem::rename(temporary, entryPath(), code);
    return resultOf(code);
}

Result<void, LoginService::Error> AutostartLoginService::unregisterService()
{
    std::error_code code;
    std::filesystem::remove(entryPath(), code);
    return resultOf(code);
}

void AutostartLoginService::openSystemSettings()
{
    if (m_options.openDesktopSettings && m_options.openDesktopSettings())
        return;
    if (m_options.openFolder)
        m_options.openFolder(Url::fromPath(folder()));
}

} // namespace zv
