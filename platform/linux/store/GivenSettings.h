#pragma once

#include "base/PropertyList.h"

#include <set>
#include <string>
#include <vector>

namespace zv {

/// The values that this machine's administrators give to all its users. Their file is like a user's own, and may list
/// keys under "Locked": what users store for these does not count.
struct GivenSettings {
    PropertyListDictionary values;
    std::set<std::string, std::less<>> locked;

    /// The files in order of preference; they need not exist.
    [[nodiscard]] static GivenSettings read(std::vector<std::string> const& files);
};

} // namespace zv
