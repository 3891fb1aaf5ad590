#include "ui/placement.h"

#include <algorithm>

namespace Ui {

namespace {

// Returns the position nearest to `place` at which a window of this size is between `from` and `to`. If the
// window is larger, its beginning is visible.
LONG Inside(LONG place, LONG size, LONG from, LONG to) { return std::max(from, std::min(place, to - size)); }

LONG Middle(LONG from, LONG to, LONG size) { return from + (to - from - size) / 2; }

// Moves the window to the position in the work area that is nearest to (x, y).
void MoveNear(HWND window, const RECT& own, LONG x, LONG y, const RECT& work) {
  SetWindowPos(window, nullptr, Inside(x, own.right - own.left, work.left, work.right),
               Inside(y, own.bottom - own.top, work.top, work.bottom), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

RECT WorkAreaOf(HWND window) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  const HMONITOR which = MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST);
  return GetMonitorInfoW(which, &monitor) ? monitor.rcWork : RECT{};
}

void CenterOverOwner(HWND window) {
  const HWND owner = GetWindow(window, GW_OWNER);
  const RECT work = WorkAreaOf(owner ? owner : window);
  RECT own = {};
  if (IsRectEmpty(&work) || !GetWindowRect(window, &own)) return;
  RECT base = work;
  // The position of a hidden or minimised owner is not visible to the user.
  if (owner && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &base);
  MoveNear(window, own, Middle(base.left, base.right, own.right - own.left),
           Middle(base.top, base.bottom, own.bottom - own.top), work);
}

void MoveInside(HWND window) {
  const RECT work = WorkAreaOf(window);
  RECT own = {};
  if (!IsRectEmpty(&work) && GetWindowRect(window, &own)) MoveNear(window, own, own.left, own.top, work);
}

}  // namespace Ui
