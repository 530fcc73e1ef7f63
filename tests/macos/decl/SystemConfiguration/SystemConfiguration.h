#pragma once
// Hand-written subset: interface names and the default route.
#include <CoreFoundation/CoreFoundation.h>
#ifdef __cplusplus
extern "C" {
#endif
typedef const struct __attribute__((objc_bridge(NSObject))) __SCNetworkInterface *SCNetworkInterfaceRef;
typedef const struct __SCDynamicStore *SCDynamicStoreRef;
CFArrayRef SCNetworkInterfaceCopyAll(void);
CFStringRef SCNetworkInterfaceGetBSDName(SCNetworkInterfaceRef);
CFStringRef SCNetworkInterfaceGetLocalizedDisplayName(SCNetworkInterfaceRef);
SCDynamicStoreRef SCDynamicStoreCreate(CFAllocatorRef, CFStringRef name, void (*callback)(SCDynamicStoreRef, CFArrayRef, void *), void *context);
CFTypeRef SCDynamicStoreCopyValue(SCDynamicStoreRef, CFStringRef key);
#ifdef __cplusplus
}
#endif
