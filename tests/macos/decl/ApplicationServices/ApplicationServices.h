#pragma once
// Hand-written subset: what the user lets the program do to others.
#include <CoreServices/CoreServices.h>
#ifdef __cplusplus
extern "C" {
#endif
Boolean AXIsProcessTrusted(void);
#ifdef __cplusplus
}
#endif
