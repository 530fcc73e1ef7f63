#pragma once

#include "base/Url.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

/// An application of this machine, to be found in the palette.
struct InstalledApplication {
    std::string name;
    Url file;
};

/// Calls back once, before it returns or later, with the applications that a user may start.
using InstalledApplications = std::function<void(std::function<void(std::vector<InstalledApplication>)>)>;

} // namespace zv
