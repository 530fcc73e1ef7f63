#pragma once

#include "app/model/ItemLocation.h"
#include "app/model/MenuItemKind.h"
#include "base/Url.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <variant>

namespace zv {

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
        friend bool operator==(Folder const&, Folder const&) = default;
    };

    [[nodiscard]] static DynamicMenuSource kind(MenuItemKind kind, std::optional<ItemLocation> location, std::int64_t depth)
    {
        return { List { std::move(kind), std::move(location), depth } };
    }
    [[nodiscard]] static DynamicMenuSource folder(Url url, std::int64_t depth) { return { Folder { std::move(url), depth } }; }

    std::variant<List, Folder> value;

    friend bool operator==(DynamicMenuSource const&, DynamicMenuSource const&) = default;
};

} // namespace zv
