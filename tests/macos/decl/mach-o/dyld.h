#pragma once
// Hand-written subset: the path of the executable.
#include <cstdint>
extern "C" int _NSGetExecutablePath(char *buffer, std::uint32_t *size);
