// Where the stack is, for code that must stop before it is used up.
#pragma once

#include <cstdint>

#ifdef _MSC_VER
#include <intrin.h>
#endif

// An address in the frame of the caller. Deeper calls have lower addresses.
inline std::uintptr_t StackPosition() {
#ifdef _MSC_VER
  return reinterpret_cast<std::uintptr_t>(_AddressOfReturnAddress());
#else
  return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
#endif
}
