#pragma once
// Hand-written subset: renaming that never replaces.
enum { RENAME_EXCL = 0x00000004 };
extern "C" int renamex_np(const char *from, const char *to, unsigned int flags);
