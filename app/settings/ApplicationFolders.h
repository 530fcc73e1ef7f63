#pragma once

#include "platform/lists/InstalledApplications.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

class FolderReader;

/// Finds applications in these folders and below, on systems where an application is a folder named
/// *.app. Applications are not searched. The first of several with one identifier is kept;
/// `identifierOf` gives an empty text for one without. Any thread.
[[nodiscard]] std::vector<InstalledApplication> applicationsIn(
    std::vector<Url> const& folders, FolderReader const& reader, std::function<std::string(Url const& application)> const& identifierOf);

} // namespace zv
