#pragma once
// Hand-written subset of the system's mount table.
#include <cstdint>
struct statfs { std::uint32_t f_flags; char f_mntonname[1024]; };
enum { MNT_NOWAIT = 2, MNT_LOCAL = 0x00001000 };
extern "C" int getfsstat(struct statfs *mounts, int bytes, int flags);
