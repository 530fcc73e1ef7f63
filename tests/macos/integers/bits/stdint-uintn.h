#pragma once
// Replaces glibc's own: a 64-bit number is an unsigned long long on a Mac, another type than size_t.
#include <bits/types.h>
typedef __uint8_t uint8_t;
typedef __uint16_t uint16_t;
typedef __uint32_t uint32_t;
typedef unsigned long long uint64_t;
