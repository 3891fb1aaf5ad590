// A match of a search.
#pragma once

#include <cstdint>

#include "findreplace/engine/text_document.h"

namespace QXFindAndReplace {

struct LineMatch {
  bool found = false;
  TextRange range = {};
};

// A match within one line.
inline LineMatch MatchAt(const TextPosition& position, std::uint32_t length) {
  return {true, {position, {position.line, position.column + length}}};
}

}  // namespace QXFindAndReplace
