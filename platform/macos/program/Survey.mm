#import "platform/macos/cocoa/Factories.h"
#import "platform/macos/files/ProgramFolders.h"
#import "platform/macos/files/Quarantine.h"

namespace zv {

namespace {

bool hasUpdateFramework()
{
    NSString* const path = updateFramework();
    return path && [NSFileManager.defaultManager fileExistsAtPath:path];
}

} // namespace

MacFindings surveyThisMac()
{
    NSURL* const bundle = NSBundle.mainBundle.bundleURL;
    MacFindings found;
    found.place = makeInstallation({})->source(fromNSURL(bundle));
    found.isQuarantined = isQuarantined(bundle.path);
    found.openAtLogin = makeLoginService()->status();
    found.hasUpdateFramework = hasUpdateFramework();
    found.hasMenuBarFunctions = makeMenuBarVisibility() != nullptr;
    return found;
}

} // namespace zv
