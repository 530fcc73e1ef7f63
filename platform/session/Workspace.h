#pragma once

#include "base/Result.h"
#include "base/Url.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// Opens things as the desktop does. A failure is silent here but for one line in the log.
/// Nothing blocks. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;
    /// Opens a folder in the file manager, a document in its default application and any other
    /// URL in its scheme's handler; starts an application.
    virtual void open(Url const& url) = 0;
    /// Shows the file selected in the file manager.
    virtual void reveal(Url const& fileURL) = 0;
    [[nodiscard]] virtual std::optional<Url> applicationWithIdentifier(std::string_view identifier) const = 0;
    /// Starts a new instance even if one is running. `done` gets a whole sentence as the
    /// reason of a failure; on the main thread.
    virtual void openNewInstance(Url const& application, std::function<void(Result<void>)> done) = 0;
};

} // namespace zv
