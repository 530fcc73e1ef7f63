#include "platform/text/NumberText.h"

#include <unicode/numberformatter.h>
#include <unicode/unistr.h>

namespace zv {

std::string localizedNumber(std::int64_t value)
{
    auto status = U_ZERO_ERROR;
    auto const text = icu::number::NumberFormatter::withLocale(icu::Locale()).formatInt(value, status).toString(status);
    std::string utf8;
    return U_SUCCESS(status) ? text.toUTF8String(utf8) : std::to_string(value);
}

} // namespace zv
