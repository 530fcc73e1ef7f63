#import "platform/macos/cocoa/Factories.h"

#import <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>

namespace zv {

namespace {

constexpr AEEventClass everyClass = '****'; // typeWildCard
constexpr AEEventID everyEvent = '****';

/// The permission to send events to that program, unknown while it does not run:
/// AEDeterminePermissionToAutomateTarget() in AE/AppleEvents.h.
PermissionState stateOfEventsTo(NSString* identifier)
{
    NSAppleEventDescriptor* const target = [NSAppleEventDescriptor descriptorWithBundleIdentifier:identifier];
    OSStatus const status = AEDeterminePermissionToAutomateTarget([target aeDesc], everyClass, everyEvent, false);
    if (status == noErr)
        return PermissionState::granted;
    return status == errAEEventNotPermitted ? PermissionState::refused : PermissionState::notAsked;
}

/// Combines both receivers of our events: a single refusal counts.
PermissionState automationState()
{
    auto const toSystemEvents = stateOfEventsTo(@"com.apple.systemevents");
    auto const toLoginWindow = stateOfEventsTo(@"com.apple.loginwindow");
    if (toSystemEvents == PermissionState::refused || toLoginWindow == PermissionState::refused)
        return PermissionState::refused;
    bool const isGranted = toSystemEvents == PermissionState::granted || toLoginWindow == PermissionState::granted;
    return isGranted ? PermissionState::granted : PermissionState::notAsked;
}

class MacPermissions : public Permissions {
public:
    PermissionState state(Permission permission) const override
    {
        if (permission == Permission::automation)
            return automationState();
        return AXIsProcessTrusted() ? PermissionState::granted : PermissionState::refused;
    }
};

} // namespace

std::unique_ptr<Permissions> makePermissions() { return std::make_unique<MacPermissions>(); }

} // namespace zv
