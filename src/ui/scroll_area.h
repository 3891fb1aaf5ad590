// Keeps a dialog usable whose controls need more height than the screen has: at a large scale, or where a
// small screen meets long texts. The window is then as high as the work area and scrolls.
#pragma once

#include "platform/windows_api.h"

namespace Ui {

// One for each dialog; it must outlive the window. Without a window it does nothing.
class ScrollArea {
 public:
  ScrollArea() = default;
  ScrollArea(const ScrollArea&) = delete;
  ScrollArea& operator=(const ScrollArea&) = delete;

  // Makes the dialog no higher than the work area. If its controls need more, it gets a scroll bar, beside
  // the width that it has; if they no longer do, it loses the bar. Scrolls to the top. Called once the
  // controls have their places, and each time those or the screen have changed.
  void Fit(HWND dialog);

  // Returns true if the message was the scroll bar's or the wheel's, and is done.
  bool Handle(UINT message, WPARAM wParam);

  // Before the system gives the controls other places: they are where they would be without a scroll bar.
  void ScrollToTop() { ScrollTo(0); }

 private:
  static LRESULT CALLBACK OnControlMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR area);
  // Gives the window this height inside, with the bar or without it.
  void Resize(LONG clientHeight, bool withBar);
  void ShowBar();
  void WatchFocus();
  // Scrolls until the control shows, its top above all.
  void ShowControl(HWND control);
  void ScrollTo(LONG position);
  void MoveControls(LONG pixels);
  void ScrollByBar(int action);
  void ScrollByWheel(int turned);
  LONG PageHeight() const;
  LONG LineHeight() const;

  HWND dialog_ = nullptr;
  bool hasBar_ = false;
  LONG contentHeight_ = 0;  // pixels that the controls take, with the margins above and below
  LONG position_ = 0;       // pixels of the content above the window's top
  int wheel_ = 0;           // what the wheel has turned, less what was scrolled for it
};

}  // namespace Ui
