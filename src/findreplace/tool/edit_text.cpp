#include "findreplace/tool/edit_text.h"

#include <algorithm>

namespace QXFindAndReplace {

namespace {

// Returns true if the character at `at` is a CR or LF that is not part of a CR LF.
bool IsHalfLineEnd(WStringView text, std::size_t at) {
  if (text[at] == W('\n')) return at == 0 || text[at - 1] != W('\r');
  if (text[at] == W('\r')) return at + 1 == text.size() || text[at + 1] != W('\n');
  return false;
}

}  // namespace

WString EditText(WStringView text) {
  WString result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (IsHalfLineEnd(text, at)) {
      result += W("\r\n");
    } else {
      result += text[at];
    }
  }
  return result;
}

std::size_t EditOffset(WStringView text, std::size_t offset) {
  const std::size_t before = std::min(offset, text.size());
  std::size_t result = before;
  for (std::size_t at = 0; at < before; ++at) {
    if (IsHalfLineEnd(text, at)) ++result;
  }
  return result;
}

}  // namespace QXFindAndReplace
