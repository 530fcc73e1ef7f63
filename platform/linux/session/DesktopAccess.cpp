#include "platform/linux/session/DesktopAccess.h"

#include <cstdlib>

namespace zv {

namespace {

std::string variable(char const* name)
{
    auto const* const value = std::getenv(name);
    return value ? value : "";
}

std::string dataFolders(XdgDirectories const& directories)
{
    auto text = directories.data;
    for (auto const& folder : directories.dataDirs)
        text += ":" + folder;
    return text;
}

} // namespace

DesktopAccess DesktopAccess::ofThisMachine(XdgDirectories const& directories)
{
    return { BusAddresses::ofThisMachine(), desktopFromText(variable("XDG_CURRENT_DESKTOP")),
        std::make_shared<PathPrograms>(variable("PATH"), dataFolders(directories)), variable("XDG_SESSION_ID") };
}

} // namespace zv
