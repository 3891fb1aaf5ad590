#include "platform/screen_scale.h"

#include "platform/system_library.h"
#include "platform/text.h"

namespace {

int PixelsOfAnInchOfScreen() {
  const HDC screen = GetDC(nullptr);
  if (!screen) return USER_DEFAULT_SCREEN_DPI;
  const int pixels = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return pixels;
}

}  // namespace

int PixelsOfAnInch(HWND window) {
  const SystemLibrary user(W("user32.dll"));
  // Available since Windows 10, version 1607.
  const auto dpiForWindow = user.Find<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
  const UINT pixels = dpiForWindow ? dpiForWindow(window) : 0;
  return pixels > 0 ? static_cast<int>(pixels) : PixelsOfAnInchOfScreen();
}
