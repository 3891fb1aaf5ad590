#include "ui/module_instance.h"

namespace Ui {

namespace {

// An object of this module, whose address identifies the module.
const char anchor = 0;

}  // namespace

HINSTANCE ModuleInstance() {
  HMODULE module = nullptr;
  // The reference count need not change: the module is loaded while its code runs.
  constexpr DWORD kFlags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  GetModuleHandleExW(kFlags, reinterpret_cast<LPCWSTR>(&anchor), &module);
  return module;
}

}  // namespace Ui
