#pragma once
// Hand-written subset: the system's own form has options.
enum { XATTR_NOFOLLOW = 0x0001 };
extern "C" int removexattr(const char *path, const char *name, int options);
