#include "frame/services/script_words.h"

#include <algorithm>

#include "platform/ascii_case.h"

namespace {

bool AreEqual(WStringView left, WStringView right) {
  return std::ranges::equal(left, right, {}, AsciiLower<WCHAR>, AsciiLower<WCHAR>);
}

}  // namespace

std::optional<std::uint32_t> FindScriptWord(WStringView value, std::span<const ScriptWord> words) {
  const auto found =
      std::ranges::find_if(words, [value](const ScriptWord& word) { return AreEqual(value, word.word); });
  if (found == words.end()) return std::nullopt;
  return found->option;
}
