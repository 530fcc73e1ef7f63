#include "app/model/PropertyListJson.h"

#include "base/Base64.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>
#include <utility>

namespace zv {

namespace {

using Json = nlohmann::ordered_json;

constexpr int maximumDepth = 512;

struct NamedReal {
    char const* name;
    double value;
};

NamedReal const namedReals[] = {
    { "nan", std::numeric_limits<double>::quiet_NaN() },
    { "inf", std::numeric_limits<double>::infinity() },
    { "-inf", -std::numeric_limits<double>::infinity() },
};

Json realToJson(double value)
{
    if (std::isnan(value))
        return { { "$real", "nan" } };
    if (std::isinf(value))
        return { { "$real", value > 0 ? "inf" : "-inf" } };
    return value;
}

struct Writer {
    Json operator()(std::string const& value) const { return value; }
    Json operator()(std::int64_t value) const { return value; }
    Json operator()(std::uint64_t value) const { return value; }
    Json operator()(double value) const { return realToJson(value); }
    Json operator()(bool value) const { return value; }
    Json operator()(PropertyListDate value) const { return { { "$date", realToJson(value.secondsSinceReference) } }; }
    Json operator()(PropertyListData const& value) const { return { { "$data", toBase64(value) } }; }
    Json operator()(PropertyListArray const& value) const
    {
        auto array = Json::array();
        for (auto const& element : value)
            array.push_back(toJson(element));
        return array;
    }
    Json operator()(PropertyListDictionary const& value) const
    {
        auto object = Json::object();
        for (auto const& [key, element] : value)
            object[key] = toJson(element);
        bool const looksWrapped = value.size() == 1 && value.begin()->first.starts_with('$');
        return looksWrapped ? Json { { "$dictionary", std::move(object) } } : object;
    }
};

/// Reads one value; afterwards `failure` tells whether that succeeded.
class Reader {
public:
    PropertyList read(Json const& json, int depth = 0)
    {
        if (depth > maximumDepth)
            return fail("is nested too deep");
        switch (json.type()) {
        case Json::value_t::string:
            return json.get_ref<std::string const&>();
        case Json::value_t::boolean:
            return json.get<bool>();
        case Json::value_t::number_integer:
            return json.get<std::int64_t>();
        case Json::value_t::number_unsigned:
            return json.get<std::uint64_t>();
        case Json::value_t::number_float:
            return json.get<double>();
        case Json::value_t::array:
            return readArray(json, depth);
        case Json::value_t::object:
            return readObject(json, depth);
        default:
            return fail("holds a null");
        }
    }

    std::string failure;

private:
    PropertyList readArray(Json const& json, int depth)
    {
        PropertyListArray array;
        array.reserve(json.size());
        for (auto const& element : json)
            array.push_back(read(element, depth + 1));
        return array;
    }

    PropertyList readObject(Json const& json, int depth)
    {
        if (json.size() == 1 && json.begin().key() == "$dictionary" && json.begin()->is_object())
            return readDictionary(json.front(), depth + 1);
        if (json.size() == 1 && json.begin().key().starts_with('$'))
            return readWrapped(json.begin().key(), json.front());
        return readDictionary(json, depth);
    }

    PropertyListDictionary readDictionary(Json const& json, int depth)
    {
        PropertyListDictionary dictionary;
        dictionary.reserve(json.size());
        for (auto const& [key, value] : json.items())
            dictionary.set(key, read(value, depth + 1));
        return dictionary;
    }

    PropertyList readWrapped(std::string const& key, Json const& json)
    {
        if (key == "$date")
            return readDate(json);
        auto const* text = json.get_ptr<std::string const*>();
        if (key == "$data" && text) {
            if (auto data = fromBase64(*text))
                return std::move(*data);
        }
        if (key == "$real" && text) {
            for (auto const& named : namedReals) {
                if (*text == named.name)
                    return named.value;
            }
        }
        return fail("holds a wrong \"" + key + "\"");
    }

    PropertyList readDate(Json const& json)
    {
        if (json.is_number())
            return PropertyListDate { json.get<double>() };
        auto const real = json.is_object() ? readObject(json, 0).real() : std::nullopt;
        return real ? PropertyList(PropertyListDate { *real }) : fail("holds a wrong \"$date\"");
    }

    PropertyList fail(std::string reason)
    {
        if (failure.empty())
            failure = std::move(reason);
        return {};
    }
};

} // namespace

nlohmann::ordered_json toJson(PropertyList const& value) { return std::visit(Writer(), value.value()); }

Result<PropertyList> propertyListFromJson(nlohmann::ordered_json const& json)
{
    Reader reader;
    auto value = reader.read(json);
    if (!reader.failure.empty())
        return Failure { reader.failure };
    return value;
}

} // namespace zv
