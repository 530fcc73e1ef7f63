#pragma once
// Hand-written subset: the collator of Unicode Utilities.
#include <CoreFoundation/CoreFoundation.h>
#ifdef __cplusplus
extern "C" {
#endif
typedef struct OpaqueCollatorRef *CollatorRef;
typedef UInt32 UCCollateOptions, UCCollationValue;
typedef unsigned long ItemCount;
enum { kUCCollateComposeInsensitiveMask = 1L << 1, kUCCollateWidthInsensitiveMask = 1L << 2, kUCCollateCaseInsensitiveMask = 1L << 3,
  kUCCollateDigitsOverrideMask = 1L << 4, kUCCollateDigitsAsNumberMask = 1L << 5, kUCCollatePunctuationSignificantMask = 1L << 15 };
OSStatus UCCreateCollator(void *locale, UInt32 opVariant, UCCollateOptions options, CollatorRef *out);
OSStatus UCGetCollationKey(CollatorRef, const UniChar *text, UniCharCount length, ItemCount maxKeySize, ItemCount *actualKeySize, UCCollationValue key[]);
enum { kCoreEventClass = 'aevt', kAESleep = 'slep', kAEShowRestartDialog = 'rrst', kAEShowShutdownDialog = 'rsdn', kAELogOut = 'logo',
  kAERestart = 'rest', kAEShutDown = 'shut', kAEReallyLogOut = 'rlgo' };
typedef FourCharCode AEEventClass, AEEventID;
typedef struct AEDesc AEDesc, AEAddressDesc;
OSStatus AEDeterminePermissionToAutomateTarget(const AEAddressDesc *target, AEEventClass, AEEventID, Boolean askUserIfNeeded);
enum { errAEEventNotPermitted = -1743, procNotFound = -600, errAETimeout = -1712 };
#ifdef __cplusplus
}
#endif
