#include "platform/text/DateText.h"

#import "platform/macos/cocoa/Conversions.h"

namespace zv {

std::string localizedDateAndTime(WallTime time)
{
    NSDateFormatter* const formatter = [[NSDateFormatter alloc] init];
    formatter.dateStyle = NSDateFormatterMediumStyle;
    formatter.timeStyle = NSDateFormatterShortStyle;
    auto const seconds = std::chrono::duration<double>(time.time_since_epoch()).count();
    return fromNSString([formatter stringFromDate:[NSDate dateWithTimeIntervalSince1970:seconds]]);
}

} // namespace zv
