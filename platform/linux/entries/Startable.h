#pragma once

#include <optional>
#include <string>

namespace zv {

/// A file or folder that starts something when it is opened.
struct Startable {
    enum class Kind {
        entry, ///< an application entry, or one that leads on to an address
        program,
        folder, ///< an application with all it needs inside
    };
    Kind kind = Kind::entry;
    std::string file; ///< decides whether it is trusted: the entry, the program, or the folder's "AppRun"
};

/// Nothing for documents and plain folders. A program is known by its first bytes and its name, which
/// has to be one that no document has: what calls itself "invoice.pdf" is opened as such. Looks into
/// the file, but never waits for a pipe or a device.
[[nodiscard]] std::optional<Startable> startableAt(std::string const& path);

} // namespace zv
