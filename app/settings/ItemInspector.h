#pragma once

#include "app/model/MenuItem.h"
#include "app/model/Preferences.h"
#include "app/settings/SettingsPage.h"

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The value that stands for the preference among the depth choices.
inline constexpr std::int64_t depthOfPreference = -1;

/// What the inspector shows of the selected item: only what applies to it.
struct InspectorFields {
    std::string kindTitle; ///< "Folder or file", "Separator" …
    bool hasTitle = false;
    std::string title; ///< empty when the item has none of its own
    std::string titlePlaceholder; ///< what is shown then
    bool hasTarget = false;
    std::string targetPath; ///< empty when it was never known
    bool targetIsMissing = false;
    bool hasDepth = false;
    std::optional<std::int64_t> depth; ///< none: as in the General tab
    std::vector<SettingsChoice> depthChoices; ///< a stored value outside the offered ones is among them
    /// The one of the choices that stands.
    [[nodiscard]] std::int64_t depthChoice() const { return depth.value_or(depthOfPreference); }
    bool canHide = false;
    bool isHidden = false;
    bool hasShortcut = false;
    std::optional<KeyEquivalentSpec> shortcut;
    std::string note; ///< why the item cannot act; empty when it can
};

/// The depth that a choice stores; nothing for the preference.
[[nodiscard]] std::optional<std::int64_t> depthOfChoice(std::int64_t choice);

[[nodiscard]] InspectorFields inspectorFields(MenuItem const& item, Preferences const& preferences, bool targetIsMissing);

} // namespace zv
