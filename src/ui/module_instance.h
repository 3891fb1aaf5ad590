// The handle of the module that contains this code. The module is a library in the host's process, so its
// dialogs are not resources of the process's executable.
#pragma once

#include "platform/windows_api.h"

namespace Ui {

HINSTANCE ModuleInstance();

}  // namespace Ui
