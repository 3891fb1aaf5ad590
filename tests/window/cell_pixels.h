// How the cells of a list with columns are painted.
#pragma once

#include "platform/windows_api.h"

// Needs windows.h before it.
#include <commctrl.h>

// The place of a cell's text in the list's client area.
inline RECT AreaOfCell(HWND list, int row, int column) {
  RECT area = {LVIR_LABEL, column, 0, 0};
  SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
  return area;
}

// How many pixels of a cell's text have exactly this colour.
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
