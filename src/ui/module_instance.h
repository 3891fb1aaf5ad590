// The module that holds this code. It is a library in another's process, so the instance of the process is
// not the one that holds its dialogs.
#pragma once

#include "platform/windows_api.h"

namespace Ui {

HINSTANCE ModuleInstance();

}  // namespace Ui
