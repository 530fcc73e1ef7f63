#include "platform/text/Text.h"

#import "platform/macos/cocoa/Conversions.h"

#include <cstdint>
#include <cstring>

namespace zv {

namespace {

/// The length in bytes of the well-formed sequence at the front, or 0.
std::size_t sequenceLength(std::string_view text)
{
    auto const byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    auto const continues = [&](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
    unsigned const first = byte(0);
    if (first < 0x80)
        return text.empty() ? 0 : 1;
    if (first >= 0xC2 && first <= 0xDF)
        return continues(1) ? 2 : 0;
    if ((first & 0xF0) == 0xE0) {
        bool const isOverlong = first == 0xE0 && byte(1) < 0xA0;
        bool const isSurrogate = first == 0xED && byte(1) >= 0xA0;
        return continues(1) && continues(2) && !isOverlong && !isSurrogate ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        bool const isOverlong = first == 0xF0 && byte(1) < 0x90;
        bool const isTooLarge = first == 0xF4 && byte(1) >= 0x90;
        return continues(1) && continues(2) && continues(3) && !isOverlong && !isTooLarge ? 4 : 0;
    }
    return 0;
}

/// The lengths in bytes of the first `count` characters.
std::vector<std::size_t> graphemeLengths(std::string_view text, std::size_t count)
{
    std::vector<std::size_t> lengths;
    NSString* const string = toNSString(text);
    NSUInteger position = 0;
    std::size_t used = 0;
    while (position < string.length && lengths.size() < count) {
        NSRange const range = [string rangeOfComposedCharacterSequenceAtIndex:position];
        auto const bytes = fromNSString([string substringWithRange:range]).size();
        // A replacement character stands for a single byte of the text.
        bool const isReplaced = bytes == 3 && sequenceLength(text.substr(used)) == 0;
        lengths.push_back(isReplaced ? 1 : bytes);
        used += lengths.back();
        position = NSMaxRange(range);
    }
    return lengths;
}

bool isInSet(std::string_view grapheme, NSCharacterSet* set)
{
    NSString* const string = toNSString(grapheme).decomposedStringWithCanonicalMapping;
    NSData* const bytes = [string dataUsingEncoding:NSUTF32LittleEndianStringEncoding];
    std::uint32_t first = 0;
    if (bytes.length < sizeof first)
        return false;
    std::memcpy(&first, bytes.bytes, sizeof first);
    return [set longCharacterIsMember:first];
}

/// The front of each sort key, equal in all, so that the rest is compared.
constexpr std::string_view undecidedStart("\0\0\0\0\0\0\0\0", 8);

NSStringCompareOptions searchOptions() { return NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch | NSWidthInsensitiveSearch; }

} // namespace

bool isValidUtf8(std::string_view text)
{
    while (!text.empty()) {
        auto const length = sequenceLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string withValidUtf8(std::string_view text)
{
    std::string valid;
    valid.reserve(text.size());
    while (!text.empty()) {
        auto const length = sequenceLength(text);
        valid += length == 0 ? std::string_view("\xEF\xBF\xBD") : text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return valid;
}

std::size_t graphemeCount(std::string_view text) { return graphemeLengths(text, SIZE_MAX).size(); }

std::optional<std::string_view> singleGrapheme(std::string_view text)
{
    auto const lengths = graphemeLengths(text, 2);
    return lengths.size() == 1 ? std::optional(text) : std::nullopt;
}

std::vector<std::string_view> firstGraphemes(std::string_view text, std::size_t count)
{
    std::vector<std::string_view> graphemes;
    for (auto const length : graphemeLengths(text, count)) {
        graphemes.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return graphemes;
}

std::string lowerCased(std::string_view text) { return fromNSString(toNSString(text).lowercaseString); }

std::string upperCased(std::string_view text) { return fromNSString(toNSString(text).uppercaseString); }

std::string_view trimmed(std::string_view text)
{
    NSCharacterSet* const whiteSpace = NSCharacterSet.whitespaceAndNewlineCharacterSet;
    auto const graphemes = firstGraphemes(text, SIZE_MAX);
    std::size_t first = 0;
    std::size_t last = graphemes.size();
    while (first < last && isInSet(graphemes[first], whiteSpace))
        ++first;
    while (last > first && isInSet(graphemes[last - 1], whiteSpace))
        --last;
    if (first == last)
        return {};
    auto const* begin = graphemes[first].data();
    auto const* end = graphemes[last - 1].data() + graphemes[last - 1].size();
    return { begin, static_cast<std::size_t>(end - begin) };
}

bool isWhiteSpace(std::string_view grapheme) { return isInSet(grapheme, NSCharacterSet.whitespaceAndNewlineCharacterSet); }

bool isLetterNumberPunctuationOrSymbol(std::string_view grapheme)
{
    return isInSet(grapheme, NSCharacterSet.alphanumericCharacterSet) || isInSet(grapheme, NSCharacterSet.punctuationCharacterSet)
        || isInSet(grapheme, NSCharacterSet.symbolCharacterSet);
}

std::string foldedForSearch(std::string_view text)
{
    return fromNSString([toNSString(text) stringByFoldingWithOptions:searchOptions() locale:NSLocale.currentLocale]);
}

int localizedStandardCompare(std::string_view a, std::string_view b) { return static_cast<int>([toNSString(a) localizedStandardCompare:toNSString(b)]); }

std::string sortKey(std::string_view text)
{
    std::string key;
    appendSortKey(key, text);
    return key;
}

/// Appends the text itself: the system has no keys documented to order as its comparison does.
void appendSortKey(std::string& block, std::string_view text) { block.append(undecidedStart).append(text); }

int compareSortKeys(std::string_view a, std::string_view b)
{
    auto const start = undecidedStart.size();
    return localizedStandardCompare(a.substr(start), b.substr(start));
}

} // namespace zv
