// Lower and upper case of a character, as towlower and towupper convert it in the "C" locale: only A to Z and
// a to z change. Implemented here so that a locale set by the host does not change the results (C-617).
#pragma once

#include "platform/text.h"

namespace Velmora::SDK {

constexpr WCHAR LowerLetter(WCHAR c) {
  return c >= W('A') && c <= W('Z') ? static_cast<WCHAR>(c + (W('a') - W('A'))) : c;
}

constexpr WCHAR UpperLetter(WCHAR c) {
  return c >= W('a') && c <= W('z') ? static_cast<WCHAR>(c - (W('a') - W('A'))) : c;
}

// Returns whether the texts are equal if the case of A to Z is ignored.
constexpr bool EqualButForCase(WStringView lhs, WStringView rhs) {
  if (lhs.size() != rhs.size()) return false;
  for (std::size_t i = 0; i < lhs.size(); ++i) {
    if (LowerLetter(lhs[i]) != LowerLetter(rhs[i])) return false;
  }
  return true;
}

}  // namespace Velmora::SDK
