#include "platform/text/NumberText.h"

#import "platform/macos/cocoa/Conversions.h"

namespace zv {

std::string localizedNumber(std::int64_t value)
{
    return fromNSString([NSNumberFormatter localizedStringFromNumber:@(value) numberStyle:NSNumberFormatterDecimalStyle]);
}

} // namespace zv
