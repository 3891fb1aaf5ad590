// Tells the processor to load memory that will be read soon into its cache. The address may be invalid.
#pragma once

#ifdef _MSC_VER
#include <intrin.h>
#endif

inline void Prefetch(const void* memory) {
#ifdef _MSC_VER
  _mm_prefetch(static_cast<const char*>(memory), _MM_HINT_T0);
#else
  __builtin_prefetch(memory);
#endif
}
