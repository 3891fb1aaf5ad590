// Where the stack is, for code that must stop before it is used up.
#pragma once

#include <cstdint>

#ifdef _MSC_VER
#include <intrin.h>
#endif

// How much larger than usual the frames of this build are: those that check addresses hold guards around
// every variable. Limits of the stack are multiplied by it.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QX_LARGE_FRAMES
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define QX_LARGE_FRAMES
#endif
#ifdef QX_LARGE_FRAMES
constexpr unsigned kFrameScale = 8;
#else
constexpr unsigned kFrameScale = 1;
#endif

// An address in the frame of the caller. Deeper calls have lower addresses.
inline std::uintptr_t StackPosition() {
#ifdef _MSC_VER
  return reinterpret_cast<std::uintptr_t>(_AddressOfReturnAddress());
#else
  return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
#endif
}
