// Wine leaves the frames of windows to a window manager and waits for its answers. Where the window tests run
// there is none, so each window that closes would wait two seconds, and no window would have a caption. This
// tells Wine, for this program alone and until its session ends, to draw the frames itself.
#include <gtest/gtest.h>

#include "platform/windows_api.h"

namespace {

bool IsWine() {
  const HMODULE system = GetModuleHandleW(L"ntdll.dll");
  return system && GetProcAddress(system, "wine_get_version");
}

bool DrawFramesWithoutWindowManager() {
  if (!IsWine()) return false;
  constexpr WCHAR kKey[] = L"Software\\Wine\\AppDefaults\\window_tests.exe\\X11 Driver";
  constexpr WCHAR kNo[] = L"N";
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, REG_OPTION_VOLATILE, KEY_SET_VALUE, nullptr, &key,
                      nullptr) != ERROR_SUCCESS) {
    return false;
  }
  RegSetValueExW(key, L"Managed", 0, REG_SZ, reinterpret_cast<const BYTE*>(kNo), sizeof(kNo));
  RegCloseKey(key);
  return true;
}

// Before the first window: that is when Wine reads it.
[[maybe_unused]] const bool framesAreDrawn = DrawFramesWithoutWindowManager();

}  // namespace
