#pragma once

#include "app/menu/Menu.h"
#include "platform/desk/ModifierKeys.h"

#include <string>
#include <vector>

namespace zv {

/// Does what the entries of an unseen menu say.
class EntryChooser {
public:
    virtual ~EntryChooser() = default;
    /// Returns when all that choosing the entry started has ended; gives what the user would
    /// have been told went wrong.
    [[nodiscard]] virtual std::vector<std::string> choose(MenuEntry const& entry, ModifierMask held) = 0;
};

} // namespace zv
