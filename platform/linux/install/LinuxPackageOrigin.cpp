#include "platform/linux/install/LinuxPackageOrigin.h"

#include "platform/linux/posix/OsRelease.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace zv {

namespace {

bool listsFile(std::filesystem::path const& list, std::string const& file)
{
    std::ifstream stream(list);
    for (std::string line; std::getline(stream, line);) {
        if (line == file)
            return true;
    }
    return false;
}

} // namespace

std::optional<std::string> LinuxPackageOrigin::owningPackage() const
{
    // Only our own package's list can name our program.
    std::error_code code;
    for (auto const& entry : std::filesystem::directory_iterator(m_dpkgInfo, code)) {
        auto const name = entry.path().filename().string();
        if (name.starts_with("zanthe-vell") && name.ends_with(".list") && listsFile(entry.path(), m_program))
            return name.substr(0, name.find_first_of(".:"));
    }
    bool const hasDpkg = !code;
    bool const isKept = m_program.starts_with("/usr/bin/") || m_program.starts_with("/nix/") || m_program.starts_with("/gnu/");
    return isKept && !hasDpkg ? std::optional<std::string>("zanthe-vell") : std::nullopt;
}

std::vector<std::string> LinuxPackageOrigin::packageEndings() const
{
    std::error_code ignored;
    if (std::filesystem::exists(m_dpkgInfo, ignored))
        return { ".deb" };
    return std::filesystem::exists(m_rpm, ignored) ? std::vector<std::string> { ".rpm" } : std::vector<std::string>();
}

std::string LinuxPackageOrigin::systemVersion() const { return readOsRelease(m_osRelease)["VERSION_ID"]; }

} // namespace zv
