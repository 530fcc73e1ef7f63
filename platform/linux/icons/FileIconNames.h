#pragma once

#include "platform/linux/entries/StartTrust.h"
#include "platform/linux/files/MountTable.h"

#include <string>
#include <vector>

namespace zv {

/// The shape drawn when a theme has none of the names.
enum class IconShape { document, folder, application, drive, network, computer, settings, none };

/// A file's picture: names of theme icons, the best first, or an image file.
struct FileIconNames {
    std::vector<std::string> names;
    std::string imageFile; ///< absolute; preferred to the names
    IconShape shape = IconShape::document;
    bool isLink = false; ///< adds an emblem for links

    friend bool operator==(FileIconNames const&, FileIconNames const&) = default;
};

/// Chosen from the file's type and name; contents are read only of trusted application entries, and
/// the first bytes of programs. What starts something and is not trusted gets a plain picture. On a
/// remote mount only the name decides, and a name without an extension counts as a folder's. Any
/// thread.
[[nodiscard]] FileIconNames iconNamesOfFile(std::string const& path, MountTable const& mounts, StartTrust const& trust = StartTrust());

} // namespace zv
