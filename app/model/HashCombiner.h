#pragma once

#include <cstddef>
#include <functional>
#include <optional>

namespace zv {

/// Mixes the hashes of a value's fields, in order. An optional field counts as its presence
/// followed by its value.
class HashCombiner {
public:
    HashCombiner& addHash(std::size_t hash)
    {
        m_hash ^= hash + 0x9E3779B97F4A7C15ULL + (m_hash << 6) + (m_hash >> 2);
        return *this;
    }
    template <class T> HashCombiner& add(T const& field) { return addHash(std::hash<T>()(field)); }
    template <class T> HashCombiner& add(std::optional<T> const& field)
    {
        addHash(field.has_value() ? 1 : 0);
        return field ? add(*field) : *this;
    }
    [[nodiscard]] std::size_t result() const { return m_hash; }

private:
    std::size_t m_hash = 0;
};

} // namespace zv
