#import "platform/macos/cocoa/Factories.h"

#import <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>

namespace zv {

namespace {

constexpr AEEventClass everyClass = '****'; // typeWildCard
constexpr AEEventID everyEvent = '****';

/// What the system would answer to an event for that program; a program that does not run
/// is not known. See AEDeterminePermissionToAutomateTarget() in AE/AppleEvents.h.
PermissionState stateOfEventsTo(NSString* identifier)
{
    NSAppleEventDescriptor* const target = [NSAppleEventDescriptor descriptorWithBundleIdentifier:identifier];
    OSStatus const status = AEDeterminePermissionToAutomateTarget([target aeDesc], everyClass, everyEvent, false);
    if (status == noErr)
        return PermissionState::granted;
    return status == errAEEventNotPermitted ? PermissionState::refused : PermissionState::notAsked;
}

/// Both receivers of our events count; a single refusal is what the user has to know of.
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
