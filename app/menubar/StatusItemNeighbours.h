#pragma once

#include "app/menu/OptionKey.h"
#include "app/model/MenuItem.h"
#include "base/Url.h"
#include "base/Uuid.h"
#include "platform/files/FolderReader.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/// The few things that the status item's controller asks of the rest of the program.
/// All are called on the main thread.
namespace zv {

class Menu;

/// Empties a menu and fills it from the user's items.
class MenuFiller {
public:
    virtual ~MenuFiller() = default;
    virtual void fill(Menu& menu, std::vector<MenuItem> const& items, OptionKey option) = 0;
};

/// Starts the queries that the lists of a tree need.
class ListsRefresher {
public:
    virtual ~ListsRefresher() = default;
    virtual void refreshLists(std::vector<MenuItem> const& items) = 0;
};

/// The global hotkeys, registered in whole passes.
class HotkeyPasses {
public:
    virtual ~HotkeyPasses() = default;
    /// Called with the item or the file whose hotkey was pressed.
    virtual void setTriggerHandlers(std::function<void(Uuid const&)> item, std::function<void(Url const&)> file) = 0;
    virtual void setMenuItems(std::vector<MenuItem> const& items) = 0;
    virtual void reregister() = 0;
};

/// Tells when the keys of the keyboard type other characters than before.
class KeyboardLayoutChanges {
public:
    virtual ~KeyboardLayoutChanges() = default;
    /// Listens as long as the answer lives.
    [[nodiscard]] virtual std::shared_ptr<void> listen(std::function<void()> onChange) = 0;
};

/// Looks for the shortcuts that file names carry.
class FileHotkeyPrescan {
public:
    virtual ~FileHotkeyPrescan() = default;
    [[nodiscard]] virtual std::vector<Url> foldersToScan(std::vector<MenuItem> const& items) const = 0;
    /// Scans them off the main thread, then registers what was found, if anything was. A scan
    /// that runs already goes on; the last result to arrive stands.
    virtual void scan(std::vector<Url> folders, std::int64_t depth, HiddenFiles hiddenFiles) = 0;
};

} // namespace zv
