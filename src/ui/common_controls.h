// Selects version 6 of the common controls for the module's windows, whichever version the host uses. Cue
// banners and themed controls need it. The module's manifest requests it.
#pragma once

#include "platform/windows_api.h"

namespace Ui {

// While the object lives, windows that the calling thread creates use version 6 (ActivateActCtx). Scopes may
// nest and must end in reverse order. If the system refuses, the older controls are used.
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
