#pragma once

#import "platform/macos/cocoa/Conversions.h"

#include <sys/xattr.h>

NS_ASSUME_NONNULL_BEGIN

/// The mark that the system puts on downloads: LaunchServices/LSQuarantine.h describes its contents,
/// no header its name. Read from the file itself, not from a link's target.
namespace zv {

constexpr char const* quarantineAttribute = "com.apple.quarantine";

inline bool isQuarantined(NSString* file) { return getxattr(fromNSString(file).c_str(), quarantineAttribute, nullptr, 0, 0, XATTR_NOFOLLOW) >= 0; }

} // namespace zv

NS_ASSUME_NONNULL_END
