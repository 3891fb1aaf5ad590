// Loading the module and finding its three exports.
#pragma once

#include "frame/host/extension_info.h"
#include "platform/text.h"

namespace QxHost {

// The exports of a loaded module. It stays loaded to the end of the process.
struct ModuleExports {
  decltype(&::Create) create = nullptr;
  decltype(&::Delete) destroy = nullptr;
  decltype(&::GetExtensionInfo) getExtensionInfo = nullptr;
};

// Throws ModuleFailure, with the system's own words, if the file is no module or lacks an export.
ModuleExports LoadModule(const WString& fullPath);

}  // namespace QxHost
