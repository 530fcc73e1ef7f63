#pragma once

#include "app/menu/DynamicEntry.h"
#include "app/model/MenuItem.h"
#include "base/Url.h"

#include <functional>

namespace zv {

/// Requests from a menu's chosen entries. Main thread only.
class MenuCommands {
public:
    virtual ~MenuCommands() = default;
    /// Runs requests that a shortcut made: what it holds down opens, and reveals nothing.
    virtual void byShortcut(std::function<void()> const& requests) = 0;
    /// False when nothing was done.
    virtual bool perform(MenuItem const& item) = 0;
    virtual void open(Url const& url) = 0;
    virtual void open(DynamicEntry const& entry) = 0;
    virtual void openSettingsWindow() = 0;
    virtual void terminate() = 0;
    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;
    virtual void checkForUpdates() = 0;
};

} // namespace zv
