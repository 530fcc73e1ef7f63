#pragma once
#include <cstdint>
#include <sys/types.h>
// Hand-written subset: the system's own form has options.
enum { XATTR_NOFOLLOW = 0x0001 };
extern "C" int removexattr(const char *path, const char *name, int options);
extern "C" ssize_t getxattr(const char *path, const char *name, void *value, size_t size, std::uint32_t position, int options);
