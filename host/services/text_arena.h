// Memory for many short texts that are freed together.
#pragma once

#include <memory>
#include <vector>

#include "platform/text.h"

namespace QxHost {

class TextArena {
 public:
  // Stores a terminated copy of the text and returns it. The copy does not move and lives as long as the
  // arena.
  WStringView Keep(WStringView text) {
    const std::size_t needed = text.size() + 1;
    if (left_ < needed) {
      left_ = needed > kBlockChars ? needed : kBlockChars;
      next_ = blocks_.emplace_back(new WCHAR[left_]).get();
    }
    WCHAR* const kept = next_;
    text.copy(kept, text.size());
    kept[text.size()] = WCHAR();
    next_ += needed;
    left_ -= needed;
    return {kept, text.size()};
  }

 private:
  static constexpr std::size_t kBlockChars = 16384;

  std::vector<std::unique_ptr<WCHAR[]>> blocks_;
  WCHAR* next_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace QxHost
