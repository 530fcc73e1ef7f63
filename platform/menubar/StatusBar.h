#pragma once

#include "base/Url.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zv {

class Menu;

using FilesDropped = std::function<void(std::vector<Url>)>;

/// An icon among the status icons; destroying it removes it.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// Called in a turn of its own when the user has taken the icon away by the system's own means.
    std::function<void()> onRemoved;
};

/// The system's row of status icons. Main thread only.
class StatusBar {
public:
    virtual ~StatusBar() = default;
    /// Adds a square item with our laurel, called `name`; a click on it opens `menu`, which is
    /// asked to fill itself each time. Files that are dropped on it are handed over, where the
    /// system tells of them.
    [[nodiscard]] virtual std::unique_ptr<StatusItem> add(std::string const& name, std::shared_ptr<Menu> menu, FilesDropped dropped) = 0;
};

} // namespace zv
