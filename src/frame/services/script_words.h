// The words that script parameters accept as values.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/text.h"

// One word and the option that it selects.
struct ScriptWord {
  const WCHAR* word;
  std::uint32_t option;
};

// Returns the option of the word that equals `value`, ignoring the case of the letters A to Z; std::nullopt
// if no word does.
std::optional<std::uint32_t> FindScriptWord(WStringView value, std::span<const ScriptWord> words);
