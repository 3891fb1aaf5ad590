// Loads the module and finds its three exports.
#pragma once

#include "frame/host/extension_info.h"
#include "platform/text.h"

namespace QxHost {

// The exports of a loaded module, which stays loaded until the process ends.
struct ModuleExports {
  decltype(&::Create) create = nullptr;
  decltype(&::Delete) destroy = nullptr;
  decltype(&::GetExtensionInfo) getExtensionInfo = nullptr;
};

// Loads the module. Throws ModuleFailure, with the system's message, if the file cannot be loaded or lacks an
// export.
ModuleExports LoadModule(const WString& fullPath);

}  // namespace QxHost
