#include "app/model/MenuDocument.h"
#include "tests/fuzz/Model.h"

using namespace zv;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    auto const menu = readMenuDocument(fuzz::bytesAt(data, size), fuzz::services());
    if (!menu) {
        fuzz::require(!menu.error().description().empty(), "a failure without a reason");
        return 0;
    }
    fuzz::require(menuDocument(menu->items).ok(), "an imported menu cannot be exported");
    fuzz::requireRoundTrips(menu->items);
    return 0;
}
