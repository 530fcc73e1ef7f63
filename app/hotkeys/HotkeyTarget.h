#pragma once

#include "base/Url.h"
#include "base/Uuid.h"

#include <compare>
#include <cstddef>
#include <functional>
#include <utility>
#include <variant>

namespace zv {

/// A hotkey's target: an item of the menu, or a file whose name carries the shortcut.
class HotkeyTarget {
public:
    [[nodiscard]] static HotkeyTarget item(Uuid const& id) { return HotkeyTarget(id); }
    [[nodiscard]] static HotkeyTarget file(Url url) { return HotkeyTarget(std::move(url)); }

    /// Null when the target is of the other case.
    [[nodiscard]] Uuid const* itemID() const { return std::get_if<Uuid>(&m_value); }
    [[nodiscard]] Url const* fileURL() const { return std::get_if<Url>(&m_value); }

    friend bool operator==(HotkeyTarget const&, HotkeyTarget const&) = default;
    friend std::strong_ordering operator<=>(HotkeyTarget const& a, HotkeyTarget const& b)
    {
        if (a.m_value.index() != b.m_value.index())
            return a.m_value.index() <=> b.m_value.index();
        return a.itemID() ? *a.itemID() <=> *b.itemID() : *a.fileURL() <=> *b.fileURL();
    }

private:
    template <class Value>
    explicit HotkeyTarget(Value value)
        : m_value(std::move(value))
    {
    }
    std::variant<Uuid, Url> m_value;
};

} // namespace zv

template <> struct std::hash<zv::HotkeyTarget> {
    std::size_t operator()(zv::HotkeyTarget const& target) const noexcept
    {
        return target.itemID() ? std::hash<zv::Uuid>()(*target.itemID()) : std::hash<zv::Url>()(*target.fileURL()) * 31;
    }
};
