#pragma once

#include "platform/lists/InstalledApplications.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

class FolderReader;

/// The applications in these folders and in the folders below them, on systems where an
/// application is a folder named *.app. None is looked into. Of several with one identifier
/// the first stands for all; `identifierOf` gives an empty text for one that has none. Any thread.
[[nodiscard]] std::vector<InstalledApplication> applicationsIn(
    std::vector<Url> const& folders, FolderReader const& reader, std::function<std::string(Url const& application)> const& identifierOf);

} // namespace zv
