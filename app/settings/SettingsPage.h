#pragma once

#include "app/model/KeyEquivalentSpec.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// A settings page as plain values: the front ends draw its rows with their own controls.
namespace zv {

struct SettingsChoice {
    std::string title;
    std::int64_t value = 0;
    friend bool operator==(SettingsChoice const&, SettingsChoice const&) = default;
};

struct SettingsRow {
    enum class Kind {
        toggle, ///< title, isOn, toggle
        choice, ///< title, choices, value, choose
        shortcut, ///< title, shortcut, record
        button, ///< title, press
        pullDown, ///< title, choices, choose: a button that offers commands, and keeps its title
        note, ///< title alone, in smaller type
    };

    Kind kind = Kind::note;
    std::string id; ///< stable; for tests, and to keep the focus while rows change
    std::string title;
    std::string help; ///< a tooltip, and the control's accessible description
    bool isEnabled = true;
    bool isIndented = false; ///< belongs to the row above
    bool isOn = false;
    std::int64_t value = 0;
    std::vector<SettingsChoice> choices;
    std::optional<KeyEquivalentSpec> shortcut;
    std::function<void(bool)> toggle;
    std::function<void(std::int64_t)> choose;
    std::function<void(std::optional<KeyEquivalentSpec> const&)> record;
    std::function<void()> press;
};

struct SettingsSection {
    std::string title;
    std::vector<SettingsRow> rows;

    /// The text before the first row.
    [[nodiscard]] std::string heading() const;
};

/// Equal for pages with the same controls: equal section titles, row ids and kinds.
[[nodiscard]] std::string shapeOf(std::vector<SettingsSection> const& sections);

/// "2 levels": how deep something looks into folders.
[[nodiscard]] SettingsChoice choiceOfLevels(std::int64_t levels);

/// Inserts the stored value into the offered choices, in order, if it is missing: a custom value is
/// shown and kept.
[[nodiscard]] std::vector<SettingsChoice> choicesWith(std::int64_t stored, std::vector<SettingsChoice> offered);

} // namespace zv
