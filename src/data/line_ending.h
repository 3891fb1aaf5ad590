// What ends a line of a text.
#pragma once

#include <cstdint>

namespace WQDR {

enum class LineEnding : std::uint32_t {
  None = 0,  // none was read: the last line of a file, or a line that ended at a lone CR, which is lost
  Cr = 1,    // never found in a file; the output of find and replace knows it
  Lf = 2,
  CrLf = 3,
  Inserted = 4  // of find and replace: a line made by a replacement, which has no ending of its own
};

}  // namespace WQDR
