#include "support/wine_frames.h"

#include "platform/text.h"

bool DrawFramesWithoutWindowManager() {
  const HMODULE system = GetModuleHandleW(L"ntdll.dll");
  if (!system || !GetProcAddress(system, "wine_get_version")) return false;
  WCHAR program[MAX_PATH] = {};
  if (GetModuleFileNameW(nullptr, program, MAX_PATH) == 0) return false;
  const WString path = program;
  const WString name = path.substr(path.find_last_of(L'\\') + 1);
  const WString keyName = L"Software\\Wine\\AppDefaults\\" + name + L"\\X11 Driver";
  constexpr WCHAR kNo[] = L"N";
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, keyName.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_SET_VALUE,
                      nullptr, &key, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const LSTATUS status =
      RegSetValueExW(key, L"Managed", 0, REG_SZ, reinterpret_cast<const BYTE*>(kNo), sizeof(kNo));
  RegCloseKey(key);
  return status == ERROR_SUCCESS;
}
