#pragma once
// Hand-written subset: window list, window levels, keys that are down, clip to mask, bitmap context.
#include <CoreFoundation/CoreFoundation.h>
#ifdef __cplusplus
extern "C" {
#endif
typedef struct CGColorSpace *CGColorSpaceRef; // CGContextRef and CGImageRef come from GNUstep's headers
typedef UInt32 CGWindowID, CGWindowListOption; typedef SInt32 CGWindowLevel, CGWindowLevelKey;
enum { kCGWindowListOptionAll = 0, kCGWindowListOptionOnScreenOnly = 1, kCGWindowListOptionIncludingWindow = 8, kCGNullWindowID = 0, kCGMainMenuWindowLevelKey = 8, kCGStatusWindowLevelKey = 9 };
typedef UInt16 CGKeyCode; typedef SInt32 CGEventSourceStateID;
enum { kCGEventSourceStateCombinedSessionState = 0 };
bool CGEventSourceKeyState(CGEventSourceStateID, CGKeyCode);
CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption, CGWindowID);
CGWindowLevel CGWindowLevelForKey(CGWindowLevelKey);
bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef, CGRect *);
extern const CFStringRef kCGWindowOwnerName, kCGWindowLayer, kCGWindowBounds, kCGWindowNumber, kCGWindowIsOnscreen, kCGColorSpaceSRGB;
enum { kCGImageAlphaNone = 0, kCGImageAlphaPremultipliedLast = 1 };
CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef); CGColorSpaceRef CGColorSpaceCreateDeviceGray(void); void CGColorSpaceRelease(CGColorSpaceRef);
CGContextRef CGBitmapContextCreate(void *, std::size_t w, std::size_t h, std::size_t bits, std::size_t row, CGColorSpaceRef, UInt32 info);
CGImageRef CGBitmapContextCreateImage(CGContextRef);
void CGContextRelease(CGContextRef); void CGImageRelease(CGImageRef);
void CGContextClipToMask(CGContextRef, CGRect, CGImageRef);
void CGContextSaveGState(CGContextRef); void CGContextRestoreGState(CGContextRef);
void CGContextScaleCTM(CGContextRef, CGFloat, CGFloat);
#ifdef __cplusplus
}
#endif
