#pragma once

#include "app/model/KeyEquivalentSpec.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// The directives in a file's name: an ordering prefix ("01)Mail"), a separator ("-***"), a
/// shortcut ("Example-*[cmd+opt+E]*.app"). Reads any bytes.
struct FinderPopName {
    std::string title; ///< without prefix and annotation; empty for a separator
    std::string sortName; ///< the given name, unchanged
    bool isSeparator = false;
    std::optional<KeyEquivalentSpec> hotkey;
    std::optional<std::string> orderingPrefix; ///< three characters, such as "01)"

    FinderPopName() = default;
    explicit FinderPopName(std::string_view name);

    friend bool operator==(FinderPopName const&, FinderPopName const&) = default;

private:
    void readMarks(std::string_view name);
};

[[nodiscard]] std::size_t hashValue(FinderPopName const& name);

/// Parses the text between the brackets: "cmd+opt+E". Empty when it is no shortcut.
[[nodiscard]] std::optional<KeyEquivalentSpec> parseShortcutText(std::string_view text);

} // namespace zv
