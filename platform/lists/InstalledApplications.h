#pragma once

#include "base/Url.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

/// The main categories: https://specifications.freedesktop.org/menu-spec, "Registered Categories".
enum class ApplicationCategory { accessories, development, education, games, graphics, internet, multimedia, office, science, settings, system, other };

/// An installed application.
struct InstalledApplication {
    std::string name;
    Url file;
    ApplicationCategory category = ApplicationCategory::other; ///< `other` where the system knows none
    friend bool operator==(InstalledApplication const&, InstalledApplication const&) = default;
};

/// Calls back once, before it returns or later, with the applications that a user may start.
/// Main thread only, callback too.
using InstalledApplications = std::function<void(std::function<void(std::vector<InstalledApplication>)>)>;

/// The folders of application entries, each of which stands for all installed applications. Main thread only, callbacks too.
class ApplicationFolders {
public:
    virtual ~ApplicationFolders() = default;
    /// Whether it is one of them. Never waits for a disk.
    [[nodiscard]] virtual bool contains(Url const& folder) const = 0;
    /// Calls `done` once, before it returns or later, with the applications that a user may start, in no order.
    virtual void list(std::function<void(std::vector<InstalledApplication>)> done) = 0;
};

} // namespace zv
