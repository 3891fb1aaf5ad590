#include "data/path_error.h"

namespace WQDR {

namespace {

// Returns the text in the thread's code page; empty if the conversion fails or the code page lacks a
// character, which is stored in `*replaced`. `replaced` must be null if the code page is UTF-8, for which the
// system rejects the argument.
std::string InThreadCodePage(const WString& text, BOOL* replaced) {
  const int length = static_cast<int>(text.size());
  const auto convert = [&](char* bytes, int size) {
    return WideCharToMultiByte(CP_THREAD_ACP, 0, text.c_str(), length, bytes, size, nullptr, replaced);
  };
  const int size = convert(nullptr, 0);
  if (size <= 0) return {};
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (convert(bytes.data(), size) <= 0 || (replaced && *replaced)) return {};
  return bytes;
}

std::string InThreadCodePage(const WString& text) {
  BOOL replaced = FALSE;
  const std::string bytes = InThreadCodePage(text, &replaced);
  const bool wasRefused = bytes.empty() && !replaced && GetLastError() == ERROR_INVALID_PARAMETER;
  return wasRefused ? InThreadCodePage(text, nullptr) : bytes;
}

}  // namespace

void ThrowLastError(const char* words, const WString& path) {
  const DWORD error = GetLastError();
  throw WQDataReaderException(error, words + InThreadCodePage(path));
}

}  // namespace WQDR
