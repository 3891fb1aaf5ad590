// The position of the stack, for recursive code that must stop before the stack overflows.
#pragma once

#include <cstdint>

#ifdef _MSC_VER
#include <intrin.h>
#endif

// The factor by which stack frames of this build are larger than usual: the address sanitizer puts guard
// zones around every variable. Multiply stack limits by it.
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

// Returns an address in the caller's stack frame. Deeper calls have lower addresses.
inline std::uintptr_t StackPosition() {
#ifdef _MSC_VER
  return reinterpret_cast<std::uintptr_t>(_AddressOfReturnAddress());
#else
  return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
#endif
}
