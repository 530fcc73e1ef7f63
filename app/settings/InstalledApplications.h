#pragma once

#include "base/Url.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

class FolderReader;

/// An application of this machine, to be found in the palette.
struct InstalledApplication {
    std::string name;
    Url file;
    friend bool operator==(InstalledApplication const&, InstalledApplication const&) = default;
};

/// Calls back once, before it returns or later, with the applications that a user may start.
using InstalledApplications = std::function<void(std::function<void(std::vector<InstalledApplication>)>)>;

/// The applications in these folders and in the folders below them, on systems where an
/// application is a folder named *.app. None is looked into. Of several with one identifier
/// the first stands for all; `identifierOf` gives an empty text for one that has none. Any thread.
[[nodiscard]] std::vector<InstalledApplication> applicationsIn(
    std::vector<Url> const& folders, FolderReader const& reader, std::function<std::string(Url const& application)> const& identifierOf);

} // namespace zv
