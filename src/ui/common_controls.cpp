#include "ui/common_controls.h"

#include "ui/module_instance.h"
#include "ui/resource_ids.h"

namespace Ui {

CommonControlsScope::CommonControlsScope() {
  ACTCTXW wish = {};
  wish.cbSize = sizeof(wish);
  wish.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  wish.hModule = ModuleInstance();
  wish.lpResourceName = MAKEINTRESOURCEW(QX_MANIFEST);
  context_ = CreateActCtxW(&wish);
  if (context_ != INVALID_HANDLE_VALUE) active_ = ActivateActCtx(context_, &cookie_) != FALSE;
}

CommonControlsScope::~CommonControlsScope() {
  if (active_) DeactivateActCtx(0, cookie_);
  if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

}  // namespace Ui
