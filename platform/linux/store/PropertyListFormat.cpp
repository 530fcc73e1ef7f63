#include "platform/text/PropertyListFormat.h"

#include "platform/linux/store/BinaryPropertyListScan.h"
#include "platform/linux/store/PropertyListLimits.h"
#include "platform/linux/store/PropertyListScalars.h"
#include "platform/linux/store/XmlPropertyListReader.h"
#include "platform/linux/store/XmlPropertyListWriter.h"
#include "platform/text/Text.h"

#include <plist/plist.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace zv {

namespace {

struct FreeNode {
    void operator()(void* node) const { plist_free(node); }
};
struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
using Node = std::unique_ptr<void, FreeNode>;
template <class T> using Memory = std::unique_ptr<T, FreeMemory>;

/// Reals are read and written with the C library, which heeds the locale's decimal point.
class PlainNumbers {
public:
    PlainNumbers()
        : m_previous(uselocale(plainLocale()))
    {
    }
    ~PlainNumbers() { uselocale(m_previous); }
    PlainNumbers(PlainNumbers const&) = delete;
    PlainNumbers& operator=(PlainNumbers const&) = delete;

private:
    static locale_t plainLocale()
    {
        static locale_t const locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }
    locale_t m_previous;
};

// A document of one object stands in for libplist's functions on dates and on integers above the
// signed range, which cut dates to 32 bits and tell no sign.

using EightBytes = std::array<unsigned char, 8>;

EightBytes bigEndian(std::uint64_t bits)
{
    EightBytes bytes {};
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte, bits >>= 8)
        *byte = static_cast<unsigned char>(bits);
    return bytes;
}

std::uint64_t fromBigEndian(char const* bytes)
{
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i)
        bits = bits << 8 | static_cast<unsigned char>(bytes[i]);
    return bits;
}

// Markers of the binary form; BinaryPropertyListScan.cpp names its source.
constexpr char dateMarker = 0x33;
constexpr char unsignedMarker = 0x14; ///< sixteen bytes
constexpr std::size_t headerSize = 8;

/// The only object of a binary document, beginning with its marker.
struct SoleObject {
    Memory<char> document;
    char const* marker() const { return document.get() + headerSize; }
};

SoleObject soleObject(plist_t node)
{
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    return { Memory<char>(bytes) };
}

Node nodeOfSoleObject(std::string const& object)
{
    std::string document = "bplist00" + object;
    auto const tableOffset = document.size();
    document += static_cast<char>(headerSize);
    document.append(6, '\0');
    document += { 1, 1 }; // the sizes of an offset and of a reference
    for (std::uint64_t const field : { std::uint64_t { 1 }, std::uint64_t { 0 }, std::uint64_t { tableOffset } }) {
        auto const bytes = bigEndian(field);
        document.append(bytes.begin(), bytes.end());
    }
    plist_t node = nullptr;
    plist_from_bin(document.data(), static_cast<std::uint32_t>(document.size()), &node);
    return Node(node);
}

// Reading

/// Turns libplist's tree of a binary document into ours. After a failure the rest is skipped.
class TreeReader {
public:
    PropertyList read(plist_t node)
    {
        switch (plist_get_node_type(node)) {
        case PLIST_BOOLEAN:
            return readBoolean(node);
        case PLIST_UINT:
            return readInteger(node);
        case PLIST_REAL:
            return readReal(node);
        case PLIST_STRING:
            return readString(node);
        case PLIST_ARRAY:
            return readArray(node);
        case PLIST_DICT:
            return readDictionary(node);
        case PLIST_DATE:
            return readDate(node);
        case PLIST_DATA:
            return readData(node);
        default:
            return fail("it holds an archive's reference, which is no value");
        }
    }

    std::string failure;

private:
    PropertyList fail(std::string_view reason)
    {
        if (failure.empty())
            failure = reason;
        return {};
    }

    static PropertyList readBoolean(plist_t node)
    {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }

    static PropertyList readInteger(plist_t node)
    {
        std::uint64_t bits = 0;
        plist_get_uint_val(node, &bits);
        bool const mayBeNegative = bits > static_cast<std::uint64_t>(INT64_MAX);
        if (mayBeNegative && *soleObject(node).marker() == unsignedMarker)
            return bits;
        return static_cast<std::int64_t>(bits);
    }

    static PropertyList readReal(plist_t node)
    {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }

    PropertyList readDate(plist_t node)
    {
        auto const object = soleObject(node);
        auto const bits = fromBigEndian(object.marker() + 1);
        PropertyListDate date;
        std::memcpy(&date.secondsSinceReference, &bits, sizeof bits);
        return isDateInRange(date.secondsSinceReference) ? PropertyList(date) : fail(dateOutOfRange);
    }

    PropertyList readString(plist_t node)
    {
        std::uint64_t length = 0;
        auto const* text = plist_get_string_ptr(node, &length);
        std::string_view const view(text, length);
        check(view);
        return view;
    }

    void check(std::string_view text)
    {
        if (!isValidUtf8(text))
            fail(stringNotUtf8);
        if (text.find('\0') != std::string_view::npos)
            fail(stringHoldsNull);
    }

    static PropertyList readData(plist_t node)
    {
        std::uint64_t length = 0;
        auto const* bytes = reinterpret_cast<std::byte const*>(plist_get_data_ptr(node, &length));
        return PropertyListData(bytes, bytes + length);
    }

    PropertyList readArray(plist_t node)
    {
        PropertyListArray array;
        array.reserve(plist_array_get_size(node));
        plist_array_iter iterator = nullptr;
        plist_array_new_iter(node, &iterator);
        Memory<void> const owner(iterator);
        plist_t element = nullptr;
        plist_array_next_item(node, iterator, &element);
        // Each element is freed as soon as it is read, so that the next ones reuse its memory.
        while (element && failure.empty()) {
            Node const consumed(element);
            plist_array_next_item(node, iterator, &element);
            array.push_back(read(consumed.get()));
        }
        return array;
    }

    PropertyList readDictionary(plist_t node)
    {
        std::vector<PropertyListDictionary::Entry> entries;
        entries.reserve(plist_dict_get_size(node));
        plist_dict_iter iterator = nullptr;
        plist_dict_new_iter(node, &iterator);
        Memory<void> const owner(iterator);
        while (failure.empty()) {
            char* key = nullptr;
            plist_t value = nullptr;
            plist_dict_next_item(node, iterator, &key, &value);
            Memory<char> const keyOwner(key);
            if (!value)
                break;
            check(key);
            entries.emplace_back(key, read(value));
        }
        return PropertyListDictionary(std::move(entries));
    }
};

bool isBinary(std::string_view text) { return text.starts_with("bplist"); }

Node parseBinary(std::string_view text)
{
    plist_t node = nullptr;
    plist_from_bin(text.data(), static_cast<std::uint32_t>(text.size()), &node);
    return Node(node);
}

Result<PropertyList> readBinary(std::string_view text)
{
    if (!text.starts_with("bplist00"))
        return Failure { std::string("it is of a binary kind that is not known here") };
    if (auto const scanned = scanBinaryPropertyList(std::as_bytes(std::span(text))); !scanned)
        return Failure { scanned.error() };
    auto const node = parseBinary(text);
    if (!node)
        return Failure { std::string(damagedDocument) };
    TreeReader reader;
    auto value = reader.read(node.get());
    if (!reader.failure.empty())
        return Failure { std::move(reader.failure) };
    return value;
}

// Writing

/// Turns our tree into libplist's. After a failure the rest is skipped.
class TreeWriter {
public:
    Node write(PropertyList const& value)
    {
        m_estimate += static_cast<std::size_t>(m_depth) + bytesAroundAValue;
        if (m_estimate > maximumPropertyListSize)
            return fail(largerThanAllowed);
        return std::visit(*this, value.value());
    }

    Node operator()(std::string const& value) { return Node(plist_new_string(checked(value))); }
    Node operator()(std::int64_t value) const { return Node(plist_new_uint(static_cast<std::uint64_t>(value))); }
    Node operator()(std::uint64_t value) const
    {
        auto const bytes = bigEndian(value);
        return nodeOfSoleObject(unsignedMarker + std::string(8, '\0') + std::string(bytes.begin(), bytes.end()));
    }
    Node operator()(double value) const { return Node(plist_new_real(value)); }
    Node operator()(bool value) const { return Node(plist_new_bool(value ? 1 : 0)); }
    Node operator()(PropertyListDate date);
    Node operator()(PropertyListData const& value)
    {
        m_estimate += value.size() * 3 / 2;
        return Node(plist_new_data(reinterpret_cast<char const*>(value.data()), value.size()));
    }
    Node operator()(PropertyListArray const& value);
    Node operator()(PropertyListDictionary const& value);

    std::string failure;

private:
    static constexpr std::size_t bytesAroundAValue = 10;

    Node fail(std::string_view reason)
    {
        if (failure.empty())
            failure = reason;
        return Node(plist_new_bool(0));
    }

    char const* checked(std::string const& text)
    {
        m_estimate += text.size();
        if (!isValidUtf8(text))
            fail(stringNotUtf8);
        if (text.find('\0') != std::string::npos)
            fail(stringHoldsNull);
        return text.c_str();
    }

    bool descend()
    {
        if (++m_depth > maximumPropertyListDepth)
            fail(tooDeepMessage());
        return failure.empty();
    }

    std::size_t m_estimate = 0;
    int m_depth = 0;
};

Node TreeWriter::operator()(PropertyListDate date)
{
    double const seconds = date.secondsSinceReference;
    if (!isDateInRange(seconds))
        return fail(dateOutOfRange);
    std::uint64_t bits = 0;
    std::memcpy(&bits, &seconds, sizeof bits);
    auto const bytes = bigEndian(bits);
    return nodeOfSoleObject(dateMarker + std::string(bytes.begin(), bytes.end()));
}

Node TreeWriter::operator()(PropertyListArray const& value)
{
    Node array(plist_new_array());
    if (descend()) {
        for (auto element = value.begin(); element != value.end() && failure.empty(); ++element)
            plist_array_append_item(array.get(), write(*element).release());
    }
    --m_depth;
    return array;
}

Node TreeWriter::operator()(PropertyListDictionary const& value)
{
    Node dictionary(plist_new_dict());
    if (descend()) {
        for (auto entry = value.begin(); entry != value.end() && failure.empty(); ++entry)
            plist_dict_set_item(dictionary.get(), checked(entry->first), write(entry->second).release());
    }
    --m_depth;
    return dictionary;
}

Result<std::vector<std::byte>> writeBinary(PropertyList const& value)
{
    TreeWriter writer;
    auto const node = writer.write(value);
    if (!writer.failure.empty())
        return Failure { std::move(writer.failure) };
    char* data = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node.get(), &data, &length);
    Memory<char> const owner(data);
    if (length > maximumPropertyListSize)
        return Failure { std::string(largerThanAllowed) };
    auto const* bytes = reinterpret_cast<std::byte const*>(data);
    return std::vector<std::byte>(bytes, bytes + length);
}

} // namespace

Result<PropertyList> readPropertyList(std::span<std::byte const> bytes)
{
    if (bytes.empty())
        return Failure { std::string("it is empty") };
    if (bytes.size() > maximumPropertyListSize)
        return Failure { std::string(tooLargeDocument) };
    std::string_view const text(reinterpret_cast<char const*>(bytes.data()), bytes.size());
    PlainNumbers const plainNumbers;
    return isBinary(text) ? readBinary(text) : readXmlPropertyList(text);
}

Result<std::vector<std::byte>> writePropertyList(PropertyList const& value, PropertyListEncoding encoding)
{
    return encoding == PropertyListEncoding::xml ? writeXmlPropertyList(value) : writeBinary(value);
}

} // namespace zv
