#include "multirename/window/qx_multi_rename.h"

#include "frame/services/extension_ids.h"

namespace Velmora::SDK {

s32 QXMultiRename::OnRegister(IHostApp*) { return 1; }

const char* QXMultiRename::GetExtensionId() { return multiRenameId; }

s32 QXMultiRename::OnCommand(s32 number, std::intptr_t, std::intptr_t b) {
  return number == kCommandShutdown ? OnShutdown(b) : 0;
}

s32 QXMultiRename::OnShutdown(std::intptr_t) {
  if (host) host->ExtensionClosed();
  return 0;
}

}  // namespace Velmora::SDK
