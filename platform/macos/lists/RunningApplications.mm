#import "platform/macos/cocoa/Conversions.h"
#include "platform/macos/cocoa/Factories.h"

namespace zv {

namespace {

class MacRunningApplications : public RunningApplications {
public:
    void list(std::function<void(List)> done) override
    {
        std::vector<RunningApplication> running;
        pid_t const own = [[NSRunningApplication currentApplication] processIdentifier];
        for (NSRunningApplication* application in [[NSWorkspace sharedWorkspace] runningApplications]) {
            bool const isRegular = [application activationPolicy] == NSApplicationActivationPolicyRegular;
            if (!isRegular || [application processIdentifier] == own)
                continue;
            NSURL* const bundle = [application bundleURL];
            running.push_back({ std::to_string([application processIdentifier]), fromNSString([application localizedName]),
                bundle ? std::optional(fromNSURL(bundle)) : std::nullopt });
        }
        done(std::move(running));
    }

    void activate(std::string const& id) override
    {
        for (NSRunningApplication* application in [[NSWorkspace sharedWorkspace] runningApplications]) {
            if (std::to_string([application processIdentifier]) != id)
                continue;
            // Opening a running application's bundle brings it forward with its windows.
            if (NSURL* const bundle = [application bundleURL])
                [[NSWorkspace sharedWorkspace] openURL:bundle];
            else
                [application activateWithOptions:NSApplicationActivateAllWindows];
            return;
        }
    }
};

class MacVolumes : public Volumes {
public:
    void list(std::function<void(std::vector<Volume>)> done) override
    {
        NSFileManager* const files = [NSFileManager defaultManager];
        NSArray* const keys = [NSArray arrayWithObject:NSURLVolumeLocalizedNameKey];
        std::vector<Volume> volumes;
        for (NSURL* root in [files mountedVolumeURLsIncludingResourceValuesForKeys:keys options:NSVolumeEnumerationSkipHiddenVolumes]) {
            NSString* label = nil;
            [root getResourceValue:&label forKey:NSURLVolumeLocalizedNameKey error:nullptr];
            volumes.push_back({ fromNSURL(root), fromNSString(label), [[root path] isEqualToString:@"/"] != NO });
        }
        done(std::move(volumes));
    }
};

} // namespace

std::unique_ptr<RunningApplications> makeRunningApplications()
{
    return std::make_unique<MacRunningApplications>();
}

std::unique_ptr<Volumes> makeVolumes()
{
    return std::make_unique<MacVolumes>();
}

} // namespace zv
