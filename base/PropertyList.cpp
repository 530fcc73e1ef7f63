#include "base/PropertyList.h"

#include <algorithm>
#include <array>
#include <functional>
#include <unordered_map>

namespace zv {

namespace {

constexpr std::size_t fewEnoughToCompare = 16;

bool hasRepeatedKey(std::vector<PropertyListDictionary::Entry> const& entries)
{
    for (std::size_t i = 1; i < entries.size(); ++i) {
        auto const isSame = [&](auto const& earlier) { return earlier.first == entries[i].first; };
        if (std::any_of(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(i), isSame))
            return true;
    }
    return false;
}

std::vector<PropertyListDictionary::Entry> withoutRepeatedKeys(std::vector<PropertyListDictionary::Entry> entries)
{
    std::unordered_map<std::string_view, std::size_t> places;
    places.reserve(entries.size());
    std::vector<PropertyListDictionary::Entry> unique;
    unique.reserve(entries.size()); // the keys in `places` point into it
    for (auto& [key, value] : entries) {
        if (auto const found = places.find(key); found != places.end()) {
            unique[found->second].second = std::move(value);
            continue;
        }
        unique.emplace_back(std::move(key), std::move(value));
        places.emplace(unique.back().first, unique.size() - 1);
    }
    return unique;
}

} // namespace

PropertyListDictionary::PropertyListDictionary(std::initializer_list<Entry> entries)
{
    m_entries.reserve(entries.size());
    for (auto const& [key, value] : entries)
        set(key, value);
}

PropertyListDictionary::PropertyListDictionary(std::vector<Entry> entries)
    : m_entries(std::move(entries))
{
    if (m_entries.size() > fewEnoughToCompare || hasRepeatedKey(m_entries))
        m_entries = withoutRepeatedKeys(std::move(m_entries));
}

PropertyList const* PropertyListDictionary::find(std::string_view key) const
{
    auto const found = std::find_if(m_entries.begin(), m_entries.end(), [&](Entry const& entry) { return entry.first == key; });
    return found == m_entries.end() ? nullptr : &found->second;
}

std::string const* PropertyListDictionary::string(std::string_view key) const
{
    auto const* value = find(key);
    return value ? value->string() : nullptr;
}

void PropertyListDictionary::set(std::string_view key, PropertyList value)
{
    auto const found = std::find_if(m_entries.begin(), m_entries.end(), [&](Entry const& entry) { return entry.first == key; });
    if (found != m_entries.end())
        found->second = std::move(value);
    else
        m_entries.emplace_back(std::string(key), std::move(value));
}

void PropertyListDictionary::remove(std::string_view key)
{
    std::erase_if(m_entries, [&](Entry const& entry) { return entry.first == key; });
}

void PropertyListDictionary::reserve(std::size_t count) { m_entries.reserve(count); }

std::size_t PropertyListDictionary::size() const { return m_entries.size(); }

bool PropertyListDictionary::empty() const { return m_entries.empty(); }

std::vector<PropertyListDictionary::Entry>::const_iterator PropertyListDictionary::begin() const { return m_entries.begin(); }

std::vector<PropertyListDictionary::Entry>::const_iterator PropertyListDictionary::end() const { return m_entries.end(); }

bool operator==(PropertyListDictionary const& a, PropertyListDictionary const& b)
{
    if (a.size() != b.size())
        return false;
    // Equal dictionaries mostly have the same order, too.
    auto const [inA, inB] = std::mismatch(a.begin(), a.end(), b.begin());
    return std::all_of(inA, a.end(), [&](auto const& entry) {
        auto const* other = b.find(entry.first);
        return other && *other == entry.second;
    });
}

PropertyList::PropertyList(std::string value)
    : m_value(std::move(value))
{
}
PropertyList::PropertyList(std::string_view value)
    : m_value(std::string(value))
{
}
PropertyList::PropertyList(char const* value)
    : m_value(std::string(value))
{
}
PropertyList::PropertyList(std::int64_t value)
    : m_value(value)
{
}
PropertyList::PropertyList(int value)
    : m_value(std::int64_t { value })
{
}
PropertyList::PropertyList(std::uint64_t value)
{
    if (value <= static_cast<std::uint64_t>(INT64_MAX))
        m_value = static_cast<std::int64_t>(value);
    else
        m_value = value;
}
PropertyList::PropertyList(double value)
    : m_value(value)
{
}
PropertyList::PropertyList(bool value)
    : m_value(value)
{
}
PropertyList::PropertyList(PropertyListDate value)
    : m_value(value)
{
}
PropertyList::PropertyList(PropertyListData value)
    : m_value(std::move(value))
{
}
PropertyList::PropertyList(PropertyListArray value)
    : m_value(std::move(value))
{
}
PropertyList::PropertyList(PropertyListDictionary value)
    : m_value(std::move(value))
{
}

namespace {
template <class T> std::optional<T> copyOf(T const* value) { return value ? std::optional<T>(*value) : std::nullopt; }
} // namespace

std::optional<std::int64_t> PropertyList::integer() const { return copyOf(std::get_if<std::int64_t>(&m_value)); }

std::optional<bool> PropertyList::boolean() const { return copyOf(std::get_if<bool>(&m_value)); }

std::optional<double> PropertyList::real() const { return copyOf(std::get_if<double>(&m_value)); }

std::optional<PropertyListDate> PropertyList::date() const { return copyOf(std::get_if<PropertyListDate>(&m_value)); }

std::string_view PropertyList::typeName() const
{
    static constexpr std::array<std::string_view, std::variant_size_v<Value>> names { "a string", "an integer", "an integer", "a real", "a boolean", "a date",
        "data", "an array", "a dictionary" };
    return names.at(m_value.index());
}

bool operator==(PropertyList const& a, PropertyList const& b) { return a.m_value == b.m_value; }

namespace {

struct Hasher {
    std::size_t operator()(std::string const& value) const { return std::hash<std::string>()(value); }
    std::size_t operator()(std::int64_t value) const { return std::hash<std::int64_t>()(value); }
    std::size_t operator()(std::uint64_t value) const { return std::hash<std::uint64_t>()(value); }
    std::size_t operator()(double value) const { return std::hash<double>()(value); }
    std::size_t operator()(bool value) const { return value ? 1 : 2; }
    std::size_t operator()(PropertyListDate value) const { return std::hash<double>()(value.secondsSinceReference); }
    std::size_t operator()(PropertyListData const& value) const
    {
        return std::hash<std::string_view>()({ reinterpret_cast<char const*>(value.data()), value.size() });
    }
    std::size_t operator()(PropertyListArray const& value) const
    {
        std::size_t hash = value.size();
        for (auto const& element : value)
            hash = hash * 31 + hashValue(element);
        return hash;
    }
    std::size_t operator()(PropertyListDictionary const& value) const
    {
        std::size_t hash = value.size();
        for (auto const& [key, element] : value)
            hash += std::hash<std::string>()(key) ^ (hashValue(element) * 31);
        return hash;
    }
};

} // namespace

std::size_t hashValue(PropertyList const& value) { return std::visit(Hasher(), value.value()) * 31 + value.value().index(); }

} // namespace zv
