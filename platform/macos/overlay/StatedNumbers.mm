/// Numbers that the core, documents on disk and other programs know by value, each checked
/// against the system's own name for it when this file is compiled.
#import "platform/macos/cocoa/Conversions.h"

#include "platform/desk/ModifierKeys.h"
#include "platform/macos/overlay/OverlayPanelStyle.h"
#include "platform/menubar/HotkeyRegistrar.h"
#include "platform/session/SessionEvents.h"

#import <Carbon/Carbon.h>
#import <CoreGraphics/CoreGraphics.h>
#import <CoreServices/CoreServices.h>
#import <ServiceManagement/ServiceManagement.h>
#import <UserNotifications/UserNotifications.h>

namespace zv {

// Modifier keys of menus and events.
static_assert(NSEventModifierFlagShift == 0x20000 && static_cast<unsigned>(ModifierMask::shift) == NSEventModifierFlagShift);
static_assert(NSEventModifierFlagControl == 0x40000 && static_cast<unsigned>(ModifierMask::control) == NSEventModifierFlagControl);
static_assert(NSEventModifierFlagOption == 0x80000 && static_cast<unsigned>(ModifierMask::option) == NSEventModifierFlagOption);
static_assert(NSEventModifierFlagCommand == 0x100000 && static_cast<unsigned>(ModifierMask::command) == NSEventModifierFlagCommand);

// Key equivalents.
static_assert(NSF1FunctionKey == 0xF704 && NSF15FunctionKey == 0xF712);

// Global hot keys.
static_assert(static_cast<unsigned>(KeyModifier::commandKey) == 256 && ::cmdKey == 256);
static_assert(static_cast<unsigned>(KeyModifier::shiftKey) == 512 && ::shiftKey == 512);
static_assert(static_cast<unsigned>(KeyModifier::optionKey) == 2048 && ::optionKey == 2048);
static_assert(static_cast<unsigned>(KeyModifier::controlKey) == 4096 && ::controlKey == 4096);
static_assert(kEventClassKeyboard == 'keyb' && kEventHotKeyPressed == 5);
static_assert(kEventParamDirectObject == '----' && typeEventHotKeyID == 'hkid');
static_assert(eventNotHandledErr == -9874);
static_assert(kUCKeyActionDisplay == 3);

// The overlay: its panel, its place among windows, what it watches.
static_assert(NSWindowStyleMaskNonactivatingPanel == 128 && NSBackingStoreBuffered == 2);
static_assert(static_cast<unsigned>(NSWindowCollectionBehaviorCanJoinAllSpaces) + static_cast<unsigned>(NSWindowCollectionBehaviorStationary)
        + static_cast<unsigned>(NSWindowCollectionBehaviorIgnoresCycle) + static_cast<unsigned>(NSWindowCollectionBehaviorFullScreenAuxiliary)
    == overlayPanelStyle::collectionBehavior);
static_assert(overlayPanelStyle::collectionBehavior == 337);
// The levels themselves are calls in some versions of the system's headers; the keys are not.
static_assert(kCGMainMenuWindowLevelKey == 8 && kCGStatusWindowLevelKey == 9 && overlayPanelStyle::level == 25);
static_assert(NSWindowAnimationBehaviorNone == 2);
static_assert(NSEventMaskMouseMoved == 1 << 5);
static_assert(kCGWindowListOptionAll == 0 && kCGWindowListOptionOnScreenOnly == 1 && kCGWindowListOptionIncludingWindow == 8 && kCGNullWindowID == 0);
static_assert(NSCompositingOperationSourceOver == 2);

// Windows and alerts.
static_assert(NSApplicationActivationPolicyRegular == 0 && NSApplicationActivationPolicyAccessory == 1);
static_assert(NSWindowStyleMaskTitled == 1 && NSWindowStyleMaskClosable == 2 && NSWindowStyleMaskResizable == 8);
static_assert(NSAlertFirstButtonReturn == 1000);
static_assert(static_cast<unsigned>(NSStringDrawingUsesLineFragmentOrigin) == 1 && static_cast<unsigned>(NSStringDrawingUsesFontLeading) == 2);
static_assert(NSFontDescriptorTraitItalic == 1);

// Files.
static_assert(NSDirectoryEnumerationSkipsHiddenFiles == 4);
static_assert(NSURLBookmarkCreationSuitableForBookmarkFile == 1024);
static_assert(NSURLBookmarkResolutionWithoutUI == 256 && NSURLBookmarkResolutionWithoutMounting == 512);
static_assert(NSVolumeEnumerationSkipHiddenVolumes == 2);
static_assert(NSItemReplacementDirectory == 99);
static_assert(NSPropertyListXMLFormat_v1_0 == 100 && NSPropertyListBinaryFormat_v1_0 == 200);

// Tools, scripts and events to other programs.
static_assert(NSTaskTerminationReasonUncaughtSignal == 2);
static_assert(NSAppleEventSendNoReply == 1);
static_assert(errAEEventNotPermitted == SessionStatus::notPermitted && SessionStatus::notPermitted == -1743);
static_assert(procNotFound == SessionStatus::noSuchService && SessionStatus::noSuchService == -600);
static_assert(errAETimeout == SessionStatus::timedOut && SessionStatus::timedOut == -1712);

// Observing and notifying.
static_assert(NSNotificationSuspensionBehaviorDeliverImmediately == 4);
static_assert(NSKeyValueObservingOptionNew == 1 && NSKeyValueObservingOptionInitial == 4);
static_assert(UNAuthorizationOptionSound == 2 && UNAuthorizationOptionAlert == 4 && (UNAuthorizationOptionAlert | UNAuthorizationOptionSound) == 6);
static_assert((UNNotificationPresentationOptionBanner | UNNotificationPresentationOptionSound) == 18);

// The login item.
static_assert(SMAppServiceStatusNotRegistered == 0 && SMAppServiceStatusEnabled == 1);
static_assert(SMAppServiceStatusRequiresApproval == 2 && SMAppServiceStatusNotFound == 3);

} // namespace zv
