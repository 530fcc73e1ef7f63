#include "platform/linux/text/CellTextMeasure.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <cstdint>

namespace zv {

namespace {

bool takesNoCell(UChar32 codePoint)
{
    auto const category = U_GET_GC_MASK(codePoint);
    return (category & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) != 0;
}

bool takesTwoCells(UChar32 codePoint)
{
    auto const width = u_getIntPropertyValue(codePoint, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH;
}

int cellsOf(UChar32 codePoint)
{
    if (codePoint < 0)
        return 1; // shown as the replacement character
    if (takesNoCell(codePoint))
        return 0;
    return takesTwoCells(codePoint) ? 2 : 1;
}

} // namespace

double CellTextMeasure::menuFontWidth(std::string_view text) const
{
    auto const* const bytes = reinterpret_cast<std::uint8_t const*>(text.data());
    auto const length = static_cast<std::int32_t>(text.size());
    int cells = 0;
    for (std::int32_t offset = 0; offset < length;) {
        UChar32 codePoint = 0;
        U8_NEXT(bytes, offset, length, codePoint);
        cells += cellsOf(codePoint);
    }
    return cells;
}

} // namespace zv
