#include "base/Uuid.h"

#include <cstring>
#include <random>

namespace zv {

namespace {

std::mt19937_64& generator()
{
    thread_local std::mt19937_64 engine = [] {
        std::random_device device;
        std::seed_seq seed { device(), device(), device(), device(), device(), device(), device(), device() };
        return std::mt19937_64(seed);
    }();
    return engine;
}

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

bool isHyphenPosition(std::size_t position) { return position == 8 || position == 13 || position == 18 || position == 23; }

} // namespace

Uuid Uuid::random()
{
    Uuid uuid;
    std::uint64_t const words[2] = { generator()(), generator()() };
    std::memcpy(uuid.m_bytes.data(), words, sizeof words);
    uuid.m_bytes[6] = static_cast<std::uint8_t>((uuid.m_bytes[6] & 0x0F) | 0x40); // version 4
    uuid.m_bytes[8] = static_cast<std::uint8_t>((uuid.m_bytes[8] & 0x3F) | 0x80); // RFC 4122 variant
    return uuid;
}

std::optional<Uuid> Uuid::parse(std::string_view text)
{
    if (text.size() != 36)
        return std::nullopt;
    Uuid uuid;
    std::size_t nibble = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isHyphenPosition(i)) {
            if (text[i] != '-')
                return std::nullopt;
            continue;
        }
        int const value = hexValue(text[i]);
        if (value < 0)
            return std::nullopt;
        auto& byte = uuid.m_bytes[nibble / 2];
        byte = static_cast<std::uint8_t>(nibble % 2 == 0 ? value << 4 : byte | value);
        ++nibble;
    }
    return uuid;
}

std::string Uuid::toString() const
{
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text(36, '-');
    auto* at = text.data();
    for (std::size_t i = 0; i < m_bytes.size(); ++i) {
        if (isHyphenPosition(static_cast<std::size_t>(at - text.data())))
            ++at;
        *at++ = digits[m_bytes[i] >> 4];
        *at++ = digits[m_bytes[i] & 0x0F];
    }
    return text;
}

} // namespace zv

std::size_t std::hash<zv::Uuid>::operator()(zv::Uuid const& uuid) const noexcept
{
    std::uint64_t words[2];
    std::memcpy(words, uuid.bytes().data(), sizeof words);
    return static_cast<std::size_t>(words[0] ^ (words[1] * 0x9E3779B97F4A7C15ULL));
}
