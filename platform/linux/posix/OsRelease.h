#pragma once

#include <map>
#include <string>

namespace zv {

/// https://www.freedesktop.org/software/systemd/man/latest/os-release.html: the assignments of the file, unquoted; empty when it cannot be read.
[[nodiscard]] std::map<std::string, std::string> readOsRelease(std::string const& path);

} // namespace zv
