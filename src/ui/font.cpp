#include "ui/font.h"

namespace Ui {

namespace {

constexpr int kPointsOfAnInch = 72;

int PixelsOfAnInch() {
  const HDC screen = GetDC(nullptr);
  if (!screen) return USER_DEFAULT_SCREEN_DPI;
  const int pixels = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return pixels;
}

}  // namespace

Font::Font(const WCHAR* name, int points)
    // A height below zero is that of the characters, without the space above them.
    : font_(CreateFontW(-MulDiv(points, PixelsOfAnInch(), kPointsOfAnInch), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                        FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                        FIXED_PITCH | FF_MODERN, name)) {}

Font::~Font() {
  if (font_) DeleteObject(font_);
}

void Font::SetFor(HWND control) const {
  if (font_) SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
}

}  // namespace Ui
