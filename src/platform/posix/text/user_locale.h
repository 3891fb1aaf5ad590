// The user's language, for ICU.
#pragma once

#include <unicode/uloc.h>

#include <string_view>

namespace Platform {

// Returns ICU's name of the user's locale. The POSIX locale, which ICU sorts by code points, is replaced by
// American English.
inline const char* UserLocale() {
  const char* const locale = uloc_getDefault();
  return std::string_view(locale).find("POSIX") == std::string_view::npos ? locale : "en_US";
}

}  // namespace Platform
