#include "ui/font.h"

#include <commctrl.h>

#include <utility>

#include "platform/text.h"

namespace Ui {

namespace {

constexpr int kPointsOfAnInch = 72;
constexpr UINT_PTR kFontGuard = 3;

}  // namespace

Font::~Font() {
  if (font_) DeleteObject(font_);
}

void Font::SetFor(HWND control) {
  control_ = control;
  SetWindowSubclass(control, OnControlMessage, kFontGuard, reinterpret_cast<DWORD_PTR>(this));
  SetScale(PixelsOfAnInch(control));
}

void Font::SetScale(int pixelsOfAnInch) {
  // A negative height is that of the characters, without internal leading.
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
