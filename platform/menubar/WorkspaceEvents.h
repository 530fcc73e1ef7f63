#pragma once

#include <functional>

namespace zv {

/// Events of the desktop as a whole. Each callback is set by its one user. Main thread only.
class WorkspaceEvents {
public:
    virtual ~WorkspaceEvents() = default;
    std::function<void()> onActiveSpaceChanged;
    std::function<void()> onApplicationActivated;
};

} // namespace zv
