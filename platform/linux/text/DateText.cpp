#include "platform/text/DateText.h"

#include <memory>
#include <unicode/datefmt.h>
#include <unicode/unistr.h>

namespace zv {

std::string localizedDateAndTime(WallTime time)
{
    std::unique_ptr<icu::DateFormat> const format(icu::DateFormat::createDateTimeInstance(icu::DateFormat::kMedium, icu::DateFormat::kShort));
    icu::UnicodeString text;
    auto const milliseconds = std::chrono::duration<double, std::milli>(time.time_since_epoch()).count();
    if (format)
        format->format(milliseconds, text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

} // namespace zv
