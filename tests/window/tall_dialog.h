// Dialogs that need more height than the screen has, as at a large scale.
#pragma once

#include "platform/text.h"

// During its lifetime, each new dialog of this thread is higher by the given number of pixels, and its lowest
// row, with OK and Cancel, is lower by as much. Only one object may exist at a time.
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
