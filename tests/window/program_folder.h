// Where the test program stands: the module and the language table stand beside it.
#pragma once

#include "platform/text.h"

// Without a backslash at its end.
inline WString ProgramFolder() {
  WString path(32768, WCHAR());
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.rfind(W('\\')));
}
