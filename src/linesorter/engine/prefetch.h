// Prefetching of memory that is accessed in an order that the processor cannot predict.
#pragma once

#include "platform/vector_instructions.h"

namespace WQLineSorter {

// Only a hint to the processor; the address may be invalid.
inline void Prefetch([[maybe_unused]] const void* address) {
#if QX_SSE2
  _mm_prefetch(static_cast<const char*>(address), _MM_HINT_T0);
#endif
}

}  // namespace WQLineSorter
