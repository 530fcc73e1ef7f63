#pragma once

#include "base/Url.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

struct RunningApplication {
    std::string id; ///< the same for all windows of one application; what activate() takes
    std::string name; ///< in the user's language
    std::optional<Url> url; ///< its bundle or application entry, else its program file
};

/// The applications that run with windows of their own, this program left out. Main
/// thread only, callbacks too.
class RunningApplications {
public:
    /// The applications, perhaps repeated; nothing when the desktop does not tell.
    using List = std::optional<std::vector<RunningApplication>>;

    virtual ~RunningApplications() = default;
    /// Calls `done` once: before it returns, or later.
    virtual void list(std::function<void(List)> done) = 0;
    /// Brings the application to the front; if it has ended meanwhile, starts it again where
    /// possible.
    virtual void activate(std::string const& id) = 0;
    /// Asks the application to end, as its own Quit does: it may ask the user, and stay.
    virtual void quit(std::string const& id) = 0;
};

} // namespace zv
