// The base class of extensions with commands: stores the host, returns the kind, and implements the
// operations that do nothing.
#pragma once

#include "frame/host/plugin_interface.h"

namespace Velmora::SDK {

class PluginBase : public IPluginInterface {
 public:
  u32 GetExtensionKind() override { return kPluginKind; }
  s32 OnStart(IHostApp* hostApp) override {
    host = hostApp;
    return 1;
  }
  bool OnHostEvent(std::intptr_t, s32) override { return false; }
  s32 Reserved1() override { return 0; }
  s32 OnCustomCommand(IHostCommandCall*) override { return 0; }
  s32 OnHelperMessage(s32, IHostHelperMessage*) override { return 0; }
  s32 Reserved2() override { return 0; }
  s32 Reserved3() override { return 0; }
  s32 OnShutdown(std::intptr_t) override { return 0; }
  s32 Reserved4() override { return 0; }
  s32 Reserved5() override { return 0; }
  s32 Reserved6() override { return 0; }

 protected:
  ~PluginBase() = default;

  IHostApp* host = nullptr;  // set by OnStart
};

}  // namespace Velmora::SDK
