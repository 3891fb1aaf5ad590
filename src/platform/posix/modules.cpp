#include "platform/posix/fault_gate.h"
#include "platform/posix/windows_functions.h"

HMODULE LoadLibraryExW(const WCHAR*, HANDLE, DWORD flags) {
  if (Platform::FaultFires("LoadLibraryExW", flags)) return nullptr;
  SetLastError(ERROR_MOD_NOT_FOUND);
  return nullptr;
}
