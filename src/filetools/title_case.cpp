#include "filetools/title_case.h"

#include <limits>

namespace {

// Maps the case of a text in place, which is possible because LCMapStringW maps each unit to one unit.
void MapCase(WCHAR* text, std::size_t size, DWORD mapping) {
  if (size == 0 || size > static_cast<std::size_t>(std::numeric_limits<int>::max())) return;
  const int count = static_cast<int>(size);
  LCMapStringW(LOCALE_INVARIANT, mapping, text, count, text, count);
}

WString Mapped(WStringView text, DWORD mapping) {
  WString result(text);
  MapCase(result.data(), result.size(), mapping);
  return result;
}

bool IsSeparator(WCHAR character) { return WStringView(W(" ._-")).find(character) != WStringView::npos; }

}  // namespace

WString ToUpperCase(WStringView text) { return Mapped(text, LCMAP_UPPERCASE); }

WString ToLowerCase(WStringView text) { return Mapped(text, LCMAP_LOWERCASE); }

void TitleCase(WString& text) {
  bool capital = true;
  for (std::size_t at = 0; at < text.size();) {
    MapCase(&text[at], 1, capital ? LCMAP_UPPERCASE : LCMAP_LOWERCASE);
    capital = false;
    ++at;
    // Skips one separator. If a second one follows, it is mapped instead of a letter (C-301).
    if (at < text.size() && IsSeparator(text[at])) {
      capital = true;
      ++at;
    }
  }
}
