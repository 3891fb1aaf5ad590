#include "ui/edit_view.h"

#include <commctrl.h>

#include <cstdint>

namespace Ui {

namespace {

constexpr UINT_PTR kScrollWatch = 4;

// Compares the scroll position after each message: the system sends EN_HSCROLL only for some causes, and
// before the text has moved.
LRESULT CALLBACK OnScrolledMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                   DWORD_PTR before) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, OnScrolledMessage, id);
  const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
  // ScrolledPixels sends these messages itself.
  if (message == WM_NCDESTROY || message == EM_POSFROMCHAR || message == EM_GETRECT) return result;
  const auto now = static_cast<DWORD_PTR>(ScrolledPixels(window));
  if (now == before) return result;
  SetWindowSubclass(window, OnScrolledMessage, id, now);
  SendMessageW(GetParent(window), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), EN_HSCROLL),
               reinterpret_cast<LPARAM>(window));
  return result;
}

}  // namespace

void SetTabWidth(HWND edit, int characters) {
  constexpr int kUnitsOfACharacter = 4;
  const int stop = characters * kUnitsOfACharacter;
  SendMessageW(edit, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&stop));
}

int LeftMarginOf(HWND edit) { return LOWORD(SendMessageW(edit, EM_GETMARGINS, 0, 0)); }

void SetLeftMargin(HWND edit, int pixels) {
  if (LeftMarginOf(edit) == pixels) return;
  SendMessageW(edit, EM_SETMARGINS, EC_LEFTMARGIN, MAKELPARAM(pixels, 0));
  InvalidateRect(edit, nullptr, TRUE);
}

int ScrolledPixels(HWND edit) {
  constexpr LRESULT kNoCharacter = -1;
  const LRESULT place = SendMessageW(edit, EM_POSFROMCHAR, 0, 0);
  if (place == kNoCharacter) return 0;
  RECT room = {};
  SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
  // The position has only 16 bits and wraps. The first character is at most a margin's width to the right of
  // the edge, so a larger difference is a distance to the left.
  constexpr std::uint16_t kWidestMargin = 64;
  const auto pixels = static_cast<std::uint16_t>(room.left - LOWORD(place));
  const auto below = static_cast<std::uint16_t>(-pixels);
  return below <= kWidestMargin ? 0 : pixels;
}

void WatchScroll(HWND edit) {
  SetWindowSubclass(edit, OnScrolledMessage, kScrollWatch, static_cast<DWORD_PTR>(ScrolledPixels(edit)));
}

}  // namespace Ui
