// The exception for errors that the line sorter itself detects. Failures of files are reported as
// WQDR::WQDataReaderException.
#pragma once

#include <exception>
#include <string>

#include "platform/windows_api.h"

namespace WQLineSorter {

struct QXLineSorterException : std::exception {
  QXLineSorterException(DWORD code, const char* text) : errorCode(code), text_(text) {}
  const char* what() const noexcept override { return text_.c_str(); }

  DWORD errorCode;  // a Windows error number

 private:
  std::string text_;
};

}  // namespace WQLineSorter
