// Asks the processor to bring memory near that is read soon. It may be any address, also a wrong one.
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
