#pragma once

#import "platform/macos/cocoa/Conversions.h"

NS_ASSUME_NONNULL_BEGIN

/// The folders of the user's own files, and the place of the update framework.
namespace zv {

inline Url homeFolder() { return fromNSURL(NSFileManager.defaultManager.homeDirectoryForCurrentUser); }
inline Url itemsFolder() { return homeFolder().appending("Library").appending("Zanthe Vell Items"); }
inline Url dataFolder() { return homeFolder().appending("Library").appending("Application Support").appending("Zanthe Vell"); }
inline Url backupsFolder() { return dataFolder().appending("Backups"); }
inline Url chosenFile() { return dataFolder().appending("Search").appending("Chosen.plist"); }
inline NSString* _Nullable updateFramework() { return [NSBundle.mainBundle.privateFrameworksPath stringByAppendingPathComponent:@"Sparkle.framework"]; }

} // namespace zv

NS_ASSUME_NONNULL_END
