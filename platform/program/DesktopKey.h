#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zv {

/// The key that the desktop's own settings have for our menu, for desktops where programs have no keys of their own.
/// Main thread only.
class DesktopKey {
public:
    struct Combination {
        std::string key; ///< what it types without modifiers, in lower case; the name of one that types nothing, such as "f5" and "esc"
        bool isNamed = false;
        std::uint32_t modifiers = 0; ///< of KeyModifier
        friend bool operator==(Combination const&, Combination const&) = default;
    };
    struct State {
        bool isOffered = false; ///< the desktop has such keys
        std::optional<Combination> value {};
    };

    virtual ~DesktopKey() = default;
    [[nodiscard]] virtual State state() const = 0;
    /// The title of another of the desktop's bindings that has the combination already.
    [[nodiscard]] virtual std::optional<std::string> holderOf(Combination const& combination) const = 0;
    /// Without a value takes our key out again, and touches no other. False when the desktop does not let the user do so.
    virtual bool set(std::optional<Combination> const& value) = 0;
};

} // namespace zv
