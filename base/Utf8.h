#pragma once

#include <string>

namespace zv {

/// Appends the character; ignores surrogates and numbers beyond the last character.
inline void appendUtf8(std::string& text, char32_t c)
{
    auto const isCharacter = c < 0xD800 || (c > 0xDFFF && c <= 0x10FFFF);
    auto const append = [&](char32_t byte) { text += static_cast<char>(byte); };
    auto const appendTail = [&](int shift) { append(0x80 | ((c >> shift) & 0x3F)); };
    if (!isCharacter)
        return;
    if (c < 0x80)
        return append(c);
    if (c < 0x800) {
        append(0xC0 | (c >> 6));
    } else if (c < 0x10000) {
        append(0xE0 | (c >> 12));
        appendTail(6);
    } else {
        append(0xF0 | (c >> 18));
        appendTail(12);
        appendTail(6);
    }
    appendTail(0);
}

} // namespace zv
