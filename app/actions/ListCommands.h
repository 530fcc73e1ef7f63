#pragma once

#include <string>

namespace zv {

/// Requests from the entries of the shortcuts' submenu. Main thread only.
class ShortcutCommands {
public:
    virtual ~ShortcutCommands() = default;
    virtual void runShortcut(std::string const& id, std::string const& name) = 0;
};

/// Requests from the entries of the network locations' submenu. Main thread only.
class LocationCommands {
public:
    virtual ~LocationCommands() = default;
    virtual void selectLocation(std::string const& id, std::string const& name) = 0;
};

} // namespace zv
