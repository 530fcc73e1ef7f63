#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace zv {

class PropertyList;

/// A value that its copies share until one of them changes: a copy costs next to nothing, however large the value. Copies
/// may be read on several threads; those that another thread had are let go before one is changed.
template <class T> class Shared {
public:
    Shared() = default;
    Shared(T value) // NOLINT(google-explicit-constructor): stands for the value
        : m_value(value.empty() ? nullptr : std::make_shared<T>(std::move(value)))
    {
    }

    [[nodiscard]] T const& get() const
    {
        static T const empty;
        return m_value ? *m_value : empty;
    }
    operator T const&() const { return get(); } // NOLINT(google-explicit-constructor)
    /// The value, to be changed, of this copy alone.
    [[nodiscard]] T& own()
    {
        if (!m_value || m_value.use_count() > 1)
            m_value = std::make_shared<T>(get());
        return *m_value;
    }

    friend bool operator==(Shared const& a, Shared const& b) { return a.m_value == b.m_value || a.get() == b.get(); }

private:
    std::shared_ptr<T> m_value; ///< null: an empty one
};

/// Seconds since 2001-01-01 00:00:00 UTC, the property list's own reference date.
struct PropertyListDate {
    double secondsSinceReference = 0;
    friend bool operator==(PropertyListDate const&, PropertyListDate const&) = default;
};

using PropertyListData = std::vector<std::byte>;
using PropertyListArray = std::vector<PropertyList>;

/// A dictionary that keeps the order in which its keys were added. Keys are unique.
/// Equality ignores the order, as two property lists that differ only there are the same.
class PropertyListDictionary {
public:
    using Entry = std::pair<std::string, PropertyList>;

    PropertyListDictionary() = default;
    PropertyListDictionary(std::initializer_list<Entry> entries);
    /// Takes the entries as they are; a repeated key keeps its earlier place and its later value.
    explicit PropertyListDictionary(std::vector<Entry> entries);

    /// Null when absent. The pointer holds until the dictionary changes.
    [[nodiscard]] PropertyList const* find(std::string_view key) const;
    [[nodiscard]] bool contains(std::string_view key) const { return find(key) != nullptr; }
    /// Null when absent or of another type.
    [[nodiscard]] std::string const* string(std::string_view key) const;
    /// Replaces the value in its place, or adds the key at the end.
    void set(std::string_view key, PropertyList value);
    /// Adds a key without checking that it is new. For records whose keys are written out in a row.
    template <class T> void append(std::string_view key, T&& value);
    void remove(std::string_view key);
    void reserve(std::size_t count);

    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] bool empty() const;
    [[nodiscard]] std::vector<Entry>::const_iterator begin() const;
    [[nodiscard]] std::vector<Entry>::const_iterator end() const;

    friend bool operator==(PropertyListDictionary const&, PropertyListDictionary const&);

private:
    std::vector<Entry> m_entries;
};

/// A value of a property list. Integers and booleans never turn into one another,
/// nor integers into reals. `std::uint64_t` is used only for values above the signed range.
/// Strings are UTF-8. Copies share arrays and dictionaries.
class PropertyList {
public:
    using Value = std::variant<std::string, std::int64_t, std::uint64_t, double, bool, PropertyListDate, PropertyListData, Shared<PropertyListArray>,
        Shared<PropertyListDictionary>>;

    PropertyList() = default; ///< an empty string
    PropertyList(std::string value);
    PropertyList(std::string_view value);
    PropertyList(char const* value);
    PropertyList(std::int64_t value);
    PropertyList(int value);
    PropertyList(std::uint64_t value);
    PropertyList(double value);
    PropertyList(bool value);
    PropertyList(PropertyListDate value);
    PropertyList(PropertyListData value);
    PropertyList(PropertyListArray value);
    PropertyList(PropertyListDictionary value);

    [[nodiscard]] Value const& value() const { return m_value; }
    [[nodiscard]] Value& value() { return m_value; }

    /// Null when the value is of another type.
    [[nodiscard]] std::string const* string() const { return std::get_if<std::string>(&m_value); }
    [[nodiscard]] PropertyListData const* data() const { return std::get_if<PropertyListData>(&m_value); }
    [[nodiscard]] PropertyListArray const* array() const;
    [[nodiscard]] PropertyListArray* array();
    [[nodiscard]] PropertyListDictionary const* dictionary() const;
    [[nodiscard]] PropertyListDictionary* dictionary();
    [[nodiscard]] std::optional<std::int64_t> integer() const;
    [[nodiscard]] std::optional<bool> boolean() const;
    [[nodiscard]] std::optional<double> real() const;
    [[nodiscard]] std::optional<PropertyListDate> date() const;
    /// For messages: "a string", "an integer", "an array" …
    [[nodiscard]] std::string_view typeName() const;

    friend bool operator==(PropertyList const&, PropertyList const&);

private:
    template <class T> [[nodiscard]] T const* shared() const;
    template <class T> [[nodiscard]] T* own();

    Value m_value;
};

template <class T> T const* PropertyList::shared() const
{
    auto const* found = std::get_if<Shared<T>>(&m_value);
    return found ? &found->get() : nullptr;
}

template <class T> T* PropertyList::own()
{
    auto* found = std::get_if<Shared<T>>(&m_value);
    return found ? &found->own() : nullptr;
}

inline PropertyListArray const* PropertyList::array() const { return shared<PropertyListArray>(); }
inline PropertyListArray* PropertyList::array() { return own<PropertyListArray>(); }
inline PropertyListDictionary const* PropertyList::dictionary() const { return shared<PropertyListDictionary>(); }
inline PropertyListDictionary* PropertyList::dictionary() { return own<PropertyListDictionary>(); }

template <class T> void PropertyListDictionary::append(std::string_view key, T&& value) { m_entries.emplace_back(key, std::forward<T>(value)); }

/// Combines the value into a hash; equal values hash alike whatever their key order.
[[nodiscard]] std::size_t hashValue(PropertyList const& value);

} // namespace zv
