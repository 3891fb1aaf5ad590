#include <dlfcn.h>

#include <string>

#include "host/output/failures.h"
#include "host/system/module_loader.h"

namespace QxHost {
namespace {

std::string LoaderError() {
  const char* text = dlerror();
  return text ? text : "unknown error";
}

template <typename Function>
void FindExport(void* module, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(module, name));
  if (!function)
    throw ModuleFailure(std::string("the module does not export ") + name + ": " + LoaderError());
}

}  // namespace

ModuleExports LoadModule(const WString& fullPath) {
  WString path = fullPath.starts_with(W("Z:")) ? fullPath.substr(2) : fullPath;
  for (WCHAR& character : path) {
    if (character == W('\\')) character = W('/');
  }
  void* module = dlopen(ToUtf8(path).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!module) throw ModuleFailure("cannot load the module: " + LoaderError());
  ModuleExports exports;
  FindExport(module, "Create", exports.create);
  FindExport(module, "Delete", exports.destroy);
  FindExport(module, "GetExtensionInfo", exports.getExtensionInfo);
  return exports;
}

}  // namespace QxHost
