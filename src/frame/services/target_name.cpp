#include "frame/services/target_name.h"

#include <array>

namespace {

constexpr std::size_t kMaxNameChars = 4096;

// Replaces the first `mark` in `text`. Returns false if `text` does not contain it.
bool ReplaceFirst(WString& text, WStringView mark, WStringView replacement) {
  const std::size_t at = text.find(mark);
  if (at == WString::npos) return false;
  text.replace(at, mark.size(), replacement);
  return true;
}

}  // namespace

WString BuildTargetName(Velmora::SDK::IHostFileItem& item, WStringView targetPattern) {
  if (targetPattern.find(W('*')) == WStringView::npos) return WString(targetPattern);

  std::array<WCHAR, kMaxNameChars> buffer = {};
  constexpr auto size = static_cast<Velmora::SDK::u32>(kMaxNameChars);
  const std::size_t dot = targetPattern.rfind(W('.'));
  WString namePart(targetPattern.substr(0, dot));
  WString extPart(dot == WStringView::npos ? WStringView() : targetPattern.substr(dot));

  if (namePart.find(W("*.*")) != WString::npos) {
    ReplaceFirst(namePart, W("*.*"), ViewOf(item.GetName(buffer.data(), size)));
  } else {
    item.GetBaseName(buffer.data(), size);
    ReplaceFirst(namePart, W("*"), buffer.data());
  }

  if (extPart.empty()) {
    item.GetExtension(buffer.data(), size, 0);
    extPart = buffer.data();
  } else {
    item.GetExtension(buffer.data(), size, 1);
    ReplaceFirst(extPart, W("*"), buffer.data());
  }

  // Do not append an extension that is only a dot (C-013).
  WString result = std::move(namePart);
  if (extPart.size() > 1 || (extPart.size() == 1 && extPart[0] != W('.'))) result += extPart;
  std::erase(result, W('*'));
  return result;
}
