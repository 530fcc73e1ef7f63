#pragma once

#import <Foundation/Foundation.h>

#include <string>

NS_ASSUME_NONNULL_BEGIN

/// The targets of symbolic links and alias files. Any thread.
namespace zv {

/// True when the path leads onto a volume that another machine answers for. Follows links step
/// by step and reads an alias, without resolving it, so that no such volume is touched.
bool leadsToRemoteVolume(std::string const& path);

/// Whether a volume is mounted at the path, by the kernel's own table.
bool isMountPoint(std::string const& path);

/// Follows every link and alias, but mounts nothing; nil where an alias leads nowhere.
NSURL* _Nullable targetOfLinks(NSURL* url);

} // namespace zv

NS_ASSUME_NONNULL_END
