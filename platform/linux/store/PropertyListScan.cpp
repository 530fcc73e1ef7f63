#include "platform/linux/store/PropertyListScan.h"

#include "platform/text/PropertyListFormat.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace zv {

namespace {

constexpr char const* damaged = "it is cut off or damaged";
constexpr char const* tooManyValues = "it holds more values than the two million that are allowed";
constexpr char const* tooLarge = "it is larger than the 64 MB that are allowed";
constexpr char const* nullCharacter = "a string in it holds a null character";

/// An error message, or null: a string for each tag would cost more than the scan.
using Wrong = char const*;

Wrong tooDeep()
{
    static std::string const message = tooDeepMessage();
    return message.c_str();
}

// XML

constexpr std::string_view blanks = " \t\r\n";

std::string_view withoutBlanks(std::string_view text)
{
    auto const start = text.find_first_not_of(blanks);
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(blanks) - start + 1);
}

/// The leading lower-case letters, which all relevant names consist of.
std::string_view nameIn(std::string_view tag)
{
    std::size_t length = 0;
    while (length < tag.size() && tag[length] >= 'a' && tag[length] <= 'z')
        ++length;
    return tag.substr(0, length);
}

bool isContainer(std::string_view tag) { return tag == "array" || tag == "dict" || tag == "plist"; }

bool isReadableInteger(std::string_view text)
{
    text = withoutBlanks(text);
    bool const isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    int const base = text.starts_with("0x") || text.starts_with("0X") ? 16 : 10;
    text.remove_prefix(base == 16 ? 2 : 0);
    std::uint64_t magnitude = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), magnitude, base);
    return error == std::errc() && end == text.data() + text.size() && (!isNegative || magnitude <= std::uint64_t { 1 } << 63);
}

/// Whether the text is a date such as "2001-01-01T00:00:00Z"; a fraction of a second may follow.
bool isReadableDate(std::string_view text)
{
    static constexpr std::string_view shape = "0000-00-00T00:00:00";
    text = withoutBlanks(text);
    if (text.size() <= shape.size() || !text.ends_with('Z'))
        return false;
    auto const isDigit = [](char c) { return c >= '0' && c <= '9'; };
    for (std::size_t i = 0; i < shape.size(); ++i) {
        if (shape[i] == '0' ? !isDigit(text[i]) : text[i] != shape[i])
            return false;
    }
    auto const fraction = text.substr(shape.size(), text.size() - shape.size() - 1);
    return fraction.empty() || (fraction[0] == '.' && std::all_of(fraction.begin() + 1, fraction.end(), isDigit));
}

/// Scans the tags only. Mark-up that the parser might read differently, such as quotes in tags or
/// a document type that declares entities, is refused: no program writes property lists so, and
/// the depth counted here must never be too small.
class XmlScanner {
public:
    explicit XmlScanner(std::string_view text)
        : m_text(text)
    {
    }

    Wrong scan()
    {
        for (m_offset = m_text.find('<'); m_offset != std::string_view::npos; m_offset = m_text.find('<', m_offset)) {
            if (auto const wrong = markup())
                return wrong;
        }
        return m_values == 0 ? "it is not a property list" : nullptr;
    }

private:
    Wrong markup()
    {
        auto const rest = m_text.substr(m_offset);
        if (rest.starts_with("<!--"))
            return comment();
        if (rest.starts_with("<![CDATA["))
            return skipTo("]]>", 9);
        if (rest.starts_with("<!"))
            return documentType();
        if (rest.starts_with("<?"))
            return instruction();
        return tag();
    }

    Wrong skipTo(std::string_view end, std::size_t from)
    {
        auto const found = m_text.find(end, m_offset + from);
        if (found == std::string_view::npos)
            return damaged;
        m_offset = found + end.size();
        return nullptr;
    }

    Wrong comment()
    {
        auto const content = m_text.substr(m_offset + 4);
        if (content.starts_with('>') || content.starts_with("->"))
            return damaged;
        return skipTo("-->", 4);
    }

    Wrong documentType()
    {
        auto const length = m_text.substr(m_offset).find('>');
        if (m_values > 0 || length == std::string_view::npos)
            return damaged;
        auto const declaration = m_text.substr(m_offset + 2, length - 2);
        if (declaration.find_first_of("<[") != std::string_view::npos)
            return "its document type declares more than a property list needs";
        m_offset += length + 1;
        return nullptr;
    }

    Wrong instruction()
    {
        auto const length = m_text.substr(m_offset).find('>');
        if (length == std::string_view::npos || m_text[m_offset + length - 1] != '?')
            return damaged;
        m_offset += length + 1;
        return nullptr;
    }

    Wrong tag()
    {
        auto const length = m_text.substr(m_offset).find('>');
        if (length == std::string_view::npos)
            return damaged;
        auto const inner = m_text.substr(m_offset + 1, length - 1);
        m_offset += length + 1;
        return inner.starts_with('/') ? closeTag(inner.substr(1)) : openTag(inner);
    }

    Wrong closeTag(std::string_view inner)
    {
        m_depth -= m_depth > 0 && isContainer(nameIn(inner)) ? 1 : 0;
        return nullptr;
    }

    Wrong openTag(std::string_view inner)
    {
        auto const name = nameIn(inner);
        bool const hasMore = name.size() + (inner.ends_with('/') ? 1 : 0) != inner.size();
        if (hasMore && name != "plist" && inner.find_first_of("\"'<") != std::string_view::npos)
            return damaged;
        if (++m_values > maximumPropertyListValues)
            return tooManyValues;
        if (isContainer(name))
            return inner.ends_with('/') ? nullptr : descend();
        return scalar(name, inner.ends_with('/'));
    }

    Wrong descend()
    {
        // The plist tag counts as a level here.
        return ++m_depth > maximumPropertyListDepth + 1 ? tooDeep() : nullptr;
    }

    Wrong scalar(std::string_view name, bool isEmpty) const
    {
        auto const content = isEmpty ? std::string_view() : m_text.substr(m_offset, m_text.find('<', m_offset) - m_offset);
        if (name == "integer" && !isReadableInteger(content))
            return "an integer in it cannot be read";
        if (name == "date" && !isReadableDate(content))
            return "a date in it cannot be read";
        return nullptr;
    }

    std::string_view m_text;
    std::size_t m_offset = 0;
    std::size_t m_values = 0;
    int m_depth = 0;
};

// Binary

// The binary form, described at the beginning of CFBinaryPList.c
// (https://github.com/opensource-apple/CF): header, objects, table of offsets, trailer. The high
// half of a marker is the object's type, the low half its length.
constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;
constexpr std::uint64_t falseMarker = 0x08;
constexpr std::uint64_t trueMarker = 0x09;

enum class Content : std::uint8_t { scalar, ascii, utf16, array, dictionary };

bool isText(Content content) { return content == Content::ascii || content == Content::utf16; }

bool isContainer(Content content) { return content == Content::array || content == Content::dictionary; }

/// The size of an object with everything below it, shared objects counted at each use.
struct Extent {
    enum class State : std::uint8_t { unseen, open, known };
    State state = State::unseen;
    Content content = Content::scalar;
    std::uint16_t height = 0;
    std::uint32_t values = 0;
    std::uint64_t bytes = 0;
};

struct Object {
    std::uint64_t bytes = 1; ///< its own, including the marker
    std::uint64_t references = 0; ///< number of references; 0 unless a container
    std::size_t start = 0; ///< start of the content
    Content content = Content::scalar;
};

bool hasNullCharacter(std::span<std::byte const> text, std::size_t unit)
{
    if (unit == 1)
        return !text.empty() && std::memchr(text.data(), 0, text.size()) != nullptr;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        if (text[i] == std::byte { 0 } && text[i + 1] == std::byte { 0 })
            return true;
    }
    return false;
}

class BinaryScanner {
public:
    explicit BinaryScanner(std::span<std::byte const> bytes)
        : m_bytes(bytes)
    {
    }

    Result<void> scan()
    {
        if (!readTrailer())
            return Failure { damaged };
        m_extents.resize(m_count);
        if (auto opened = open(m_root); !opened)
            return opened;
        while (!m_path.empty()) {
            if (auto done = step(); !done)
                return done;
        }
        return {};
    }

private:
    struct Level {
        std::uint64_t index;
        Object object;
        std::uint64_t next = 0;
    };

    [[nodiscard]] std::uint64_t number(std::size_t offset, std::size_t size) const
    {
        std::uint64_t value = 0;
        for (auto const byte : m_bytes.subspan(offset, size))
            value = value << 8 | std::to_integer<std::uint64_t>(byte);
        return value;
    }

    bool readTrailer()
    {
        if (m_bytes.size() < headerSize + 1 + trailerSize)
            return false;
        m_end = m_bytes.size() - trailerSize;
        m_offsetSize = number(m_end + 6, 1);
        m_referenceSize = number(m_end + 7, 1);
        m_count = number(m_end + 8, 8);
        m_root = number(m_end + 16, 8);
        m_table = number(m_end + 24, 8);
        bool const hasSizes = m_offsetSize >= 1 && m_offsetSize <= 8 && m_referenceSize >= 1 && m_referenceSize <= 8;
        return hasSizes && m_count <= m_end && m_root < m_count && m_table <= m_end && m_count * m_offsetSize <= m_end - m_table;
    }

    /// Nothing where the object lies outside the document.
    [[nodiscard]] std::optional<Object> objectAt(std::uint64_t index) const
    {
        std::uint64_t offset = number(m_table + index * m_offsetSize, m_offsetSize);
        if (offset < headerSize || offset >= m_table)
            return std::nullopt;
        auto const marker = number(offset, 1);
        auto const count = lengthAt(++offset, marker & 0x0F);
        if (!count || *count > m_bytes.size())
            return std::nullopt;
        switch (marker >> 4) {
        case 0x0:
            return marker == falseMarker || marker == trueMarker ? std::optional(Object {}) : std::nullopt;
        case 0x1:
        case 0x2:
        case 0x3:
        case 0x8:
            return Object {};
        case 0x4:
            return Object { 1 + *count };
        case 0x5:
            return Object { 1 + *count, 0, offset, Content::ascii };
        case 0x6:
            return Object { 1 + *count * 2, 0, offset, Content::utf16 };
        case 0xA:
            return containerAt(offset, *count, Content::array);
        case 0xD:
            return containerAt(offset, *count * 2, Content::dictionary);
        default: // sets, and what nobody writes
            return std::nullopt;
        }
    }

    /// The low half of a marker is the length; 15 says that an integer object holds it.
    [[nodiscard]] std::optional<std::uint64_t> lengthAt(std::uint64_t& offset, std::uint64_t nibble) const
    {
        if (nibble != 0x0F)
            return nibble;
        if (offset >= m_end)
            return std::nullopt;
        auto const integerMarker = number(offset, 1);
        if (integerMarker < 0x10 || integerMarker > 0x13)
            return std::nullopt;
        auto const size = std::size_t { 1 } << (integerMarker & 0x0F);
        ++offset;
        if (size > m_end - offset)
            return std::nullopt;
        auto const length = number(offset, size);
        offset += size;
        return length;
    }

    [[nodiscard]] std::optional<Object> containerAt(std::uint64_t offset, std::uint64_t references, Content content) const
    {
        if (references * m_referenceSize > m_end - offset)
            return std::nullopt;
        return Object { 1, references, offset, content };
    }

    Result<void> open(std::uint64_t index)
    {
        auto const object = index < m_count ? objectAt(index) : std::nullopt;
        if (!object)
            return Failure { damaged };
        if ((m_references += object->references) > maximumPropertyListValues)
            return Failure { tooManyValues };
        if (auto checked = checkText(*object); !checked)
            return checked;
        std::uint16_t const height = isContainer(object->content) ? 1 : 0;
        m_extents[index] = { Extent::State::open, object->content, height, 1, object->bytes };
        m_path.push_back({ index, *object });
        // The innermost level may hold a scalar.
        return m_path.size() > maximumPropertyListDepth + 1 ? Failure { tooDeepMessage() } : Result<void>();
    }

    /// Refuses null characters in strings, where the parser would cut them.
    Result<void> checkText(Object const& object)
    {
        std::size_t const unit = object.content == Content::utf16 ? 2 : 1;
        if (!isText(object.content))
            return {};
        auto const length = object.bytes - 1;
        if (length > m_end - object.start)
            return Failure { damaged };
        if ((m_textBytes += length) > maximumPropertyListSize)
            return Failure { tooLarge };
        return hasNullCharacter(m_bytes.subspan(object.start, length), unit) ? Failure { nullCharacter } : Result<void>();
    }

    Result<void> step()
    {
        auto& level = m_path.back();
        if (level.next == level.object.references)
            return close();
        auto const child = number(level.object.start + level.next * m_referenceSize, m_referenceSize);
        if (child >= m_count)
            return Failure { damaged };
        if (m_extents[child].state == Extent::State::unseen)
            return open(child);
        if (m_extents[child].state == Extent::State::open)
            return Failure { "a container in it holds itself" };
        bool const isKey = level.object.content == Content::dictionary && level.next < level.object.references / 2;
        if (isKey && !isText(m_extents[child].content))
            return Failure { "a dictionary in it has a key that is no string" };
        ++level.next;
        return add(m_extents[child], m_extents[level.index]);
    }

    Result<void> close()
    {
        m_extents[m_path.back().index].state = Extent::State::known;
        m_path.pop_back();
        return {};
    }

    static Result<void> add(Extent const& child, Extent& parent)
    {
        parent.height = std::max<std::uint16_t>(parent.height, child.height + 1);
        parent.values += child.values;
        parent.bytes += child.bytes;
        if (parent.height > maximumPropertyListDepth)
            return Failure { tooDeepMessage() };
        if (parent.values > maximumPropertyListValues)
            return Failure { tooManyValues };
        return parent.bytes > maximumPropertyListSize ? Failure { tooLarge } : Result<void>();
    }

    std::span<std::byte const> m_bytes;
    std::size_t m_end = 0;
    std::size_t m_table = 0;
    std::size_t m_offsetSize = 0;
    std::size_t m_referenceSize = 0;
    std::uint64_t m_count = 0;
    std::uint64_t m_root = 0;
    std::uint64_t m_references = 0;
    std::uint64_t m_textBytes = 0;
    std::vector<Extent> m_extents;
    std::vector<Level> m_path;
};

} // namespace

std::string tooDeepMessage() { return "its containers are nested deeper than the " + std::to_string(maximumPropertyListDepth) + " levels that are allowed"; }

Result<void> scanXmlPropertyList(std::span<std::byte const> bytes)
{
    auto const wrong = XmlScanner({ reinterpret_cast<char const*>(bytes.data()), bytes.size() }).scan();
    return wrong ? Failure { wrong } : Result<void>();
}

Result<void> scanBinaryPropertyList(std::span<std::byte const> bytes) { return BinaryScanner(bytes).scan(); }

} // namespace zv
