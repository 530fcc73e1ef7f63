#include "platform/text/PropertyListFormat.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
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
    requireRoundTrip(*value, PropertyListEncoding::xml);
    requireRoundTrip(*value, PropertyListEncoding::binary);
    return 0;
}
