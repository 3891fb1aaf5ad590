// Multi Rename, the extension of index 2: renames many files by rules, in a window of its own.
#pragma once

#include "frame/services/plugin_base.h"

namespace Velmora::SDK {

class QXMultiRename final : public PluginBase {
 public:
  s32 OnRegister(IHostApp* hostApp) override;
  const char* GetExtensionId() override;
  s32 OnCommand(s32 number, std::intptr_t a, std::intptr_t b) override;
  s32 OnShutdown(std::intptr_t unread) override;

 private:
  [[maybe_unused]] u32 imageSet = 1;  // the window asks for rows' images by it
};

}  // namespace Velmora::SDK
