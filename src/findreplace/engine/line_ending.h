// What ends a line of a text.
#pragma once

#include <cstdint>

namespace QXFindAndReplace {

enum class LineEnding : std::uint32_t {
  None = 0,  // none was read: the last line of a file, or a line that stopped at a lone CR, which is lost
  Cr = 1,    // never found in a file; the output rule knows it
  Lf = 2,
  CrLf = 3,
  Inserted = 4  // a line made by a replacement, which has no ending of its own
};

}  // namespace QXFindAndReplace
