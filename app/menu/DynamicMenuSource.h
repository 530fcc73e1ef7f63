#pragma once

#include "app/model/FolderChoices.h"
#include "app/model/ItemLocation.h"
#include "app/model/MenuItemKind.h"
#include "base/Url.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <variant>

namespace zv {

/// An item's choices, which the folders within its folder share.
using FolderChoicesRef = std::shared_ptr<FolderChoices const>;

/// The source of a self-filling submenu.
struct DynamicMenuSource {
    struct List {
        MenuItemKind kind;
        std::optional<ItemLocation> location;
        std::int64_t depth;
        friend bool operator==(List const&, List const&) = default;
    };
    struct Folder {
        Url url;
        std::int64_t depth; ///< levels of subfolders that may still become submenus
        FolderChoicesRef choices {}; ///< null: as the preferences say
        friend bool operator==(Folder const&, Folder const&) = default;
    };

    /// A script whose output is the menu.
    struct Script {
        Url url;
        std::int64_t depth = 0; ///< lists no folders
        friend bool operator==(Script const&, Script const&) = default;
    };

    [[nodiscard]] static DynamicMenuSource kind(MenuItemKind kind, std::optional<ItemLocation> location, std::int64_t depth)
    {
        return { List { std::move(kind), std::move(location), depth } };
    }
    [[nodiscard]] static DynamicMenuSource folder(Url url, std::int64_t depth, FolderChoicesRef choices = {})
    {
        return { Folder { std::move(url), depth, std::move(choices) } };
    }

    [[nodiscard]] static DynamicMenuSource script(Url url) { return { Script { std::move(url) } }; }

    std::variant<List, Folder, Script> value;

    friend bool operator==(DynamicMenuSource const&, DynamicMenuSource const&) = default;
};

} // namespace zv
