#include "ui/scroll_area.h"

#include <commctrl.h>

#include <algorithm>

#include "ui/placement.h"

namespace Ui {

namespace {

constexpr UINT_PTR kFocusWatch = 2;

// The margin below the last control and the distance of one scroll step, in dialog units.
constexpr LONG kScrollMargin = 7;
constexpr LONG kScrolledLine = 14;

LONG PixelsOfUnits(HWND dialog, LONG units) {
  RECT area = {0, 0, 0, units};
  return MapDialogRect(dialog, &area) ? area.bottom : units;
}

RECT PlaceInDialog(HWND dialog, HWND control) {
  RECT area = {};
  GetWindowRect(control, &area);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&area), 2);
  return area;
}

// Returns the lower edge of the lowest control, in pixels.
LONG LowestEdge(HWND dialog) {
  LONG lowest = 0;
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    lowest = std::max(lowest, PlaceInDialog(dialog, child).bottom);
  }
  return lowest;
}

}  // namespace

void ScrollArea::Fit(HWND dialog) {
  dialog_ = dialog;
  ScrollTo(0);
  const RECT work = WorkAreaOf(dialog);
  RECT window = {};
  RECT client = {};
  if (IsRectEmpty(&work) || !GetWindowRect(dialog, &window) || !GetClientRect(dialog, &client)) return;
  const LONG room = work.bottom - work.top - (window.bottom - window.top - client.bottom);
  contentHeight_ = LowestEdge(dialog) + PixelsOfUnits(dialog, kScrollMargin);
  if (!hasBar_) contentHeight_ = std::max(contentHeight_, client.bottom);
  if (contentHeight_ > room) {
    Resize(room, true);
    ShowBar();
    WatchFocus();
  } else if (hasBar_) {
    Resize(contentHeight_, false);
  }
}

bool ScrollArea::Handle(UINT message, WPARAM wParam) {
  if (!hasBar_) return false;
  if (message == WM_VSCROLL) {
    ScrollByBar(LOWORD(wParam));
    return true;
  }
  if (message != WM_MOUSEWHEEL) return false;
  ScrollByWheel(GET_WHEEL_DELTA_WPARAM(wParam));
  return true;
}

void ScrollArea::ScrollByWheel(int turned) {
  UINT lines = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
  const LONG step = lines == WHEEL_PAGESCROLL ? PageHeight() : static_cast<LONG>(lines) * LineHeight();
  if (step <= 0) return;
  // High-resolution wheels report parts of a notch; add them up.
  wheel_ += turned;
  const int pixels = MulDiv(wheel_, step, WHEEL_DELTA);
  wheel_ -= MulDiv(pixels, WHEEL_DELTA, step);
  ScrollTo(position_ - pixels);
}

void ScrollArea::Resize(LONG clientHeight, bool withBar) {
  RECT window = {};
  RECT client = {};
  GetWindowRect(dialog_, &window);
  GetClientRect(dialog_, &client);
  LONG width = window.right - window.left;
  if (withBar != hasBar_) {
    const LONG bar = GetSystemMetrics(SM_CXVSCROLL);
    width += withBar ? bar : -bar;
    SetWindowLongW(dialog_, GWL_STYLE, GetWindowLongW(dialog_, GWL_STYLE) ^ WS_VSCROLL);
    hasBar_ = withBar;
  }
  const LONG height = window.bottom - window.top - client.bottom + clientHeight;
  SetWindowPos(dialog_, nullptr, 0, 0, width, height,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void ScrollArea::ShowBar() {
  SCROLLINFO info = {};
  info.cbSize = sizeof(info);
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = contentHeight_ - 1;
  info.nPage = static_cast<UINT>(PageHeight());
  info.nPos = position_;
  SetScrollInfo(dialog_, SB_VERT, &info, TRUE);
}

// Watches all controls, because the tab key may move the focus to one that is scrolled out of view. Includes
// the edit field of a combo box, which is a child window of it.
void ScrollArea::WatchFocus() {
  EnumChildWindows(
      dialog_,
      [](HWND control, LPARAM area) -> BOOL {
        SetWindowSubclass(control, OnControlMessage, kFocusWatch, static_cast<DWORD_PTR>(area));
        return TRUE;
      },
      reinterpret_cast<LPARAM>(this));
}

LRESULT CALLBACK ScrollArea::OnControlMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                              UINT_PTR id, DWORD_PTR area) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, OnControlMessage, id);
  const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
  // A control that is being clicked must not move away from the mouse pointer.
  if (message == WM_SETFOCUS && GetKeyState(VK_LBUTTON) >= 0) {
    reinterpret_cast<ScrollArea*>(area)->ShowControl(window);
  }
  return result;
}

void ScrollArea::ShowControl(HWND control) {
  while (control && GetParent(control) != dialog_) control = GetParent(control);
  if (!hasBar_ || !control) return;
  const LONG margin = PixelsOfUnits(dialog_, kScrollMargin);
  const RECT place = PlaceInDialog(dialog_, control);
  const LONG above = place.top - margin;
  const LONG below = place.bottom + margin - PageHeight();
  if (above < 0) {
    ScrollTo(position_ + above);
  } else if (below > 0) {
    ScrollTo(position_ + std::min(below, above));
  }
}

void ScrollArea::ScrollTo(LONG position) {
  if (!hasBar_) return;
  const LONG last = std::max(contentHeight_ - PageHeight(), LONG{0});
  const LONG next = std::clamp(position, LONG{0}, last);
  if (next == position_) return;
  MoveControls(position_ - next);
  position_ = next;
  SetScrollPos(dialog_, SB_VERT, position_, TRUE);
}

// Does not use ScrollWindowEx, which moves nothing while the window is hidden: the focus is set before the
// window is shown.
void ScrollArea::MoveControls(LONG pixels) {
  constexpr UINT kPlaceOnly = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
  for (HWND child = GetWindow(dialog_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    const RECT place = PlaceInDialog(dialog_, child);
    SetWindowPos(child, nullptr, place.left, place.top + pixels, 0, 0, kPlaceOnly);
  }
  RedrawWindow(dialog_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void ScrollArea::ScrollByBar(int action) {
  SCROLLINFO info = {};
  info.cbSize = sizeof(info);
  info.fMask = SIF_TRACKPOS;
  switch (action) {
    case SB_LINEUP:
      return ScrollTo(position_ - LineHeight());
    case SB_LINEDOWN:
      return ScrollTo(position_ + LineHeight());
    case SB_PAGEUP:
      return ScrollTo(position_ - PageHeight());
    case SB_PAGEDOWN:
      return ScrollTo(position_ + PageHeight());
    case SB_TOP:
      return ScrollTo(0);
    case SB_BOTTOM:
      return ScrollTo(contentHeight_);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      if (GetScrollInfo(dialog_, SB_VERT, &info)) ScrollTo(info.nTrackPos);
      return;
    default:
      return;
  }
}

LONG ScrollArea::PageHeight() const {
  RECT client = {};
  GetClientRect(dialog_, &client);
  return client.bottom;
}

LONG ScrollArea::LineHeight() const { return PixelsOfUnits(dialog_, kScrolledLine); }

}  // namespace Ui
