#pragma once

#import "platform/macos/cocoa/Conversions.h"

/// Where the program keeps what is the user's, and where the update framework lies if it has one.
namespace zv {

inline Url homeFolder() { return fromNSURL([[NSFileManager defaultManager] homeDirectoryForCurrentUser]); }
inline Url itemsFolder() { return homeFolder().appending("Library").appending("Zanthe Vell Items"); }
inline Url backupsFolder() { return homeFolder().appending("Library").appending("Application Support").appending("Zanthe Vell").appending("Backups"); }
inline NSString* updateFramework() { return [[[NSBundle mainBundle] privateFrameworksPath] stringByAppendingPathComponent:@"Sparkle.framework"]; }

} // namespace zv
