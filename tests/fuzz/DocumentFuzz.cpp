#include "app/model/ItemPicture.h"
#include "app/model/SetupDocument.h"
#include "tests/fuzz/Model.h"

using namespace zv;

namespace {

void readAsSetup(std::span<std::byte const> bytes)
{
    auto const setup = readSetup(bytes, fuzz::services());
    if (!setup)
        return;
    auto const again = setupDocument(*setup);
    fuzz::require(again && readSetup(*again, fuzz::services()).ok(), "a setup that was read cannot be written and read again");
    for (auto const& [name, data] : setup->images)
        fuzz::require(isPictureName(name) && name.find('/') == std::string::npos, "an image leads elsewhere");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    readAsSetup(fuzz::bytesAt(data, size));
    auto const menu = readMenuDocument(fuzz::bytesAt(data, size), fuzz::services());
    if (!menu) {
        fuzz::require(!menu.error().description().empty(), "a failure without a reason");
        return 0;
    }
    fuzz::require(menuDocument(menu->items).ok(), "an imported menu cannot be exported");
    fuzz::requireRoundTrips(menu->items);
    return 0;
}
