#import "platform/macos/Conversions.h"
#import "platform/macos/Factories.h"

#include <sys/xattr.h>

namespace zv {

namespace {

bool isQuarantined(NSURL* bundle) { return getxattr(fromNSString([bundle path]).c_str(), "com.apple.quarantine", nullptr, 0, 0, XATTR_NOFOLLOW) >= 0; }

bool hasUpdateFramework()
{
    NSString* const path = [[[NSBundle mainBundle] privateFrameworksPath] stringByAppendingPathComponent:@"Sparkle.framework"];
    return path && [[NSFileManager defaultManager] fileExistsAtPath:path];
}

} // namespace

MacFindings surveyThisMac()
{
    NSURL* const bundle = [[NSBundle mainBundle] bundleURL];
    MacFindings found;
    found.place = makeInstallation({})->source(fromNSURL(bundle));
    found.isQuarantined = isQuarantined(bundle);
    found.openAtLogin = makeLoginService()->status();
    found.hasUpdateFramework = hasUpdateFramework();
    found.hasMenuBarFunctions = makeMenuBarVisibility() != nullptr;
    return found;
}

} // namespace zv
