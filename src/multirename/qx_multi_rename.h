// Multi Rename, the extension of index 2: renames many files by rules, in a window of its own.
#pragma once

#include "frame/services/host_services.h"

namespace Velmora::SDK {

class QXMultiRename final : public IPluginInterface {
 public:
  s32 OnRegister(IHostApp* hostApp) override;
  u32 GetExtensionKind() override;
  s32 OnStart(IHostApp* hostApp) override;
  const char* GetExtensionId() override;
  bool OnHostEvent(std::intptr_t source, s32 code) override;
  s32 OnCommand(s32 number, std::intptr_t a, std::intptr_t b) override;
  s32 Reserved1() override { return 0; }
  s32 OnCustomCommand(IHostCommandCall* call) override;
  s32 OnHelperMessage(s32 code, IHostHelperMessage* message) override;
  s32 Reserved2() override { return 0; }
  s32 Reserved3() override { return 0; }
  s32 OnShutdown(std::intptr_t unread) override;
  s32 Reserved4() override { return 0; }
  s32 Reserved5() override { return 0; }
  s32 Reserved6() override { return 0; }

 private:
  IHostApp* host = nullptr;
  [[maybe_unused]] u32 imageSet = 1;  // the window asks for rows' images by it
};

}  // namespace Velmora::SDK
