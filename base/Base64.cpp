#include "base/Base64.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace zv {

namespace {

constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t noDigit = 64;

constexpr std::array<std::uint8_t, 256> valuesOfDigits()
{
    std::array<std::uint8_t, 256> values {};
    values.fill(noDigit);
    for (std::size_t i = 0; i < digits.size(); ++i)
        values[static_cast<unsigned char>(digits[i])] = static_cast<std::uint8_t>(i);
    return values;
}

constexpr auto values = valuesOfDigits();

} // namespace

std::string toBase64(std::span<std::byte const> bytes)
{
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        auto const count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (k < count ? static_cast<std::uint32_t>(bytes[i + k]) : 0);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= count ? digits[(group >> (18 - 6 * k)) & 0x3F] : '=';
    }
    return text;
}

std::optional<std::vector<std::byte>> fromBase64(std::string_view text)
{
    if (text.size() % 4 != 0)
        return std::nullopt;
    auto const padding = text.ends_with("==") ? 2U : text.ends_with('=') ? 1U : 0U;
    text.remove_suffix(padding);
    std::vector<std::byte> bytes;
    bytes.reserve(text.size() * 3 / 4);
    std::uint32_t bits = 0;
    int bitCount = 0;
    for (char const c : text) {
        auto const value = values[static_cast<unsigned char>(c)];
        if (value == noDigit)
            return std::nullopt;
        bits = bits << 6 | value;
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            bytes.push_back(static_cast<std::byte>(bits >> bitCount));
        }
    }
    return bytes;
}

} // namespace zv
