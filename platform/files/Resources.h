#pragma once

#include "base/PropertyList.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// The files that ship with the program. Main thread only.
class Resources {
public:
    virtual ~Resources() = default;
    /// The bytes of the resource, or nothing when it is missing. A file made for this system
    /// comes first: on Linux "Library (Linux).plist" is taken before "Library.plist".
    [[nodiscard]] virtual std::optional<std::vector<std::byte>> load(std::string_view name, std::string_view extension) const = 0;
    /// The program's own information dictionary ("CFBundleShortVersionString", "SUFeedURL" …).
    [[nodiscard]] virtual PropertyListDictionary const& information() const = 0;
};

} // namespace zv
