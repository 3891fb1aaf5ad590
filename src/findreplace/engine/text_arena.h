// Memory for texts that live as long as their document.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace QXFindAndReplace {

class TextArena {
 public:
  // Returns a copy of `size` bytes with `spare` zero bytes after it, aligned for 16-bit characters. Valid as
  // long as the arena. Throws std::bad_alloc.
  const char* Copy(const void* text, std::size_t size, std::size_t spare);

 private:
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t left_ = 0;
};

}  // namespace QXFindAndReplace
