// The module's dialog templates, as they are laid out at another display scale.
#pragma once

#include "platform/text.h"

// A dialog created from a template, hidden and without a procedure. Its controls have their places at the
// given scale, in percent. Only the template's fonts are scaled; the system's frames and scroll bars are not.
class DialogInScale {
 public:
  // `parent` is needed for a panel, which is a child window.
  DialogInScale(int resource, int percent, HWND parent = nullptr);
  DialogInScale(const DialogInScale&) = delete;
  DialogInScale& operator=(const DialogInScale&) = delete;
  ~DialogInScale();

  // Returns null if the dialog could not be created.
  HWND Get() const { return window_; }

 private:
  HWND window_ = nullptr;
};
