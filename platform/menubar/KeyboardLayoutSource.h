#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace zv {

/// The text that each virtual key code from 0 to 127 types without modifiers; empty for none.
inline constexpr std::size_t keyCodeCount = 128;
using KeyTexts = std::array<std::string, keyCodeCount>;

/// The texts that keys type. Main thread only, callbacks too.
class KeyboardLayoutSource {
public:
    virtual ~KeyboardLayoutSource() = default;
    /// The user's current layout, then those that lend it the characters it lacks (a Russian
    /// layout has no Latin letters, yet Control-C is typed on it every day). Empty when the
    /// system does not tell.
    [[nodiscard]] virtual std::vector<KeyTexts> layers() = 0;
    /// Called once a change, and only when layers() answers differently than it last did.
    std::function<void()> onChanged;
};

} // namespace zv
