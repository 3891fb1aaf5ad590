// QX_SSE2 is 1 if the target processors support SSE2 instructions, as all 64-bit x86 processors do. Code that
// uses them also has a version without, for other processors.
#pragma once

#if defined(__SSE2__) || defined(_M_X64)
#define QX_SSE2 1
#include <emmintrin.h>
#else
#define QX_SSE2 0
#endif
