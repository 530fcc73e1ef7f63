#pragma once
// Hand-written subset: Apple events.
#include <CoreFoundation/CoreFoundation.h>
#ifdef __cplusplus
extern "C" {
#endif
enum { kCoreEventClass = 'aevt', kAESleep = 'slep', kAEShowRestartDialog = 'rrst', kAEShowShutdownDialog = 'rsdn', kAELogOut = 'logo',
  kAERestart = 'rest', kAEShutDown = 'shut', kAEReallyLogOut = 'rlgo' };
typedef FourCharCode AEEventClass, AEEventID;
typedef struct AEDesc AEDesc, AEAddressDesc;
OSStatus AEDeterminePermissionToAutomateTarget(const AEAddressDesc *target, AEEventClass, AEEventID, Boolean askUserIfNeeded);
enum { errAEEventNotPermitted = -1743, errAEEventWouldRequireUserConsent = -1744, procNotFound = -600, errAETimeout = -1712 };
#ifdef __cplusplus
}
#endif
