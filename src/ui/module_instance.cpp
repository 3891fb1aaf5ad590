#include "ui/module_instance.h"

namespace Ui {

namespace {

// Stands in the module, whichever that is; its address leads there.
const char anchor = 0;

}  // namespace

HINSTANCE ModuleInstance() {
  HMODULE module = nullptr;
  // The use count stays as it is: this code runs, so its module is loaded.
  constexpr DWORD kFlags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  GetModuleHandleExW(kFlags, reinterpret_cast<LPCWSTR>(&anchor), &module);
  return module;
}

}  // namespace Ui
