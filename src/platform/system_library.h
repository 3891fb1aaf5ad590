// Looks up functions in system libraries at run time, for functions that some versions of Windows lack.
#pragma once

#include "platform/windows_api.h"

// Owns a loaded library: loads it with LoadLibraryW and frees it with FreeLibrary. If loading or a look-up
// fails, the last error is set (GetLastError); in a library that could not be loaded, Find returns null.
class SystemLibrary {
 public:
  // Null loads nothing.
  explicit SystemLibrary(const WCHAR* name) : module_(name ? LoadLibraryW(name) : nullptr) {}
  SystemLibrary(const SystemLibrary&) = delete;
  SystemLibrary& operator=(const SystemLibrary&) = delete;
  ~SystemLibrary() {
    if (module_) FreeLibrary(module_);
  }

  // Returns the function named `name` as a pointer of type `Function`, or null if the library has no such
  // function. The caller must name the correct type; it is not checked.
  template <typename Function>
  Function Find(const char* name) const {
    const FARPROC found = module_ ? GetProcAddress(module_, name) : nullptr;
    // void(*)() may be cast to any function pointer without a compiler warning.
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(found));
  }

 private:
  HMODULE module_;
};
