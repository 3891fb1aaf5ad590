// LoadLibraryW, LoadLibraryExW, GetModuleHandleW, GetModuleHandleExW, GetProcAddress and FreeLibrary.

#include <dlfcn.h>

#include <algorithm>
#include <mutex>
#include <span>
#include <string_view>
#include <type_traits>

#include "platform/ascii_case.h"
#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/security/security_functions.h"
#include "platform/posix/windows_functions.h"

namespace {

using Platform::FailWith;

struct FunctionRow {
  std::string_view name;
  FARPROC function;
};

// Casts a function to FARPROC. void(*)() may be cast to any function pointer without a compiler warning.
template <typename Function>
FARPROC Untyped(Function* function) {
  return reinterpret_cast<FARPROC>(reinterpret_cast<void (*)()>(function));
}

// A system library that the product loads, with the functions that the product looks up in it.
struct Library {
  std::u16string_view name;
  std::span<const FunctionRow> functions;
  int loads = 0;
};

struct Libraries {
  std::mutex mutex;  // protects the load counts
  Library rows[3];
};
// Static objects may free libraries at the end of the process.
static_assert(std::is_trivially_destructible_v<Libraries>);

// Returns the table. Making it takes no memory, so that a sort that runs out of it can still look up its
// function.
Libraries& TheLibraries() {
  static const FunctionRow kernelFunctions[] = {
      {"CompareStringEx", Untyped(&CompareStringEx)},
      {"CompareStringOrdinal", Untyped(&CompareStringOrdinal)},
      {"CreateSymbolicLinkW", Untyped(&CreateSymbolicLinkW)},
  };
  static const FunctionRow nativeFunctions[] = {
      {"NtQueryInformationFile", Untyped(&NtQueryInformationFile)},
  };
  static Libraries libraries = {
      {},
      {
          {u"KERNEL32", kernelFunctions},
          {u"NETMSG", {}},
          {u"NTDLL", nativeFunctions, 1},  // loaded in every process from the start
      },
  };
  return libraries;
}

bool IsNamed(const Library& library, std::u16string_view name) {
  constexpr std::u16string_view kEnding = u".DLL";
  const auto same = [](WCHAR lhs, WCHAR rhs) { return AsciiUpper(lhs) == rhs; };
  if (name.size() >= kEnding.size()) {
    const std::u16string_view ending = name.substr(name.size() - kEnding.size());
    if (std::equal(ending.begin(), ending.end(), kEnding.begin(), same)) name.remove_suffix(kEnding.size());
  }
  return std::equal(name.begin(), name.end(), library.name.begin(), library.name.end(), same);
}

HMODULE Load(const WCHAR* path) {
  Libraries& libraries = TheLibraries();
  const std::lock_guard lock(libraries.mutex);
  for (Library& library : libraries.rows) {
    if (!path || !IsNamed(library, path)) continue;
    ++library.loads;
    return reinterpret_cast<HMODULE>(&library);
  }
  FailWith(ERROR_MOD_NOT_FOUND);
  return nullptr;
}

// Returns the library of a handle, or null if it is not loaded. The caller holds the lock of the libraries.
Library* Find(Libraries& libraries, HMODULE module) {
  for (Library& library : libraries.rows) {
    if (reinterpret_cast<HMODULE>(&library) == module && library.loads > 0) return &library;
  }
  return nullptr;
}

}  // namespace

HMODULE LoadLibraryW(const WCHAR* path) {
  if (Platform::FaultFires("LoadLibraryW")) return nullptr;
  return Load(path);
}

HMODULE LoadLibraryExW(const WCHAR* path, HANDLE, DWORD flags) {
  if (Platform::FaultFires("LoadLibraryExW", flags)) return nullptr;
  return Load(path);
}

HMODULE GetModuleHandleW(const WCHAR* name) {
  if (Platform::FaultFires("GetModuleHandleW")) return nullptr;
  Libraries& libraries = TheLibraries();
  const std::lock_guard lock(libraries.mutex);
  for (Library& library : libraries.rows) {
    if (name && library.loads > 0 && IsNamed(library, name)) return reinterpret_cast<HMODULE>(&library);
  }
  FailWith(ERROR_MOD_NOT_FOUND);
  return nullptr;
}

BOOL GetModuleHandleExW(DWORD flags, const WCHAR* address, HMODULE* module) {
  if (Platform::FaultFires("GetModuleHandleExW", flags)) return FALSE;
  if ((flags & GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS) == 0) return FailWith(ERROR_INVALID_PARAMETER);
  Dl_info library = {};
  if (dladdr(address, &library) == 0) return FailWith(ERROR_MOD_NOT_FOUND);
  // Never closed. The program itself cannot be opened so, and is never unloaded.
  if ((flags & GET_MODULE_HANDLE_EX_FLAG_PIN) != 0)
    dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
  *module = reinterpret_cast<HMODULE>(library.dli_fbase);
  return TRUE;
}

FARPROC GetProcAddress(HMODULE module, const char* function) {
  if (Platform::FaultFires("GetProcAddress")) return nullptr;
  Libraries& libraries = TheLibraries();
  const std::lock_guard lock(libraries.mutex);
  const Library* library = Find(libraries, module);
  if (library && function) {
    for (const FunctionRow& row : library->functions) {
      if (row.name == function) return row.function;
    }
  }
  FailWith(library ? ERROR_PROC_NOT_FOUND : ERROR_MOD_NOT_FOUND);
  return nullptr;
}

BOOL FreeLibrary(HMODULE module) {
  if (Platform::FaultFires("FreeLibrary")) return FALSE;
  Libraries& libraries = TheLibraries();
  const std::lock_guard lock(libraries.mutex);
  Library* library = Find(libraries, module);
  if (!library) return FailWith(ERROR_INVALID_HANDLE);
  --library->loads;
  return TRUE;
}
