#include <string_view>

#include "platform/posix/fault_gate.h"
#include "platform/posix/windows_functions.h"

namespace {

// The libraries that every Windows has and that the product asks for. There is nothing in them here: loading
// one only says that it is there.
struct ModuleRow {
  std::u16string_view name;
  char content;
};
ModuleRow systemModules[] = {
    {u"netmsg.dll", 0},
};

}  // namespace

HMODULE LoadLibraryExW(const WCHAR* path, HANDLE, DWORD flags) {
  if (Platform::FaultFires("LoadLibraryExW", flags)) return nullptr;
  for (ModuleRow& row : systemModules) {
    if (path && row.name == path) return reinterpret_cast<HMODULE>(&row.content);
  }
  SetLastError(ERROR_MOD_NOT_FOUND);
  return nullptr;
}
