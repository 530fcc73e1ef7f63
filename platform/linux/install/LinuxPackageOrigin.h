#pragma once

#include "platform/program/PackageOrigin.h"

#include <string>

namespace zv {

/// Looks the program up in dpkg's lists of files; elsewhere, a program in a folder of package
/// managers counts as owned by "zanthe-vell".
class LinuxPackageOrigin : public PackageOrigin {
public:
    explicit LinuxPackageOrigin(
        std::string program, std::string dpkgInfo = "/var/lib/dpkg/info", std::string osRelease = "/etc/os-release", std::string rpm = "/usr/bin/rpm")
        : m_program(std::move(program))
        , m_dpkgInfo(std::move(dpkgInfo))
        , m_osRelease(std::move(osRelease))
        , m_rpm(std::move(rpm))
    {
    }

    std::optional<std::string> owningPackage() const override;
    std::vector<std::string> packageEndings() const override; ///< of dpkg's, else of rpm's packages; else none
    std::string systemVersion() const override; ///< VERSION_ID of os-release
    std::string operatingSystem() const override { return "linux"; }

private:
    std::string m_program;
    std::string m_dpkgInfo;
    std::string m_osRelease;
    std::string m_rpm;
};

} // namespace zv
