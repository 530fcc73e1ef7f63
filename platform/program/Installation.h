#pragma once

#include "base/Result.h"
#include "base/Url.h"
#include "platform/program/Environment.h"

#include <optional>
#include <string>

namespace zv {

/// The kind of place from which a running copy of the program should move.
enum class RelocationSource {
    none,
    translocated, ///< a read-only copy that the system made of a download
    diskImage, ///< a mounted image
    temporaryPlace, ///< a folder that is read-only or is emptied, on systems that make no such copies
};

/// The system's part in moving the program. Main thread only.
class Installation {
public:
    virtual ~Installation() = default;

    [[nodiscard]] virtual RelocationSource source(Url const& bundle) const = 0;
    /// The folder for all users' applications if it exists and can be written, else the
    /// user's own, made when missing; nothing when there is neither.
    [[nodiscard]] virtual std::optional<Url> applicationsFolder() = 0;

    /// A fresh folder on the destination's volume, for a copy in the making.
    [[nodiscard]] virtual Result<Url> makeReplacementFolder(Url const& destination) = 0;
    [[nodiscard]] virtual Result<void> copy(Url const& from, Url const& to) = 0;
    /// Moves `from` to `to`. A file already there is replaced, and stays until the new one is whole.
    [[nodiscard]] virtual Result<void> put(Url const& from, Url const& to) = 0;
    virtual void removeFolder(Url const& folder) = 0;
    /// Announces the installed program to the desktop; nothing to do where it sees by itself.
    [[nodiscard]] virtual Result<void> announce(Url const& installed) = 0;
    /// Gives up whatever only one running program can have: the copy is about to be opened.
    virtual void giveWay() { }
};

} // namespace zv
