#include "platform/text/Text.h"

#include "platform/linux/text/Collation.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <unicode/tblcoll.h>
#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <memory>
#include <mutex>

// ICU's constant services (case maps, normalizers, the collator after its set-up) may be
// used from several threads at once; break iterators may not, so every thread has its own.

namespace zv {

namespace {

constexpr UChar32 replacementCharacter = 0xFFFD;

bool isAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return isAscii(c); });
}

int32_t length32(std::string_view text) { return static_cast<int32_t>(text.size()); }

icu::StringPiece piece(std::string_view text) { return { text.data(), length32(text) }; }

/// Returns the code point at `offset` and moves behind it; negative where the bytes are not UTF-8.
UChar32 nextCodePoint(std::string_view text, int32_t& offset)
{
    auto const* bytes = reinterpret_cast<uint8_t const*>(text.data());
    auto const length = length32(text);
    UChar32 codePoint = 0;
    U8_NEXT(bytes, offset, length, codePoint);
    return codePoint;
}

/// Returns the code point before `offset` and moves to its start.
UChar32 previousCodePoint(std::string_view text, int32_t& offset)
{
    auto const* bytes = reinterpret_cast<uint8_t const*>(text.data());
    UChar32 codePoint = 0;
    U8_PREV(bytes, 0, offset, codePoint);
    return codePoint;
}

UChar32 firstCodePoint(std::string_view text)
{
    int32_t offset = 0;
    return text.empty() ? -1 : nextCodePoint(text, offset);
}

icu::BreakIterator& threadsBreakIterator()
{
    thread_local std::unique_ptr<icu::BreakIterator> const iterator = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<icu::BreakIterator>(icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    }();
    return *iterator; // NOLINT(clang-analyzer-cplusplus.NewDelete): it lives as long as the thread
}

/// Moves from character to character. Between two ASCII bytes is always a boundary (except within
/// CR LF), so ICU is asked only from the first other byte on.
class GraphemeCursor {
public:
    explicit GraphemeCursor(std::string_view text)
        : m_text(text)
    {
    }
    ~GraphemeCursor() { utext_close(&m_source); }
    GraphemeCursor(GraphemeCursor const&) = delete;
    GraphemeCursor& operator=(GraphemeCursor const&) = delete;

    [[nodiscard]] bool atEnd() const { return m_offset == m_text.size(); }
    [[nodiscard]] std::string_view next()
    {
        auto const start = m_offset;
        m_offset = m_iterator ? following() : asciiBoundary();
        return m_text.substr(start, m_offset - start);
    }

private:
    std::size_t asciiBoundary()
    {
        auto const after = m_offset + 1;
        bool const endsHere = after == m_text.size() || isAscii(m_text[after]);
        if (!isAscii(m_text[m_offset]) || !endsHere)
            return firstByIterator();
        bool const isLineBreakPair = after < m_text.size() && m_text[m_offset] == '\r' && m_text[after] == '\n';
        return isLineBreakPair ? after + 1 : after;
    }

    std::size_t firstByIterator()
    {
        UErrorCode status = U_ZERO_ERROR;
        m_base = m_offset;
        auto const rest = m_text.substr(m_base);
        utext_openUTF8(&m_source, rest.data(), static_cast<int64_t>(rest.size()), &status);
        m_iterator = &threadsBreakIterator();
        m_iterator->setText(&m_source, status);
        m_iterator->first();
        return following();
    }

    std::size_t following()
    {
        auto const boundary = m_iterator->next();
        return boundary == icu::BreakIterator::DONE ? m_text.size() : m_base + static_cast<std::size_t>(boundary);
    }

    std::string_view m_text;
    std::size_t m_offset = 0;
    std::size_t m_base = 0;
    UText m_source = UTEXT_INITIALIZER;
    icu::BreakIterator* m_iterator = nullptr;
};

template <class Map> std::string mapAscii(std::string_view text, Map map)
{
    std::string mapped(text.size(), '\0');
    std::transform(text.begin(), text.end(), mapped.begin(), map);
    return mapped;
}

char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

char asciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

/// Marks that searching ignores. Marks that change the letter itself stay: nukta, kana voicing, virama.
bool isAccent(UChar32 codePoint)
{
    auto const combiningClass = u_getCombiningClass(codePoint);
    return combiningClass != 0 && (combiningClass < 7 || combiningClass > 9);
}

/// Characters that differ in width or form alone become one, too: of kana, of digits, of ligatures.
icu::UnicodeString withoutAccents(icu::UnicodeString const& text)
{
    UErrorCode status = U_ZERO_ERROR;
    auto const decomposed = icu::Normalizer2::getNFKDInstance(status)->normalize(text, status);
    icu::UnicodeString plain;
    for (int32_t i = 0; i < decomposed.length(); i = decomposed.moveIndex32(i, 1)) {
        auto const codePoint = decomposed.char32At(i);
        if (!isAccent(codePoint))
            plain.append(codePoint);
    }
    return icu::Normalizer2::getNFCInstance(status)->normalize(plain, status);
}

std::string collationLocaleName; // NOLINT: set once, before the first comparison

/// The locale for sorting; the plain C locale, which sorts by byte, is replaced by the root's order.
icu::Locale collationLocale()
{
    auto const language = collationLocaleName.substr(0, collationLocaleName.find_first_of(".@"));
    if (language.empty() || language == "C" || language == "POSIX")
        return icu::Locale::getRoot();
    return icu::Locale::createCanonical(collationLocaleName.c_str());
}

icu::Collator* makeCollator()
{
    UErrorCode status = U_ZERO_ERROR;
    auto* collator = icu::Collator::createInstance(collationLocale(), status);
    if (U_FAILURE(status)) {
        status = U_ZERO_ERROR;
        collator = icu::Collator::createInstance(icu::Locale::getRoot(), status);
    }
    collator->setStrength(icu::Collator::SECONDARY);
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
    return collator;
}

icu::Collator const& collator()
{
    static std::unique_ptr<icu::Collator const> const shared(makeCollator());
    return *shared;
}

/// A name in UTF-16, on the stack where it is as short as names are.
class Utf16 {
public:
    explicit Utf16(std::string_view text)
    {
        if (text.size() > m_short.size()) {
            m_long.resize(text.size());
            m_data = m_long.data();
        }
        if (isAscii(text))
            widen(text);
        else
            convert(text);
    }
    Utf16(Utf16 const&) = delete;
    Utf16& operator=(Utf16 const&) = delete;

    [[nodiscard]] char16_t const* data() const { return m_data; }
    [[nodiscard]] int32_t length() const { return m_length; }

private:
    void widen(std::string_view text)
    {
        std::copy(text.begin(), text.end(), m_data);
        m_length = length32(text);
    }
    void convert(std::string_view text)
    {
        UErrorCode status = U_ZERO_ERROR;
        u_strFromUTF8WithSub(m_data, length32(text), &m_length, text.data(), length32(text), replacementCharacter, nullptr, &status);
    }

    std::array<char16_t, 256> m_short;
    std::u16string m_long;
    char16_t* m_data = m_short.data();
    int32_t m_length = 0;
};

/// The length of a sort key without its terminating zero: a key that ends earlier is smaller anyway.
std::size_t withoutZero(int32_t length) { return static_cast<std::size_t>(std::max(length, 1) - 1); }

void appendLongSortKey(std::string& block, Utf16 const& text, int32_t length)
{
    auto const start = block.size();
    block.resize(start + static_cast<std::size_t>(length));
    collator().getSortKey(text.data(), text.length(), reinterpret_cast<uint8_t*>(block.data() + start), length);
    block.resize(start + withoutZero(length));
}

} // namespace

void useCollationOf(Environment const& environment)
{
    for (auto const* variable : { "LC_ALL", "LC_COLLATE", "LANG" }) {
        if (collationLocaleName.empty())
            collationLocaleName = valueOf(environment, variable);
    }
}

bool isValidUtf8(std::string_view text)
{
    for (int32_t offset = 0; offset < length32(text);) {
        if (isAscii(text[static_cast<std::size_t>(offset)]))
            ++offset;
        else if (nextCodePoint(text, offset) < 0)
            return false;
    }
    return true;
}

std::string withValidUtf8(std::string_view text)
{
    std::string valid;
    valid.reserve(text.size());
    for (int32_t offset = 0; offset < length32(text);) {
        auto const start = static_cast<std::size_t>(offset);
        if (nextCodePoint(text, offset) < 0)
            valid += "\uFFFD";
        else
            valid += text.substr(start, static_cast<std::size_t>(offset) - start);
    }
    return valid;
}

std::size_t graphemeCount(std::string_view text)
{
    GraphemeCursor cursor(text);
    std::size_t count = 0;
    for (; !cursor.atEnd(); ++count)
        (void)cursor.next();
    return count;
}

std::optional<std::string_view> singleGrapheme(std::string_view text)
{
    if (text.empty())
        return std::nullopt;
    GraphemeCursor cursor(text);
    auto const first = cursor.next();
    return cursor.atEnd() ? std::optional(first) : std::nullopt;
}

std::vector<std::string_view> firstGraphemes(std::string_view text, std::size_t count)
{
    GraphemeCursor cursor(text);
    std::vector<std::string_view> graphemes;
    while (graphemes.size() < count && !cursor.atEnd())
        graphemes.push_back(cursor.next());
    return graphemes;
}

std::string lowerCased(std::string_view text)
{
    if (isAscii(text))
        return mapAscii(text, asciiLower);
    std::string mapped;
    icu::StringByteSink<std::string> sink(&mapped, length32(text));
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToLower("", 0, piece(text), sink, nullptr, status);
    return mapped;
}

std::string upperCased(std::string_view text)
{
    if (isAscii(text))
        return mapAscii(text, asciiUpper);
    std::string mapped;
    icu::StringByteSink<std::string> sink(&mapped, length32(text));
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToUpper("", 0, piece(text), sink, nullptr, status);
    return mapped;
}

std::string_view trimmed(std::string_view text)
{
    int32_t start = 0;
    for (int32_t next = 0; next < length32(text) && u_isUWhiteSpace(nextCodePoint(text, next));)
        start = next;
    int32_t end = length32(text);
    for (int32_t previous = end; previous > start && u_isUWhiteSpace(previousCodePoint(text, previous));)
        end = previous;
    return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

bool isWhiteSpace(std::string_view grapheme)
{
    auto const codePoint = firstCodePoint(grapheme);
    return codePoint >= 0 && u_isUWhiteSpace(codePoint);
}

bool isLetterNumberPunctuationOrSymbol(std::string_view grapheme)
{
    auto const codePoint = firstCodePoint(grapheme);
    if (codePoint < 0 || !singleGrapheme(grapheme))
        return false;
    return (U_GET_GC_MASK(codePoint) & (U_GC_L_MASK | U_GC_N_MASK | U_GC_P_MASK | U_GC_S_MASK)) != 0;
}

std::string foldedForSearch(std::string_view text)
{
    if (isAscii(text))
        return mapAscii(text, asciiLower);
    auto folded = withoutAccents(icu::UnicodeString::fromUTF8(piece(text)));
    folded.foldCase();
    std::string bytes;
    folded.toUTF8String(bytes);
    return bytes;
}

int localizedStandardCompare(std::string_view a, std::string_view b)
{
    UErrorCode status = U_ZERO_ERROR;
    return collator().compareUTF8(piece(a), piece(b), status);
}

std::string sortKey(std::string_view text)
{
    std::string key;
    appendSortKey(key, text);
    return key;
}

void appendSortKey(std::string& block, std::string_view text)
{
    Utf16 const wide(text);
    std::array<uint8_t, 512> key;
    auto const length = collator().getSortKey(wide.data(), wide.length(), key.data(), static_cast<int32_t>(key.size()));
    if (static_cast<std::size_t>(length) > key.size())
        appendLongSortKey(block, wide, length);
    else
        block.append(reinterpret_cast<char const*>(key.data()), withoutZero(length));
}

int compareSortKeys(std::string_view a, std::string_view b) { return a.compare(b); }

} // namespace zv
