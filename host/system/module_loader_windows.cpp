#include "host/system/module_loader.h"

#include <string>

#include "host/output/error_text.h"
#include "host/output/failures.h"

namespace QxHost {
namespace {

template <typename Function>
void FindExport(HMODULE module, const char* name, Function& function) {
  function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
  if (!function) throw ModuleFailure(std::string("the module does not export ") + name);
}

}  // namespace

ModuleExports LoadModule(const WString& fullPath) {
  const HMODULE module = LoadLibraryW(fullPath.c_str());
  if (!module) {
    const DWORD error = GetLastError();
    throw ModuleFailure("cannot load the module " + ToUtf8(fullPath) + ": " + ErrorText(error));
  }
  ModuleExports exports;
  FindExport(module, "Create", exports.create);
  FindExport(module, "Delete", exports.destroy);
  FindExport(module, "GetExtensionInfo", exports.getExtensionInfo);
  return exports;
}

}  // namespace QxHost
