// File Utils, the extension with index 0: a menu of tools, script commands, and their dispatchers.
#pragma once

#include "frame/host/plugin_base.h"

namespace Velmora::SDK {

class CQXUtils final : public PluginBase {
 public:
  // Declares the menu and the script commands. Does not store `hostApp`.
  s32 OnRegister(IHostApp* hostApp) override;
  const char* GetExtensionId() override;
  s32 OnCommand(s32 number, std::intptr_t a, std::intptr_t b) override;
  s32 OnCustomCommand(IHostCommandCall* call) override;
  s32 OnHelperMessage(s32 code, IHostHelperMessage* message) override;
};

}  // namespace Velmora::SDK
