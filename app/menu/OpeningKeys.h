#pragma once

#include "app/menu/OptionKey.h"
#include "platform/desk/ModifierKeys.h"

#include <utility>

namespace zv {

/// Whether Option counts for a menu that is about to open: not for one opened by a shortcut, whose
/// own keys are still held. Main thread only.
class OpeningKeys {
public:
    /// `keys` outlives this.
    explicit OpeningKeys(ModifierKeys const& keys)
        : m_keys(keys)
    {
    }

    /// Asked once by each menu that opens.
    [[nodiscard]] OptionKey option()
    {
        bool const counts = !std::exchange(m_isByShortcut, false);
        return counts && contains(m_keys.current(), ModifierMask::option) ? OptionKey::held : OptionKey::released;
    }
    /// The menu that opens next is opened by a shortcut.
    void expectShortcut() { m_isByShortcut = true; }

private:
    ModifierKeys const& m_keys;
    bool m_isByShortcut = false;
};

} // namespace zv
