#pragma once

#import "platform/macos/cocoa/Conversions.h"

#include <sys/xattr.h>

/// The mark by which the system knows what was downloaded: LaunchServices/LSQuarantine.h tells what it
/// holds, no header its name. Of the file itself, not of what a link leads to.
namespace zv {

constexpr char const* quarantineAttribute = "com.apple.quarantine";

inline bool isQuarantined(NSString* file) { return getxattr(fromNSString(file).c_str(), quarantineAttribute, nullptr, 0, 0, XATTR_NOFOLLOW) >= 0; }

} // namespace zv
