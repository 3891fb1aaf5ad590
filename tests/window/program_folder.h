// The folder of the test program, which also contains the module and the language table.
#pragma once

#include "platform/text.h"

// Returns the path without a trailing backslash.
inline WString ProgramFolder() {
  WString path(32768, WCHAR());
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.rfind(W('\\')));
}
