// Dialogs that need more height than the screen has, as they would at a large scale.
#pragma once

#include "platform/text.h"

// While it lives, the lowest row of each dialog of this thread, which is that of OK and Cancel, is farther
// down when the dialog is made, and the dialog as much higher. One at a time.
class TallDialogs {
 public:
  explicit TallDialogs(int pixels);
  TallDialogs(const TallDialogs&) = delete;
  TallDialogs& operator=(const TallDialogs&) = delete;
  ~TallDialogs();

 private:
  static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam);
  void Stretch(HWND dialog) const;

  static inline TallDialogs* current_ = nullptr;
  int pixels_;
  HHOOK hook_;
};
