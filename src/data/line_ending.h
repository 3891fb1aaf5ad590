// The endings of the lines of a text.
#pragma once

#include <cstdint>

namespace WQDR {

enum class LineEnding : std::uint32_t {
  None = 0,  // no ending, or a lone CR, which is not stored
  Cr = 1,    // never read from a file; only find and replace writes it
  Lf = 2,
  CrLf = 3,
  Inserted = 4  // only in find and replace: a line that a replacement inserted, which has no ending yet
};

}  // namespace WQDR
