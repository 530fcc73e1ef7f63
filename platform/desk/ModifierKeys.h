#pragma once

#include <cstdint>

namespace zv {

/// Modifier keys as bits, with the values that menus have used since their beginning.
enum class ModifierMask : std::uint32_t {
    none = 0,
    shift = 0x20000,
    control = 0x40000,
    option = 0x80000,
    command = 0x100000,
};

[[nodiscard]] constexpr ModifierMask operator|(ModifierMask a, ModifierMask b)
{
    return static_cast<ModifierMask>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}
constexpr ModifierMask& operator|=(ModifierMask& a, ModifierMask b) { return a = a | b; }
[[nodiscard]] constexpr bool contains(ModifierMask set, ModifierMask flag) { return (static_cast<std::uint32_t>(set) & static_cast<std::uint32_t>(flag)) != 0; }

/// The modifier keys held down, in the program's terms: a front end may let other
/// keys stand for these. Main thread only.
class ModifierKeys {
public:
    virtual ~ModifierKeys() = default;
    /// The keys held now; asked when a menu is about to open.
    [[nodiscard]] virtual ModifierMask current() const = 0;
    /// The keys of the event that chose the entry being performed.
    [[nodiscard]] virtual ModifierMask ofCurrentEvent() const = 0;
};

} // namespace zv
