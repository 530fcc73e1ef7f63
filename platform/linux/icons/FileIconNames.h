#pragma once

#include "platform/linux/files/MountTable.h"

#include <string>
#include <vector>

namespace zv {

/// What is drawn when no theme has any of the names.
enum class IconShape { document, folder, application, drive, network, computer, settings };

/// How a file is pictured: by names of theme icons, the best first, or by an image file.
struct FileIconNames {
    std::vector<std::string> names;
    std::string imageFile; ///< absolute; comes before the names
    IconShape shape = IconShape::document;
    bool isLink = false; ///< carries an emblem that says so

    friend bool operator==(FileIconNames const&, FileIconNames const&) = default;
};

/// From what the file is and what it is called; its contents are read only when it is an
/// application entry. What lies on a remote mount is not touched: its name decides, and
/// without an extension it counts as a folder. Any thread.
[[nodiscard]] FileIconNames iconNamesOfFile(std::string const& path, MountTable const& mounts);

} // namespace zv
