// Removes characters from the ends of a text.
#pragma once

#include "platform/text.h"

namespace Velmora::SDK {

// Returns the text without these characters at both ends, as a view of `text`.
inline WStringView Trimmed(WStringView text, WStringView characters) {
  const std::size_t begin = text.find_first_not_of(characters);
  if (begin == WStringView::npos) return {};
  return text.substr(begin, text.find_last_not_of(characters) - begin + 1);
}

}  // namespace Velmora::SDK
