#pragma once

#import "platform/macos/cocoa/Conversions.h"

#include <cstdlib>
#include <string>
#include <sys/xattr.h>

NS_ASSUME_NONNULL_BEGIN

/// The mark that the system puts on downloads: LaunchServices/LSQuarantine.h describes its contents,
/// no header its name. Read from the file itself, not from a link's target.
namespace zv {

constexpr char const* quarantineAttribute = "com.apple.quarantine";

inline bool isQuarantined(NSString* file) { return getxattr(fromNSString(file).c_str(), quarantineAttribute, nullptr, 0, 0, XATTR_NOFOLLOW) >= 0; }

/// Whether the mark says that the file came from another machine: bit 0 of the number that it begins with, in hexadecimal.
inline bool wasDownloaded(std::string const& file)
{
    constexpr unsigned long downloadFlag = 1;
    char mark[256] {};
    auto const length = getxattr(file.c_str(), quarantineAttribute, mark, sizeof mark - 1, 0, XATTR_NOFOLLOW);
    // A mark that does not fit is one all the same.
    return length > 0 ? (std::strtoul(mark, nullptr, 16) & downloadFlag) != 0 : getxattr(file.c_str(), quarantineAttribute, nullptr, 0, 0, XATTR_NOFOLLOW) > 0;
}

} // namespace zv

NS_ASSUME_NONNULL_END
