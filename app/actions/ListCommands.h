#pragma once

#include <string>

namespace zv {

/// What the entries of the shortcuts' submenu ask for. Main thread only.
class ShortcutCommands {
public:
    virtual ~ShortcutCommands() = default;
    virtual void runShortcut(std::string const& id, std::string const& name) = 0;
};

/// What the entries of the network locations' submenu ask for. Main thread only.
class LocationCommands {
public:
    virtual ~LocationCommands() = default;
    virtual void selectLocation(std::string const& id, std::string const& name) = 0;
};

} // namespace zv
