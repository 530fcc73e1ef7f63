#pragma once

#import <Foundation/Foundation.h>

#include <string>

/// Where symbolic links and alias files lead. Any thread.
namespace zv {

/// The path leads onto a volume that another machine answers for. Links are followed step by
/// step and an alias is read, not resolved, so that no such volume is touched.
bool leadsToRemoteVolume(std::string const& path);

/// Every link and alias followed, whatever it takes but for mounting; nil where an alias leads nowhere.
NSURL* targetOfLinks(NSURL* url);

} // namespace zv
