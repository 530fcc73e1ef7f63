#include "app/menu/DisplayText.h"

#include "platform/text/Text.h"

#include <array>
#include <cstdint>

namespace zv {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD"; // U+FFFD

enum ByteMark : std::uint8_t { plain = 0, beyondAscii = 1, doubtful = 2 }; // doubtful: a control, or the first byte of what is replaced

constexpr std::array<std::uint8_t, 256> byteMarks = [] {
    std::array<std::uint8_t, 256> marks {};
    for (std::size_t byte = 0; byte < marks.size(); ++byte) {
        bool const isDoubtful = byte < 0x20 || byte == 0x7F || byte == 0xC2 || byte == 0xE2;
        marks[byte] = isDoubtful ? doubtful : byte < 0x80 ? plain : beyondAscii;
    }
    return marks;
}();

/// True for nearly all names: valid UTF-8 in which nothing is replaced.
bool isPlain(std::string_view text)
{
    unsigned marks = plain;
    for (unsigned char const byte : text)
        marks |= byteMarks[byte];
    return marks == plain || (marks == beyondAscii && isValidUtf8(text));
}

/// A control character's picture: U+2400 and the character's number.
std::string controlPicture(unsigned char c)
{
    int const number = c == 0x7F ? 0x21 : c;
    return { '\xE2', '\x90', static_cast<char>(0x80 + number) };
}

/// U+0080 to U+009F.
bool isC1Control(std::string_view character) { return character[0] == '\xC2' && static_cast<unsigned char>(character[1]) < 0xA0; }

/// U+2028, U+2029: line and paragraph separators; U+202A to U+202E: embeddings and overrides.
bool isLineBreakOrDirectionTurn(std::string_view character)
{
    return character.starts_with("\xE2\x80") && static_cast<unsigned char>(character[2]) >= 0xA8 && static_cast<unsigned char>(character[2]) <= 0xAE;
}

constexpr std::string_view endOfIsolate = "\xE2\x81\xA9"; // U+2069

/// U+2066 to U+2068.
bool isIsolate(std::string_view character) { return character >= "\xE2\x81\xA6" && character < endOfIsolate; }

std::size_t lengthOfCharacter(char first)
{
    auto const byte = static_cast<unsigned char>(first);
    if (byte < 0x80)
        return 1;
    if (byte < 0xE0)
        return 2;
    return byte < 0xF0 ? 3 : 4;
}

void appendShown(std::string& shown, std::string_view character)
{
    auto const first = static_cast<unsigned char>(character[0]);
    if (first < 0x20 || first == 0x7F)
        shown += controlPicture(first);
    else if (isC1Control(character) || isLineBreakOrDirectionTurn(character))
        shown += replacement;
    else
        shown += character;
}

} // namespace

std::string displayText(std::string_view name)
{
    if (isPlain(name))
        return std::string(name);
    auto const valid = withValidUtf8(name);
    std::string shown;
    shown.reserve(valid.size());
    std::size_t openIsolates = 0;
    for (std::size_t i = 0; i < valid.size();) {
        auto const character = std::string_view(valid).substr(i, lengthOfCharacter(valid[i]));
        openIsolates += isIsolate(character) ? 1 : 0;
        bool const endsNothing = character == endOfIsolate && openIsolates == 0;
        openIsolates -= character == endOfIsolate && !endsNothing ? 1 : 0;
        appendShown(shown, endsNothing ? replacement : character);
        i += character.size();
    }
    for (; openIsolates > 0; --openIsolates)
        shown += endOfIsolate; // so that it turns nothing that follows
    return shown;
}

} // namespace zv
