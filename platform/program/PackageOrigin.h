#pragma once

#include <optional>
#include <string>

namespace zv {

/// Where this copy of the program came from. Main thread only.
class PackageOrigin {
public:
    virtual ~PackageOrigin() = default;
    /// The package that owns the running program, when a package manager keeps it.
    [[nodiscard]] virtual std::optional<std::string> owningPackage() const = 0;
    /// The system's own version, to hold a feed's limits against; empty when unknown.
    [[nodiscard]] virtual std::string systemVersion() const = 0;
    /// The name feeds give this system: "linux", "macos".
    [[nodiscard]] virtual std::string operatingSystem() const = 0;
};

} // namespace zv
