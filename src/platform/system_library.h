// A library of the system, in which functions are looked up while the program runs: those that not every
// Windows has.
#pragma once

#include "platform/windows_api.h"

// Loads a library (LoadLibraryW) and frees it at the end. A failure of either step leaves its error in
// GetLastError, and a library that could not be loaded holds no function.
class SystemLibrary {
 public:
  // Null loads nothing.
  explicit SystemLibrary(const WCHAR* name) : module_(name ? LoadLibraryW(name) : nullptr) {}
  SystemLibrary(const SystemLibrary&) = delete;
  SystemLibrary& operator=(const SystemLibrary&) = delete;
  ~SystemLibrary() {
    if (module_) FreeLibrary(module_);
  }

  // The function of this name as a pointer of the given type, which the caller knows it to be; null if there
  // is none.
  template <typename Function>
  Function Find(const char* name) const {
    const FARPROC found = module_ ? GetProcAddress(module_, name) : nullptr;
    // By way of the one function type that the compiler lets be any other.
    return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(found));
  }

 private:
  HMODULE module_;
};
