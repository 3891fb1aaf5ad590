#include "frame/services/script_words.h"

#include <algorithm>

namespace {

WCHAR Lowered(WCHAR character) {
  const bool isUpper = character >= W('A') && character <= W('Z');
  return isUpper ? static_cast<WCHAR>(character - W('A') + W('a')) : character;
}

bool AreEqual(WStringView left, WStringView right) {
  return std::ranges::equal(left, right, {}, Lowered, Lowered);
}

}  // namespace

std::optional<std::uint32_t> FindScriptWord(WStringView value, std::span<const ScriptWord> words) {
  const auto found =
      std::ranges::find_if(words, [value](const ScriptWord& word) { return AreEqual(value, word.word); });
  if (found == words.end()) return std::nullopt;
  return found->option;
}
