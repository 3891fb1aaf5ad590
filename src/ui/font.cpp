#include "ui/font.h"

#include <commctrl.h>

#include <utility>

#include "platform/system_library.h"
#include "platform/text.h"

namespace Ui {

namespace {

constexpr int kPointsOfAnInch = 72;
constexpr UINT_PTR kFontGuard = 3;

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
  // Since Windows 10.
  const auto dpiForWindow = user.Find<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
  const UINT pixels = dpiForWindow ? dpiForWindow(window) : 0;
  return pixels > 0 ? static_cast<int>(pixels) : PixelsOfAnInchOfScreen();
}

Font::~Font() {
  if (font_) DeleteObject(font_);
}

void Font::SetFor(HWND control) {
  control_ = control;
  SetWindowSubclass(control, OnControlMessage, kFontGuard, reinterpret_cast<DWORD_PTR>(this));
  SetScale(PixelsOfAnInch(control));
}

void Font::SetScale(int pixelsOfAnInch) {
  // A height below zero is that of the characters, without the space above them.
  const HFONT made = CreateFontW(-MulDiv(points_, pixelsOfAnInch, kPointsOfAnInch), 0, 0, 0, FW_NORMAL, FALSE,
                                 FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                 CLEARTYPE_QUALITY, FIXED_PITCH | FF_MODERN, name_);
  if (!made) return;
  const HFONT before = std::exchange(font_, made);
  SendMessageW(control_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
  if (before) DeleteObject(before);
}

LRESULT CALLBACK Font::OnControlMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                        DWORD_PTR font) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, OnControlMessage, id);
  const HFONT own = reinterpret_cast<Font*>(font)->font_;
  if (message == WM_SETFONT && own && reinterpret_cast<HFONT>(wParam) != own) return 0;
  return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace Ui
