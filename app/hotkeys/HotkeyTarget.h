#pragma once

#include "base/Url.h"
#include "base/Uuid.h"

#include <compare>
#include <cstddef>
#include <functional>
#include <utility>
#include <variant>

namespace zv {

/// A hotkey's target: the menu itself, an item of it, or a file whose name carries the shortcut.
class HotkeyTarget {
public:
    [[nodiscard]] static HotkeyTarget menu() { return HotkeyTarget(WholeMenu {}); }
    [[nodiscard]] static HotkeyTarget item(Uuid const& id) { return HotkeyTarget(id); }
    [[nodiscard]] static HotkeyTarget file(Url url) { return HotkeyTarget(std::move(url)); }

    [[nodiscard]] bool isMenu() const { return std::holds_alternative<WholeMenu>(m_value); }
    /// Null when the target is of another case.
    [[nodiscard]] Uuid const* itemID() const { return std::get_if<Uuid>(&m_value); }
    [[nodiscard]] Url const* fileURL() const { return std::get_if<Url>(&m_value); }

    friend bool operator==(HotkeyTarget const&, HotkeyTarget const&) = default;
    friend std::strong_ordering operator<=>(HotkeyTarget const& a, HotkeyTarget const& b)
    {
        if (a.m_value.index() != b.m_value.index() || a.isMenu())
            return a.m_value.index() <=> b.m_value.index();
        return a.itemID() ? *a.itemID() <=> *b.itemID() : *a.fileURL() <=> *b.fileURL();
    }

private:
    struct WholeMenu {
        friend bool operator==(WholeMenu const&, WholeMenu const&) = default;
    };
    template <class Value>
    explicit HotkeyTarget(Value value)
        : m_value(std::move(value))
    {
    }
    std::variant<WholeMenu, Uuid, Url> m_value;
};

} // namespace zv

template <> struct std::hash<zv::HotkeyTarget> {
    std::size_t operator()(zv::HotkeyTarget const& target) const noexcept
    {
        if (target.isMenu())
            return 0;
        return target.itemID() ? std::hash<zv::Uuid>()(*target.itemID()) : std::hash<zv::Url>()(*target.fileURL()) * 31;
    }
};
