#pragma once

#include "app/menu/Menu.h"
#include "base/Url.h"
#include "platform/session/Workspace.h"

#include <memory>
#include <optional>
#include <vector>

namespace zv {

/// The menus of entries themselves, which a right click opens. They are made when they are asked
/// for: most entries never show theirs. Main thread only.
class EntryMenus {
public:
    virtual ~EntryMenus() = default;
    /// An entry of the same title whose submenu is the entry's own menu, filled when it opens; no
    /// submenu where there is nothing to do.
    [[nodiscard]] virtual MenuEntry menuOf(MenuEntry const& entry) const = 0;
    /// Opens the folder that the entry's submenu lists; null for other entries.
    [[nodiscard]] virtual std::shared_ptr<MenuActionTarget> openingOf(EntrySubject const& subject) const = 0;
    /// The file that the entry stands for, and its folder where it is one; nothing for others.
    [[nodiscard]] virtual std::optional<Url> fileOf(EntrySubject const& subject) const = 0;
    [[nodiscard]] virtual std::optional<Url> folderOf(EntrySubject const& subject) const = 0;
    /// Puts files that were dropped on a folder's entry into it.
    virtual void drop(std::vector<Url> const& files, Url const& folder, FileTransfer how) const = 0;
    /// Adds what Option shows above the entries of the subject's own submenu, and a separator.
    virtual void addHead(Menu& submenu, EntrySubject const& subject) const = 0;
};

} // namespace zv
