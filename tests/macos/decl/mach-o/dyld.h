#pragma once
// Hand-written subset: where the program was started.
#include <cstdint>
extern "C" int _NSGetExecutablePath(char *buffer, std::uint32_t *size);
