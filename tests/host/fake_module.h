// A module whose behaviour each test sets. It has up to three extensions; the second provides properties.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "frame/host/host_app.h"
#include "frame/host/host_script_commands.h"
#include "host/system/module_loader.h"

namespace QxHost {

// All calls of the module are static, as the module's exports are functions without an object.
class FakeModule {
 public:
  static inline std::vector<std::string> calls;  // all calls of the module, such as "start 2"
  static inline Velmora::SDK::u32 extensionCount = 3;
  static inline std::function<Velmora::SDK::s32(Velmora::SDK::IHostApp&, Velmora::SDK::s32 number)> onCommand;
  static inline std::function<Velmora::SDK::s32(Velmora::SDK::IHostApp&)> onRegister;
  static inline std::function<Velmora::SDK::s32(Velmora::SDK::IHostApp&, Velmora::SDK::IHostCommandCall&)>
      onScript;

  // Restores the module as it is before any test has set it.
  static void Reset();
  static ModuleExports Exports();
};

}  // namespace QxHost
