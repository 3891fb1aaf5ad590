// Memory for texts that exist as long as their document.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace QXFindAndReplace {

class TextArena {
 public:
  // Returns a copy of `size` bytes, followed by at least `spare` zero bytes and aligned for 16-bit
  // characters. The copy is valid during the lifetime of the arena. Throws std::bad_alloc.
  const char* Copy(const void* text, std::size_t size, std::size_t spare);

 private:
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace QXFindAndReplace
