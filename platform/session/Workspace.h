#pragma once

#include "base/Result.h"
#include "base/Url.h"
#include "platform/lists/InstalledApplications.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// What would have been started, though nobody installed it.
struct UntrustedStart {
    Url file;
    std::string command; ///< what would run, or the address that would open; perhaps no valid UTF-8
    bool canAlwaysStart = false; ///< the file is the user's own and can be made executable

    friend bool operator==(UntrustedStart const&, UntrustedStart const&) = default;
};

enum class StartConsent { once, always };

/// How a file gets to another place.
enum class FileTransfer { move, copy, link };

/// Opens things as the desktop does. A failure is silent here but for one line in the log.
/// Nothing blocks. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;
    /// Opens a folder in the file manager, a document in its default application and any other
    /// URL in its scheme's handler; starts an application. What was not installed, nor made executable
    /// by the user, is not started: onUntrusted is told. A Mac has a gate of its own for that.
    virtual void open(Url const& url) = 0;
    /// Starts what onUntrusted was told of, unless it has changed since: then onUntrusted is told again.
    virtual void startUntrusted(UntrustedStart const& start, StartConsent consent) = 0;
    /// Shows the file selected in the file manager.
    virtual void reveal(Url const& fileURL) = 0;
    /// The applications that open the file, its default one first; none for an application. Calls
    /// `done` once, on the main thread: before it returns, or later.
    virtual void findApplicationsFor(Url const& file, std::function<void(std::vector<InstalledApplication>)> done) = 0;
    virtual void openWith(Url const& file, Url const& application) = 0;
    /// Moves the file where the user can get it back from. The failure is the system's sentence
    /// for it; `done` is called like that of findApplicationsFor().
    virtual void moveToTrash(Url const& file, std::function<void(Result<void>)> done) = 0;
    /// Takes the file, or the folder with all that is in it, to a place that is free. Failure and
    /// `done` as above.
    virtual void transfer(Url const& file, Url const& place, FileTransfer how, std::function<void(Result<void>)> done) = 0;
    [[nodiscard]] virtual std::optional<Url> applicationWithIdentifier(std::string_view identifier) const = 0;
    /// Starts a new instance even if one is running. `done` gets a whole sentence as the
    /// reason of a failure; on the main thread.
    virtual void openNewInstance(Url const& application, std::function<void(Result<void>)> done) = 0;

    /// Set by its one user; without it nothing untrusted is started.
    std::function<void(UntrustedStart const&)> onUntrusted;
};

} // namespace zv
