#pragma once

#include "platform/files/Resources.h"

#include <string>
#include <string_view>

namespace zv {

/// The texts of the About tab.
struct AboutText {
    std::string name;
    std::string version; ///< "Version 0.10.0"
    std::string purpose; ///< one line
    std::string privacy;
    std::string readMeButton;
    std::string licencesButton;
    std::string diagnosticsButton;
    std::string licences; ///< a paragraph a line, of ourselves and of the libraries within
};

[[nodiscard]] AboutText aboutText(Resources const& resources);

/// Anonymises a bug report: the home folder's path becomes "~", and the user's name,
/// where it is a path component, "user".
[[nodiscard]] std::string withoutPersonalPaths(std::string text, std::string_view homePath, std::string_view userName);

} // namespace zv
