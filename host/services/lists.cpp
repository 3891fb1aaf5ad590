#include "host/services/lists.h"

#include <algorithm>

namespace QxHost {
namespace {

constexpr u32 kMaxTextChars = 65536;

}  // namespace

bool StringList::Contains(const WCHAR* text, u32) {
  return std::find(texts_.begin(), texts_.end(), ViewOf(text)) != texts_.end();
}

bool StringList::GetString(u32 index, WCHAR* buffer, u32 size) {
  if (index >= texts_.size() || !buffer || size == 0) return false;
  CopyTerminated<WCHAR>(buffer, size, texts_[index]);
  return true;
}

std::vector<WString> TextsOf(Velmora::SDK::IHostStringList& list) {
  std::vector<WString> texts;
  WString buffer(kMaxTextChars, WCHAR());
  const u32 count = list.GetCount();
  for (u32 index = 0; index < count; ++index) {
    if (list.GetString(index, buffer.data(), kMaxTextChars)) texts.emplace_back(buffer.c_str());
  }
  return texts;
}

}  // namespace QxHost
