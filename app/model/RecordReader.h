#pragma once

#include "app/model/ReadFailure.h"
#include "base/PropertyList.h"
#include "base/Result.h"

#include <optional>
#include <string>
#include <string_view>

namespace zv {

/// Reads typed values from one record and remembers the first wrong one. After a failure every
/// further read gives an empty value, so that a record reads as a plain list of its fields; check
/// failure() once, at the end.
class RecordReader {
public:
    explicit RecordReader(PropertyList const& record);

    [[nodiscard]] std::string requiredString(std::string_view key);
    [[nodiscard]] bool requiredBoolean(std::string_view key);
    /// Null after a failure.
    [[nodiscard]] PropertyListArray const* requiredArray(std::string_view key);
    [[nodiscard]] PropertyListDictionary const* requiredDictionary(std::string_view key);
    [[nodiscard]] std::optional<std::string> optionalString(std::string_view key);
    [[nodiscard]] std::optional<std::int64_t> optionalInteger(std::string_view key);
    /// Reads a text, or the bytes of one that no property list can hold as a string.
    [[nodiscard]] std::optional<std::string> optionalBytes(std::string_view key);
    [[nodiscard]] std::optional<PropertyListData> optionalData(std::string_view key);
    /// Reads any value; null when absent.
    [[nodiscard]] PropertyList const* optionalValue(std::string_view key) const;

    void fail(std::string_view key, std::string reason);
    /// Records the failure of a nested record under `key`.
    void fail(std::string_view key, ReadFailure const& inner);
    [[nodiscard]] bool ok() const { return !m_failure; }
    [[nodiscard]] std::optional<ReadFailure> const& failure() const { return m_failure; }

private:
    [[nodiscard]] PropertyList const* required(std::string_view key);
    void failType(std::string_view key, PropertyList const& value, std::string_view expected);

    PropertyListDictionary const* m_record;
    std::optional<ReadFailure> m_failure;
};

/// "is a string where an array is expected"
[[nodiscard]] std::string wrongTypeReason(PropertyList const& value, std::string_view expected);

} // namespace zv
