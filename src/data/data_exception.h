// What readers, writers and the detection of text formats throw.
#pragma once

#include <exception>
#include <string>

#include "platform/windows_api.h"

namespace WQDR {

// A failure of the file layer: a Windows error number and a narrow English text. Caught in the one place that
// runs a file, which hands on both.
struct WQDataReaderException : std::exception {
  WQDataReaderException(DWORD code, const char* text) : errorCode(code), text_(text) {}
  WQDataReaderException(DWORD code, std::string text) : errorCode(code), text_(std::move(text)) {}
  const char* what() const noexcept override { return text_.c_str(); }

  DWORD errorCode;

 private:
  std::string text_;
};

}  // namespace WQDR
