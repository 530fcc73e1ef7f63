#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// A 128-bit identity. Its text has upper-case digits in the groups 8-4-4-4-12.
class Uuid {
public:
    Uuid() = default; ///< all zero

    [[nodiscard]] static Uuid random();
    /// Reads the standard text form, in either case; else empty.
    [[nodiscard]] static std::optional<Uuid> parse(std::string_view text);

    [[nodiscard]] std::string toString() const;
    [[nodiscard]] std::array<std::uint8_t, 16> const& bytes() const { return m_bytes; }

    friend bool operator==(Uuid const&, Uuid const&) = default;
    // Written out, as not every standard library compares arrays three ways.
    friend std::strong_ordering operator<=>(Uuid const& a, Uuid const& b) { return std::memcmp(a.m_bytes.data(), b.m_bytes.data(), a.m_bytes.size()) <=> 0; }

private:
    std::array<std::uint8_t, 16> m_bytes {};
};

} // namespace zv

template <> struct std::hash<zv::Uuid> {
    std::size_t operator()(zv::Uuid const& uuid) const noexcept;
};
