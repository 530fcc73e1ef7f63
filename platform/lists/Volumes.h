#pragma once

#include "base/Url.h"

#include <functional>
#include <string>
#include <vector>

namespace zv {

struct Volume {
    Url root; ///< a file URL, or the file manager's URL for a share without a path
    std::string label; ///< empty when it has none
    bool isBoot = false;
};

/// The mounted volumes shown to a user. Main thread only, callbacks too.
class Volumes {
public:
    virtual ~Volumes() = default;
    /// Calls `done` once: before it returns, or later. Never touches a volume.
    virtual void list(std::function<void(std::vector<Volume>)> done) = 0;
};

} // namespace zv
