#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

#include <clocale>
#include <cwchar>

namespace zv {

namespace {

/// Uses the C library's widths of characters, in a locale of Unicode.
class CellTextMeasure : public TextMeasure {
public:
    CellTextMeasure()
    {
        for (auto const* name : { "UTF-8", "en_US.UTF-8", "C.UTF-8" }) {
            if (std::setlocale(LC_CTYPE, name))
                return;
        }
    }

    double menuFontWidth(std::string_view text) const override
    {
        NSData* const data = [toNSString(text) dataUsingEncoding:NSUTF32LittleEndianStringEncoding];
        auto const* const codePoints = static_cast<char32_t const*>(data.bytes);
        int cells = 0;
        for (std::size_t i = 0; i < data.length / sizeof(char32_t); ++i)
            cells += cellsOf(codePoints[i]);
        return cells;
    }

private:
    /// The width in cells: 0 for joiners and variation selectors, 1 where the library knows none.
    static int cellsOf(char32_t codePoint)
    {
        bool const isJoiner = (codePoint >= 0x200B && codePoint <= 0x200F) || (codePoint >= 0xFE00 && codePoint <= 0xFE0F);
        int const width = ::wcwidth(static_cast<wchar_t>(codePoint));
        return isJoiner ? 0 : width < 0 ? 1 : width;
    }
};

} // namespace

std::unique_ptr<TextMeasure> makeCellTextMeasure() { return std::make_unique<CellTextMeasure>(); }

} // namespace zv
