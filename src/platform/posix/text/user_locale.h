// The user's language, for ICU.
#pragma once

#include <unicode/uloc.h>

#include <string_view>

namespace Platform {

// The name of no language, which ICU makes an order by bytes, stands for Windows' own language.
inline const char* UserLocale() {
  const char* const locale = uloc_getDefault();
  return std::string_view(locale).find("POSIX") == std::string_view::npos ? locale : "en_US";
}

}  // namespace Platform
