// What the operations of a document throw in more than one place.
#pragma once

#include "data/data_exception.h"

namespace QXFindAndReplace {

// The stretch to replace does not stand in one part of the line.
[[noreturn]] inline void ThrowNoPart() {
  throw WQDR::WQDataReaderException(ERROR_INVALID_PARAMETER, "Text part not found");
}

}  // namespace QXFindAndReplace
