#include "platform/linux/store/BinaryPropertyListScan.h"

#include "platform/linux/store/PropertyListLimits.h"
#include "platform/text/PropertyListFormat.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

namespace zv {

namespace {

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
            return Failure { damagedDocument };
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
            return Failure { damagedDocument };
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
            return Failure { damagedDocument };
        if ((m_textBytes += length) > maximumPropertyListSize)
            return Failure { tooLargeDocument };
        return hasNullCharacter(m_bytes.subspan(object.start, length), unit) ? Failure { stringHoldsNull } : Result<void>();
    }

    Result<void> step()
    {
        auto& level = m_path.back();
        if (level.next == level.object.references)
            return close();
        auto const child = number(level.object.start + level.next * m_referenceSize, m_referenceSize);
        if (child >= m_count)
            return Failure { damagedDocument };
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
        return parent.bytes > maximumPropertyListSize ? Failure { tooLargeDocument } : Result<void>();
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

Result<void> scanBinaryPropertyList(std::span<std::byte const> bytes) { return BinaryScanner(bytes).scan(); }

} // namespace zv
