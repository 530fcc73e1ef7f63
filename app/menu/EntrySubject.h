#pragma once

#include "base/Uuid.h"

#include <memory>
#include <optional>

namespace zv {

class EntryMenus;
struct DynamicEntry;

/// The thing that an entry of a menu stands for, on which the entry's own menu acts.
struct EntrySubject {
    EntryMenus const* menus = nullptr; ///< null: the entry has no menu of its own
    std::shared_ptr<DynamicEntry const> entry; ///< a file, a folder or a running application; null for others
    std::optional<Uuid> item; ///< an item of the user's menu
};

} // namespace zv
