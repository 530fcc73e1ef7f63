#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

namespace zv {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
/// The result of an xcb call; null after an error.
template <class T> using XReply = std::unique_ptr<T, FreeReply>;
using XProperty = XReply<xcb_get_property_reply_t>;

/// A property's value as 32-bit words; empty when absent or of another format.
[[nodiscard]] inline std::vector<std::uint32_t> wordsOf(XProperty const& property)
{
    if (!property || property->format != 32)
        return {};
    auto const* words = static_cast<std::uint32_t const*>(xcb_get_property_value(property.get()));
    return { words, words + property->value_len };
}

/// A property's value as bytes; empty when absent or of another format.
[[nodiscard]] inline std::string_view bytesOf(XProperty const& property)
{
    if (!property || property->format != 8)
        return {};
    return { static_cast<char const*>(xcb_get_property_value(property.get())), property->value_len };
}

/// Interns all names at once: every request before the first answer.
template <std::size_t N> [[nodiscard]] std::array<xcb_atom_t, N> internAtoms(xcb_connection_t* connection, std::array<char const*, N> const& names)
{
    std::array<xcb_intern_atom_cookie_t, N> cookies {};
    for (std::size_t i = 0; i < N; ++i)
        cookies[i] = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(names[i])), names[i]);
    std::array<xcb_atom_t, N> atoms {};
    for (std::size_t i = 0; i < N; ++i) {
        XReply<xcb_intern_atom_reply_t> const reply(xcb_intern_atom_reply(connection, cookies[i], nullptr));
        atoms[i] = reply ? reply->atom : xcb_atom_t { XCB_ATOM_NONE };
    }
    return atoms;
}

} // namespace zv
