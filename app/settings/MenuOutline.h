#pragma once

#include "app/hotkeys/HotkeyCenter.h"
#include "app/model/MenuStore.h"
#include "app/settings/SettingsTexts.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// What the editor's outline shows of one item.
struct OutlineRow {
    std::string title;
    bool isSeparator = false;
    bool isDimmed = false; ///< hidden, or cannot act
    std::string shortcut; ///< glyph text; empty for none
    std::string badge; ///< why something is wrong, as a sentence; empty when all is well

    /// In the colour of what is less important.
    [[nodiscard]] bool isFaint() const { return isDimmed || isSeparator; }
    /// A separator's is a line.
    [[nodiscard]] std::string shownTitle() const { return isSeparator ? settingsTexts::separatorLine : title; }
    /// For assistive tools.
    [[nodiscard]] std::string spokenTitle() const { return isSeparator ? settingsTexts::separator : title; }
};

/// Describes items with what the store and the hotkeys know of them. Main thread only.
class MenuOutline {
public:
    struct Services {
        MenuStore const& store;
        HotkeyCenter const& hotkeys;
    };

    explicit MenuOutline(Services services)
        : m_services(services)
    {
    }

    [[nodiscard]] OutlineRow row(MenuItem const& item) const;

private:
    [[nodiscard]] std::string badgeOf(MenuItem const& item) const;
    [[nodiscard]] std::string conflictOf(MenuItem const& item) const;

    Services m_services;
};

} // namespace zv
