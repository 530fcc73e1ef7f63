#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The origin of this copy of the program. Main thread only.
class PackageOrigin {
public:
    virtual ~PackageOrigin() = default;
    /// The package that owns the running program; nothing without one.
    [[nodiscard]] virtual std::optional<std::string> owningPackage() const = 0;
    /// The endings of the packages that this system installs: ".deb".
    [[nodiscard]] virtual std::vector<std::string> packageEndings() const = 0;
    /// The system's own version, compared with a feed's limits; empty when unknown.
    [[nodiscard]] virtual std::string systemVersion() const = 0;
    /// The name feeds give this system: "linux", "macos".
    [[nodiscard]] virtual std::string operatingSystem() const = 0;
};

} // namespace zv
