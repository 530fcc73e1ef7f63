#pragma once

#include "app/menu/Menu.h"
#include "platform/desk/ModifierKeys.h"

#include <string>
#include <vector>

namespace zv {

/// Carries out entries of a menu without a display.
class EntryChooser {
public:
    virtual ~EntryChooser() = default;
    /// Returns when all work started by the entry has ended; gives the failures that the user would have seen.
    [[nodiscard]] virtual std::vector<std::string> choose(MenuEntry const& entry, ModifierMask held) = 0;
};

} // namespace zv
