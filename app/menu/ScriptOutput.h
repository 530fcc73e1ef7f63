#pragma once

#include "app/menu/TextColor.h"
#include "app/model/KeyEquivalentSpec.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

/// A line of a script's output as an entry of its menu. The format is that of the plug-ins of menu bars, as
/// github.com/swiftbar/SwiftBar and github.com/matryer/xbar document it: "Title | href=… bash=… key=…".
struct ScriptEntry {
    std::string title;
    bool isSeparator = false;
    bool isDisabled = false;
    bool isAlternate = false; ///< takes the place of the entry before it while Option is held
    std::string href;
    std::string program; ///< "bash" or "shell"
    std::vector<std::string> arguments; ///< "param0", "param1" …
    bool inTerminal = false;
    bool refreshes = false; ///< the script runs again once it was chosen
    std::optional<KeyEquivalentSpec> key;
    std::optional<TextColor> color;
    std::vector<ScriptEntry> children;

    [[nodiscard]] bool acts() const { return !isDisabled && (!href.empty() || !program.empty() || refreshes); }
    friend bool operator==(ScriptEntry const&, ScriptEntry const&) = default;
};

/// A script's output may be anything: what is beyond these is left out.
struct ScriptLimits {
    static constexpr std::size_t lines = 1000;
    static constexpr std::size_t lineLength = 4096;
    static constexpr std::size_t titleLength = 300; ///< in graphemes
    static constexpr std::size_t parameters = 64;
    static constexpr std::size_t depth = 8;
};

/// Reads any bytes. "---" is a separator, "--" before a title puts it into the submenu of the entry above.
[[nodiscard]] std::vector<ScriptEntry> parseScriptOutput(std::string_view output);

} // namespace zv
