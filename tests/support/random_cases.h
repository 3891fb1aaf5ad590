// How much a test tries in this build.
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

// The number of cases of a test with random input, of which the native build tries `cases`. The other builds
// try a tenth of them: each case takes several times as long under sanitizers, and files are slow under Wine.
template <typename Int>
constexpr Int RandomCases(Int cases) {
  return kUnderSanitizers || kWindowsBuild ? cases / 10 : cases;
}
