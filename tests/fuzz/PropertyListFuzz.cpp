#include "platform/text/PropertyListFormat.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

using namespace zv;

namespace {

void require(bool holds, char const* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "PropertyListFuzz: %s\n", what);
    std::abort();
}

/// The value as text, to be compared: no number equals NaN.
std::optional<std::vector<std::byte>> inXml(PropertyList const& value)
{
    auto written = writePropertyList(value, PropertyListEncoding::xml);
    return written ? std::optional(std::move(*written)) : std::nullopt;
}

int depthOf(PropertyList const& value)
{
    int deepest = -1;
    if (auto const* array = value.array()) {
        deepest = 0;
        for (auto const& element : *array)
            deepest = std::max(deepest, depthOf(element));
    }
    if (auto const* dictionary = value.dictionary()) {
        deepest = 0;
        for (auto const& [key, element] : *dictionary)
            deepest = std::max(deepest, depthOf(element));
    }
    return deepest + 1;
}

/// The deepest nesting of the containers' tags in what we write, where no text holds a "<".
int writtenDepth(std::vector<std::byte> const& xml)
{
    int depth = 0;
    int deepest = 0;
    std::string_view const text(reinterpret_cast<char const*>(xml.data()), xml.size());
    for (auto at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        bool const isClosing = text.substr(at).starts_with("</");
        auto const tag = text.substr(at + (isClosing ? 2 : 1), text.find('>', at) - at - (isClosing ? 2 : 1));
        if (tag == "array" || tag == "dict")
            deepest = std::max(deepest, depth += isClosing ? -1 : 1);
        else if (tag == "array/" || tag == "dict/")
            deepest = std::max(deepest, depth + 1);
    }
    return deepest;
}

void requireSameDepth(PropertyList const& value)
{
    auto const depth = depthOf(value);
    require(depth <= maximumPropertyListDepth, "is deeper than allowed");
    if (auto const written = inXml(value))
        require(writtenDepth(*written) == depth, "is written with another depth than it was read with");
}

/// Requires that a value can be written and reads the same again. A first round cuts the
/// fractions of a second that XML lacks.
void requireRoundTrip(PropertyList const& value, PropertyListEncoding encoding)
{
    auto const written = writePropertyList(value, encoding);
    if (!written)
        return; // a small binary document may unfold to a large one
    auto const settled = readPropertyList(*written);
    require(settled.ok(), settled ? "" : settled.error().c_str());
    auto const again = writePropertyList(*settled, encoding);
    require(again.ok(), "cannot be written again");
    auto const reread = readPropertyList(*again);
    require(reread.ok(), "cannot be read again");
    require(inXml(*reread) == inXml(*settled), "is another value the second time");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    auto const value = readPropertyList({ reinterpret_cast<std::byte const*>(data), size });
    if (!value)
        return 0;
    requireSameDepth(*value);
    requireRoundTrip(*value, PropertyListEncoding::xml);
    requireRoundTrip(*value, PropertyListEncoding::binary);
    return 0;
}
