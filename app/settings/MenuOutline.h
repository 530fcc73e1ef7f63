#pragma once

#include "app/hotkeys/HotkeyCenter.h"
#include "app/model/MenuStore.h"
#include "app/settings/SettingsTexts.h"
#include "platform/SystemKind.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zv {

/// An item's row in the editor's outline.
struct OutlineRow {
    std::string title;
    bool isSeparator = false;
    bool isDimmed = false; ///< hidden, or cannot act
    std::string shortcut; ///< glyph text; empty for none
    std::string badge; ///< the problem, as a sentence; empty when there is none

    /// True for rows drawn in the secondary colour.
    [[nodiscard]] bool isFaint() const { return isDimmed || isSeparator; }
    /// The title as drawn; a separator's is a line.
    [[nodiscard]] std::string shownTitle() const { return isSeparator ? settingsTexts::separatorLine : title; }
    /// The title for assistive tools.
    [[nodiscard]] std::string spokenTitle() const { return isSeparator ? tr(settingsTexts::separator) : title; }
};

/// What is to be said beside an item's recorder.
struct ShortcutNote {
    std::string text; ///< empty for nothing
    std::optional<Uuid> owner; ///< the item that has the combination
};

/// Describes items, using the store and the hotkeys. Main thread only.
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
    /// Who else has the combination, else what it takes from other programs.
    [[nodiscard]] ShortcutNote shortcutNote(MenuItem const& item, SystemKind system) const;

private:
    [[nodiscard]] std::string badgeOf(MenuItem const& item) const;
    [[nodiscard]] ShortcutNote conflictOf(MenuItem const& item) const;
    [[nodiscard]] ShortcutNote ownedBy(HotkeyTarget const& owner) const;

    Services m_services;
};

} // namespace zv
