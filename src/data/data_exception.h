// The exception that readers, writers and the detection of text formats throw.
#pragma once

#include <exception>
#include <string>

#include "platform/windows_api.h"

namespace WQDR {

// A failure of a file operation: a Windows error number and an English text in `char`. Caught at the single
// place that runs a command on a file, which reports both.
struct WQDataReaderException : std::exception {
  WQDataReaderException(DWORD code, const char* text) : errorCode(code), text_(text) {}
  WQDataReaderException(DWORD code, std::string text) : errorCode(code), text_(std::move(text)) {}
  const char* what() const noexcept override { return text_.c_str(); }

  DWORD errorCode;

 private:
  std::string text_;
};

}  // namespace WQDR
