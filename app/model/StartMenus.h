#pragma once

#include "app/model/MenuItem.h"
#include "platform/System.h"

#include <string>
#include <vector>

namespace zv {

class MenuStore;

/// A menu to start from, and what it is for; in the user's language.
struct StartMenu {
    std::string title;
    std::string description;
    std::vector<MenuItem> items;
};

/// The menus to start from, the default one first: an administrator's, then those that come with the program. Their items
/// are those of the library, so each is one that this system has; folders that are not there are left out.
[[nodiscard]] std::vector<StartMenu> startMenus(MenuStore const& store, System const& system);

} // namespace zv
