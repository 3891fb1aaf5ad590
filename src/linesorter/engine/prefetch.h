// Asking for memory before it is needed, where lines are visited in an order that no cache foresees.
#pragma once

#if defined(__SSE2__) || defined(_M_X64)
#include <xmmintrin.h>
#endif

namespace WQLineSorter {

// No more than a hint: any address will do.
inline void Prefetch([[maybe_unused]] const void* address) {
#if defined(__SSE2__) || defined(_M_X64)
  _mm_prefetch(static_cast<const char*>(address), _MM_HINT_T0);
#endif
}

}  // namespace WQLineSorter
