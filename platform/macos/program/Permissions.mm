#import "platform/macos/cocoa/Factories.h"

#import <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>

namespace zv {

namespace {

constexpr AEEventClass everyClass = '****'; // typeWildCard
constexpr AEEventID everyEvent = '****';

/// The permission to send events to that program: AEDeterminePermissionToAutomateTarget() in
/// AE/AppleEvents.h. A refusal may be told as "would require consent" (openradar 44049802), which
/// counts as not asked. A program that does not run has no answer, granted or not, and System Events
/// ends as soon as it has nothing to do (BasedHardware/omi#12625).
PermissionState stateOfEventsTo(NSString* identifier)
{
    NSAppleEventDescriptor* const target = [NSAppleEventDescriptor descriptorWithBundleIdentifier:identifier];
    switch (AEDeterminePermissionToAutomateTarget(target.aeDesc, everyClass, everyEvent, false)) {
    case noErr:
        return PermissionState::granted;
    case errAEEventNotPermitted:
        return PermissionState::refused;
    case procNotFound:
        return PermissionState::notKnown;
    case errAEEventWouldRequireUserConsent:
    default:
        return PermissionState::notAsked;
    }
}

class MacPermissions : public Permissions {
public:
    PermissionState state(Permission permission) const override
    {
        if (permission == Permission::automation)
            return combined(stateOfEventsTo(@"com.apple.systemevents"), stateOfEventsTo(@"com.apple.loginwindow"));
        return AXIsProcessTrusted() ? PermissionState::granted : PermissionState::refused;
    }
};

} // namespace

std::unique_ptr<Permissions> makePermissions() { return std::make_unique<MacPermissions>(); }

} // namespace zv
