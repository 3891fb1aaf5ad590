// The number of random cases that a test tries in each build.
#pragma once

#include "platform/windows_api.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define QX_UNDER_SANITIZERS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define QX_UNDER_SANITIZERS
#endif
#endif

#ifdef QX_UNDER_SANITIZERS
constexpr bool kUnderSanitizers = true;
#else
constexpr bool kUnderSanitizers = false;
#endif

constexpr bool kWindowsBuild = sizeof(wchar_t) == sizeof(WCHAR);

// Returns `cases` in the native build, and a tenth of it in the other builds, where each case takes several
// times as long: under sanitizers, and with files under Wine.
template <typename Int>
constexpr Int RandomCases(Int cases) {
  return kUnderSanitizers || kWindowsBuild ? cases / 10 : cases;
}
