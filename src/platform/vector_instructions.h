// The switch for vector instructions: QX_SSE2 is 1 if the build's processors have SSE2, as all of 64 bits do.
// Code that uses them has a plain way as well, for other processors.
#pragma once

#if defined(__SSE2__) || defined(_M_X64)
#define QX_SSE2 1
#include <emmintrin.h>
#else
#define QX_SSE2 0
#endif
