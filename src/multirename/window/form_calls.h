// The calls of MultiRename's window into its forms. A form may run a dialog, a box or a menu, with a message
// loop of its own, and must not lose its window then: a close waits until the last call has returned.
#pragma once

#include "platform/windows_api.h"

namespace Velmora::SDK {

class FormCalls {
 public:
  FormCalls() = default;
  FormCalls(const FormCalls&) = delete;
  FormCalls& operator=(const FormCalls&) = delete;

  // Calls a form. No exception may pass through the system's window code: a call that fails is given up, and
  // the window stays as it is.
  template <typename Call>
  void Run(Call call) {
    ++depth_;
    try {
      call();
    } catch (...) {
    }
    if (--depth_ > 0 || !closing_) return;
    // A message, as the controls whose message this was are still at work.
    PostMessageW(closing_, WM_CLOSE, 0, 0);
    closing_ = nullptr;
  }

  bool AreRunning() const { return depth_ > 0; }

  // Posts WM_CLOSE to the frame after the last call.
  void CloseAfter(HWND frame) { closing_ = frame; }

 private:
  int depth_ = 0;
  HWND closing_ = nullptr;
};

}  // namespace Velmora::SDK
