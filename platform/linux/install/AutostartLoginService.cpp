#include "platform/linux/install/AutostartLoginService.h"

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
    auto const text = readTextFile(entryPath()).value_or("");
    DesktopEntry const entry(text);
    if (!entry.isThere())
        return Status::notRegistered;
    return isSwitchedOff(entry) ? Status::requiresApproval : Status::enabled;
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
