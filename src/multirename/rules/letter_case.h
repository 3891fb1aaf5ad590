// Upper and lower case of one character, as the runtime's towlower and towupper have it in the "C" locale, in
// which the module runs: only A to Z change. Written out, so that a host which sets a locale changes no names
// (C-617).
#pragma once

#include "platform/text.h"

namespace Velmora::SDK {

constexpr WCHAR LowerLetter(WCHAR c) {
  return c >= W('A') && c <= W('Z') ? static_cast<WCHAR>(c + (W('a') - W('A'))) : c;
}

constexpr WCHAR UpperLetter(WCHAR c) {
  return c >= W('a') && c <= W('z') ? static_cast<WCHAR>(c - (W('a') - W('A'))) : c;
}

// True if the two texts have the same length and are equal but for the case of A to Z.
constexpr bool EqualButForCase(WStringView lhs, WStringView rhs) {
  if (lhs.size() != rhs.size()) return false;
  for (std::size_t i = 0; i < lhs.size(); ++i) {
    if (LowerLetter(lhs[i]) != LowerLetter(rhs[i])) return false;
  }
  return true;
}

}  // namespace Velmora::SDK
