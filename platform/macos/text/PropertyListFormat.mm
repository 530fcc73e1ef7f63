#include "platform/text/PropertyListFormat.h"

#import "platform/macos/cocoa/Conversions.h"

#include <algorithm>

namespace zv {

namespace {

int depthOf(PropertyList const& value)
{
    int deepest = 0;
    if (auto const* array = value.array()) {
        for (auto const& element : *array)
            deepest = std::max(deepest, depthOf(element));
        return deepest + 1;
    }
    if (auto const* dictionary = value.dictionary()) {
        for (auto const& [key, element] : *dictionary)
            deepest = std::max(deepest, depthOf(element));
        return deepest + 1;
    }
    return 0;
}

bool hasXmlTexts(PropertyList const& value)
{
    if (auto const* text = value.string())
        return isXmlText(*text);
    if (auto const* array = value.array())
        return std::all_of(array->begin(), array->end(), hasXmlTexts);
    auto const* dictionary = value.dictionary();
    return !dictionary
        || std::all_of(dictionary->begin(), dictionary->end(), [](auto const& entry) { return isXmlText(entry.first) && hasXmlTexts(entry.second); });
}

NSPropertyListFormat formatOf(PropertyListEncoding encoding)
{
    return encoding == PropertyListEncoding::xml ? NSPropertyListXMLFormat_v1_0 : NSPropertyListBinaryFormat_v1_0;
}

} // namespace

Result<PropertyList> readPropertyList(std::span<std::byte const> bytes)
{
    if (bytes.size() > maximumPropertyListSize)
        return Failure { std::string("the document is too large") };
    NSData* const data = [NSData dataWithBytes:bytes.data() length:bytes.size()];
    NSError* error = nil;
    id const object = [NSPropertyListSerialization propertyListWithData:data options:NSPropertyListImmutable format:nullptr error:&error];
    auto value = object ? fromFoundation(object) : std::nullopt;
    if (!value)
        return Failure { describe(error) };
    if (depthOf(*value) > maximumPropertyListDepth)
        return Failure { std::string("the document is nested too deep") };
    return std::move(*value);
}

Result<std::vector<std::byte>> writePropertyList(PropertyList const& value, PropertyListEncoding encoding)
{
    if (depthOf(value) > maximumPropertyListDepth)
        return Failure { std::string("the document is nested too deep") };
    if (encoding == PropertyListEncoding::xml && !hasXmlTexts(value))
        return Failure { std::string("a text holds a character that XML has not") };
    id const object = toFoundation(value);
    if (!object)
        return Failure { std::string("a text is not UTF-8") };
    NSError* error = nil;
    NSData* const data = [NSPropertyListSerialization dataWithPropertyList:object format:formatOf(encoding) options:0 error:&error];
    if (!data)
        return Failure { describe(error) };
    return fromNSData(data);
}

} // namespace zv
