// Exceptions that several operations of a document throw.
#pragma once

#include "data/data_exception.h"

namespace QXFindAndReplace {

// Reports that the text to replace is not inside one part of the line.
[[noreturn]] inline void ThrowNoPart() {
  throw WQDR::WQDataReaderException(ERROR_INVALID_PARAMETER, "Text part not found");
}

}  // namespace QXFindAndReplace
