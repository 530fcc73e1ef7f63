#pragma once

#include "app/model/MenuItem.h"
#include "app/model/Preferences.h"
#include "app/settings/SettingsPage.h"

#include <optional>
#include <string>
#include <vector>

namespace zv {

/// The depth choice that stands for the preference.
inline constexpr std::int64_t depthOfPreference = -1;

/// The inspector's fields for the selected item: only those that apply to it.
struct InspectorFields {
    std::string kindTitle; ///< "Folder or file", "Separator" …
    bool hasTitle = false;
    std::string title; ///< empty without a title of its own
    std::string titlePlaceholder; ///< shown instead of an empty title
    bool hasTarget = false;
    std::string targetPath; ///< empty if unknown
    bool targetIsMissing = false;
    std::string chooseTitle; ///< of the button that chooses another target
    bool hasDepth = false;
    std::optional<std::int64_t> depth; ///< none: as in the General tab
    std::vector<SettingsChoice> depthChoices; ///< includes a stored value outside the offered ones
    /// The current choice.
    [[nodiscard]] std::int64_t depthChoice() const { return depth.value_or(depthOfPreference); }
    bool hasListing = false; ///< a folder's order and choice
    std::string listing; ///< said in a few words
    bool hasPicture = false; ///< whether one can be chosen
    bool hasOwnPicture = false;
    std::string picture; ///< the current one in words
    std::string pictureIcon; ///< the name of the icon that the user chose; empty for none
    bool canHide = false;
    bool isHidden = false;
    bool hasShortcut = false;
    std::optional<KeyEquivalentSpec> shortcut;
    std::string shortcutNote; ///< who else has the shortcut, or what it takes from other programs; filled in by the models, as the next
    std::optional<Uuid> shortcutOwner; ///< the item that has it
    std::string note; ///< why the item cannot act; empty when it can
};

/// What is known of the file that an item points at.
struct TargetFacts {
    bool isMissing = false;
    bool mayBeFolder = true;
};

/// The depth that a choice stores; empty for the preference.
[[nodiscard]] std::optional<std::int64_t> depthOfChoice(std::int64_t choice);

[[nodiscard]] InspectorFields inspectorFields(MenuItem const& item, Preferences const& preferences, TargetFacts target);

} // namespace zv
