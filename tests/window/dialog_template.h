// The templates of the module's dialogs as a screen of another scale shows them.
#pragma once

#include "platform/text.h"

// A dialog made of a template, not shown and without a procedure: its controls have the places that they have
// at this scale, in percent. Only the fonts of the template grow with it; the system's frames and bars do
// not.
class DialogInScale {
 public:
  // The parent is that of a panel, which is no window of its own.
  DialogInScale(int resource, int percent, HWND parent = nullptr);
  DialogInScale(const DialogInScale&) = delete;
  DialogInScale& operator=(const DialogInScale&) = delete;
  ~DialogInScale();

  // Null if it could not be made.
  HWND Get() const { return window_; }

 private:
  HWND window_ = nullptr;
};
