#include "findreplace/engine/text_arena.h"

#include <algorithm>
#include <cstring>

namespace QXFindAndReplace {

namespace {

constexpr std::size_t kBlockBytes = 64 * 1024;

}  // namespace

const char* TextArena::Copy(const void* text, std::size_t size, std::size_t spare) {
  const std::size_t needed = (size + spare + 1) & ~std::size_t{1};
  if (needed > left_) {
    const std::size_t blockSize = std::max(needed, kBlockBytes);
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(blockSize));
    free_ = blocks_.back().get();
    left_ = blockSize;
  }
  char* const copy = free_;
  if (size != 0) std::memcpy(copy, text, size);
  std::memset(copy + size, 0, needed - size);
  free_ += needed;
  left_ -= needed;
  return copy;
}

}  // namespace QXFindAndReplace
