#include "frame/services/pin_module.h"

#include "platform/windows_api.h"

namespace Velmora::SDK {

namespace {

// Its address leads to the module that it is of.
const char pinAnchor = 0;

}  // namespace

void PinModule() {
  constexpr DWORD kFlags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN;
  HMODULE module = nullptr;
  GetModuleHandleExW(kFlags, reinterpret_cast<const WCHAR*>(&pinAnchor), &module);
}

}  // namespace Velmora::SDK
