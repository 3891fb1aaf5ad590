// Runs the calls of MultiRename's window into its forms. A form may run a dialog, a box or a menu with a
// nested message loop, during which its window must not be destroyed: closing waits until the last call has
// returned.
#pragma once

#include "platform/windows_api.h"

namespace Velmora::SDK {

class FormCalls {
 public:
  FormCalls() = default;
  FormCalls(const FormCalls&) = delete;
  FormCalls& operator=(const FormCalls&) = delete;

  // Calls a form. Catches all exceptions, as none may propagate through the system's window code; the window
  // remains open after a call that fails.
  template <typename Call>
  void Run(Call call) {
    ++depth_;
    try {
      call();
    } catch (...) {
    }
    if (--depth_ > 0 || !closing_) return;
    // Posted, as the controls that sent the present message are still processing it.
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
