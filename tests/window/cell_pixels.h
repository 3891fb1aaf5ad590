// Reads the pixels of the cells of a list view.
#pragma once

#include "platform/windows_api.h"

// windows.h must be included first.
#include <commctrl.h>

// Returns the rectangle of a cell's text in the list's client area.
inline RECT AreaOfCell(HWND list, int row, int column) {
  RECT area = {LVIR_LABEL, column, 0, 0};
  SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  return area;
}

// Returns the number of pixels of a cell's text that have exactly this colour.
inline int PixelsOfCell(HWND list, int row, int column, COLORREF color) {
  const RECT area = AreaOfCell(list, row, column);
  const HDC screen = GetDC(list);
  int pixels = 0;
  for (LONG y = area.top; y < area.bottom; ++y) {
    for (LONG x = area.left; x < area.right; ++x) pixels += GetPixel(screen, x, y) == color ? 1 : 0;
  }
  ReleaseDC(list, screen);
  return pixels;
}
