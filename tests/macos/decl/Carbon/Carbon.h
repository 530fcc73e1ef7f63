#pragma once
// Hand-written subset: hot keys, text input sources, UCKeyTranslate.
#include <CoreFoundation/CoreFoundation.h>
#ifdef __cplusplus
extern "C" {
#endif
typedef struct OpaqueEventHotKeyRef *EventHotKeyRef;
typedef struct OpaqueEventTargetRef *EventTargetRef;
typedef struct OpaqueEventRef *EventRef;
typedef struct OpaqueEventHandlerRef *EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef *EventHandlerCallRef;
typedef OSStatus (*EventHandlerUPP)(EventHandlerCallRef, EventRef, void *);
typedef UInt32 EventParamName, EventParamType; typedef unsigned long ByteCount, ItemCount; typedef UInt32 OptionBits;
typedef struct { OSType signature; UInt32 id; } EventHotKeyID;
typedef struct { OSType eventClass; UInt32 eventKind; } EventTypeSpec;
enum { kEventClassKeyboard = 'keyb', kEventHotKeyPressed = 5, kEventParamDirectObject = '----', typeEventHotKeyID = 'hkid',
  eventNotHandledErr = -9874, cmdKey = 1 << 8, shiftKey = 1 << 9, optionKey = 1 << 11, controlKey = 1 << 12 };
OSStatus RegisterEventHotKey(UInt32 code, UInt32 modifiers, EventHotKeyID id, EventTargetRef target, OptionBits options, EventHotKeyRef *out);
OSStatus UnregisterEventHotKey(EventHotKeyRef);
EventTargetRef GetEventDispatcherTarget(void);
OSStatus InstallEventHandler(EventTargetRef, EventHandlerUPP, ItemCount, const EventTypeSpec *, void *user, EventHandlerRef *out);
OSStatus RemoveEventHandler(EventHandlerRef);
OSStatus GetEventParameter(EventRef, EventParamName, EventParamType, EventParamType *, ByteCount, ByteCount *, void *);
double GetEventTime(EventRef);
typedef struct __TISInputSource *TISInputSourceRef;
TISInputSourceRef TISCopyCurrentKeyboardLayoutInputSource(void);
void *TISGetInputSourceProperty(TISInputSourceRef, CFStringRef);
extern const CFStringRef kTISPropertyUnicodeKeyLayoutData, kTISNotifySelectedKeyboardInputSourceChanged;
struct UCKeyboardLayout; typedef struct UCKeyboardLayout UCKeyboardLayout;
enum { kUCKeyActionDisplay = 3 };
OSStatus UCKeyTranslate(const UCKeyboardLayout *, UInt16 code, UInt16 action, UInt32 modifiers, UInt32 kbdType, OptionBits, UInt32 *dead, UniCharCount max, UniCharCount *n, UniChar *out);
UInt8 LMGetKbdType(void);
#ifdef __cplusplus
}
#endif
