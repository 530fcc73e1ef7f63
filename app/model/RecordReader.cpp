#include "app/model/RecordReader.h"

#include <utility>

namespace zv {

std::string wrongTypeReason(PropertyList const& value, std::string_view expected)
{
    return "is " + std::string(value.typeName()) + " where " + std::string(expected) + " is expected";
}

RecordReader::RecordReader(PropertyList const& record)
    : m_record(record.dictionary())
{
    if (!m_record)
        fail({}, wrongTypeReason(record, "a dictionary"));
}

std::string RecordReader::requiredString(std::string_view key)
{
    auto const* value = required(key);
    if (!value)
        return {};
    if (auto const* text = value->string())
        return *text;
    failType(key, *value, "a string");
    return {};
}

bool RecordReader::requiredBoolean(std::string_view key)
{
    auto const* value = required(key);
    if (!value)
        return false;
    if (auto const boolean = value->boolean())
        return *boolean;
    failType(key, *value, "a boolean");
    return false;
}

PropertyListArray const* RecordReader::requiredArray(std::string_view key)
{
    auto const* value = required(key);
    if (value && !value->array())
        failType(key, *value, "an array");
    return value ? value->array() : nullptr;
}

PropertyListDictionary const* RecordReader::requiredDictionary(std::string_view key)
{
    auto const* value = required(key);
    if (value && !value->dictionary())
        failType(key, *value, "a dictionary");
    return value ? value->dictionary() : nullptr;
}

std::optional<std::string> RecordReader::optionalString(std::string_view key)
{
    auto const* value = optionalValue(key);
    if (!value)
        return std::nullopt;
    if (auto const* text = value->string())
        return *text;
    failType(key, *value, "a string");
    return std::nullopt;
}

std::optional<std::int64_t> RecordReader::optionalInteger(std::string_view key)
{
    auto const* value = optionalValue(key);
    if (!value)
        return std::nullopt;
    if (auto const integer = value->integer())
        return integer;
    if (std::holds_alternative<std::uint64_t>(value->value()))
        fail(key, "is too large a number");
    else
        failType(key, *value, "an integer");
    return std::nullopt;
}

std::optional<std::string> RecordReader::optionalBytes(std::string_view key)
{
    auto const* value = optionalValue(key);
    auto const* data = value ? value->data() : nullptr;
    if (data)
        return std::string(reinterpret_cast<char const*>(data->data()), data->size());
    return optionalString(key);
}

std::optional<PropertyListData> RecordReader::optionalData(std::string_view key)
{
    auto const* value = optionalValue(key);
    if (!value)
        return std::nullopt;
    if (auto const* data = value->data())
        return *data;
    failType(key, *value, "data");
    return std::nullopt;
}

PropertyList const* RecordReader::optionalValue(std::string_view key) const { return ok() ? m_record->find(key) : nullptr; }

void RecordReader::fail(std::string_view key, std::string reason)
{
    if (ok())
        m_failure = ReadFailure { {}, std::string(key), std::move(reason) };
}

void RecordReader::fail(std::string_view key, ReadFailure const& inner)
{
    auto const separator = inner.key.empty() ? "" : ".";
    fail(std::string(key) + separator + inner.key, inner.reason);
}

PropertyList const* RecordReader::required(std::string_view key)
{
    auto const* value = optionalValue(key);
    if (!value)
        fail(key, "is missing");
    return value;
}

void RecordReader::failType(std::string_view key, PropertyList const& value, std::string_view expected) { fail(key, wrongTypeReason(value, expected)); }

} // namespace zv
