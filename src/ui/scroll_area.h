// Makes a dialog scroll if its controls are higher than the screen, for example at a large scale or with long
// texts on a small screen. The window is then as high as the work area.
#pragma once

#include "platform/windows_api.h"

namespace Ui {

// The scroll area of one dialog. It must outlive the window. Does nothing before Fit has been called.
class ScrollArea {
 public:
  ScrollArea() = default;
  ScrollArea(const ScrollArea&) = delete;
  ScrollArea& operator=(const ScrollArea&) = delete;

  // Limits the height of the dialog to that of the work area. Adds a scroll bar if the controls need more
  // height, which widens the window by the bar, and removes the bar if they no longer do. Scrolls to the top.
  // Call it after the controls have been placed, and each time their positions or the screen have changed.
  void Fit(HWND dialog);

  // Handles messages of the scroll bar and the mouse wheel. Returns true if it has handled the message.
  bool Handle(UINT message, WPARAM wParam);

  // Scrolls to the top. Call it before the system moves the controls, which it expects at their unscrolled
  // positions.
  void ScrollToTop() { ScrollTo(0); }

 private:
  static LRESULT CALLBACK OnControlMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR area);
  // Sets the height of the client area, in pixels, with or without the bar.
  void Resize(LONG clientHeight, bool withBar);
  void ShowBar();
  void WatchFocus();
  // Scrolls until the control is visible; at least its top.
  void ShowControl(HWND control);
  void ScrollTo(LONG position);
  void MoveControls(LONG pixels);
  void ScrollByBar(int action);
  void ScrollByWheel(int turned);
  LONG PageHeight() const;
  LONG LineHeight() const;

  HWND dialog_ = nullptr;
  bool hasBar_ = false;
  LONG contentHeight_ = 0;  // height of the controls with the margins above and below, in pixels
  LONG position_ = 0;       // how far the content is scrolled, in pixels
  int wheel_ = 0;           // wheel movement for which nothing has been scrolled yet
};

}  // namespace Ui
