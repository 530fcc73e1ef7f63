#pragma once

#include "base/Result.h"
#include "base/Url.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// Opens things as the desktop does. What cannot be opened fails silently here, with
/// one line in the log. Nothing blocks. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;
    /// A folder opens in the file manager, an application starts, a document opens in its
    /// default application, any other URL in what handles its scheme.
    virtual void open(Url const& url) = 0;
    /// Shows the file selected in the file manager.
    virtual void reveal(Url const& fileURL) = 0;
    [[nodiscard]] virtual std::optional<Url> applicationWithIdentifier(std::string_view identifier) const = 0;
    /// Starts a new instance even if one is running. `done` gets a whole sentence as the
    /// reason why it did not; on the main thread.
    virtual void openNewInstance(Url const& application, std::function<void(Result<void>)> done) = 0;
};

} // namespace zv
