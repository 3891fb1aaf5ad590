// Watches the messages of a thread for the one that says that MultiRename's worker has computed all rows.
// Windows build only.
#pragma once

#include "platform/windows_api.h"

namespace QxHost {

// Posts a message to a window after a preview has ended and the module has handled that. At most one object
// per thread.
class PreviewWatch {
 public:
  // Watches the calling thread.
  PreviewWatch(HWND window, UINT message);
  PreviewWatch(const PreviewWatch&) = delete;
  PreviewWatch& operator=(const PreviewWatch&) = delete;
  ~PreviewWatch();

 private:
  static LRESULT CALLBACK OnTaken(int code, WPARAM wParam, LPARAM lParam);

  static thread_local PreviewWatch* current_;
  HWND window_;
  UINT message_;
  HHOOK hook_;
};

}  // namespace QxHost
