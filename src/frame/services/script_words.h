// Words that script parameters take as their values.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/text.h"

struct ScriptWord {
  const WCHAR* word;
  std::uint32_t option;
};

// The option of the word that `value` is; the case of the letters A to Z does not matter. Nothing if it is
// none of them.
std::optional<std::uint32_t> FindScriptWord(WStringView value, std::span<const ScriptWord> words);
