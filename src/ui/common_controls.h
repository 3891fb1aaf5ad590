// Version 6 of the common controls for the windows of the module, whatever its host asks for: cue banners and
// themed controls need it. The wish lies in the module's own manifest.
#pragma once

#include "platform/windows_api.h"

namespace Ui {

// While it lives, windows that the thread creates get the controls of version 6. Scopes nest, and end in the
// reverse order. Where the system refuses, the older controls serve.
class CommonControlsScope {
 public:
  CommonControlsScope();
  CommonControlsScope(const CommonControlsScope&) = delete;
  CommonControlsScope& operator=(const CommonControlsScope&) = delete;
  ~CommonControlsScope();

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

}  // namespace Ui
