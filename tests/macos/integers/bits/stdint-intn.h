#pragma once
// Replaces glibc's own: a 64-bit number is a long long on a Mac, another type than long.
#include <bits/types.h>
typedef __int8_t int8_t;
typedef __int16_t int16_t;
typedef __int32_t int32_t;
typedef long long int64_t;
