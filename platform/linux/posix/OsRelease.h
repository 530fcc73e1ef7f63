#pragma once

#include <map>
#include <string>

namespace zv {

/// The assignments of an os-release file, unquoted; empty when it cannot be read:
/// https://www.freedesktop.org/software/systemd/man/latest/os-release.html
[[nodiscard]] std::map<std::string, std::string> readOsRelease(std::string const& path);

} // namespace zv
