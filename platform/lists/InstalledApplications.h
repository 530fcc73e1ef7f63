#pragma once

#include "base/Url.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

/// An installed application, listed in the palette.
struct InstalledApplication {
    std::string name;
    Url file;
    friend bool operator==(InstalledApplication const&, InstalledApplication const&) = default;
};

/// Calls back once, before it returns or later, with the applications that a user may start.
/// Main thread only, callback too.
using InstalledApplications = std::function<void(std::function<void(std::vector<InstalledApplication>)>)>;

} // namespace zv
