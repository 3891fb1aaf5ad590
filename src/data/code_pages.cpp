#include "data/code_pages.h"

#include <algorithm>
#include <limits>

namespace WQDR {

namespace {

// Calls `convert` twice: first for the size, then for the characters.
template <typename To, typename From, typename Convert>
To Converted(From from, const Convert& convert) {
  constexpr std::size_t kMax = std::numeric_limits<int>::max();
  const int size = static_cast<int>(std::min(from.size(), kMax));
  if (size == 0) return {};
  const int needed = convert(from.data(), size, nullptr, 0);
  if (needed <= 0) return {};
  To to(static_cast<std::size_t>(needed), typename To::value_type());
  const int written = convert(from.data(), size, to.data(), needed);
  to.resize(static_cast<std::size_t>(std::max(written, 0)));
  return to;
}

}  // namespace

std::string ToCodePage(UINT codePage, WStringView text) {
  return Converted<std::string>(text, [codePage](const WCHAR* from, int size, char* to, int room) {
    return WideCharToMultiByte(codePage, 0, from, size, to, room, nullptr, nullptr);
  });
}

WString FromCodePage(UINT codePage, std::string_view bytes) {
  return Converted<WString>(bytes, [codePage](const char* from, int size, WCHAR* to, int room) {
    return MultiByteToWideChar(codePage, 0, from, size, to, room);
  });
}

}  // namespace WQDR
