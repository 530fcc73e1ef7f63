#pragma once
// Hand-written subset: permissions to act on other programs.
#include <CoreServices/CoreServices.h>
#ifdef __cplusplus
extern "C" {
#endif
Boolean AXIsProcessTrusted(void);
#ifdef __cplusplus
}
#endif
