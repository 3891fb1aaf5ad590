// Asking for memory before it is needed, where lines are visited in an order that no cache foresees.
#pragma once

#include "platform/vector_instructions.h"

namespace WQLineSorter {

// No more than a hint: any address will do.
inline void Prefetch([[maybe_unused]] const void* address) {
#if QX_SSE2
  _mm_prefetch(static_cast<const char*>(address), _MM_HINT_T0);
#endif
}

}  // namespace WQLineSorter
