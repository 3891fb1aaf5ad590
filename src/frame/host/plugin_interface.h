// The interfaces through which the host calls the extension objects. The host owns an object from Create to
// Delete.
#pragma once

#include "frame/host/command_numbers.h"
#include "frame/host/host_app.h"
#include "frame/host/host_helper_channel.h"

namespace Velmora::SDK {

// The result of GetExtensionKind for an extension with commands. It differs from the kindFlags of the record,
// which are 0x2100 (C-002).
constexpr u32 kPluginKind = 0x2000;

// The interface of extensions with commands. Operations that do nothing return 0.
class IPluginInterface {
 public:
  virtual s32 OnRegister(IHostApp* host) = 0;
  virtual u32 GetExtensionKind() = 0;
  virtual s32 OnStart(IHostApp* host) = 0;
  virtual const char* GetExtensionId() = 0;
  virtual bool OnHostEvent(std::intptr_t source, s32 code) = 0;
  virtual s32 OnCommand(s32 number, std::intptr_t a, std::intptr_t b) = 0;  // 1 if handled, else 0
  virtual s32 Reserved1() = 0;
  virtual s32 OnCustomCommand(IHostCommandCall* call) = 0;                 // 1 on success, else 0
  virtual s32 OnHelperMessage(s32 code, IHostHelperMessage* message) = 0;  // 1 if handled, else 0
  virtual s32 Reserved2() = 0;
  virtual s32 Reserved3() = 0;
  virtual s32 OnShutdown(std::intptr_t unread) = 0;
  virtual s32 Reserved4() = 0;
  virtual s32 Reserved5() = 0;
  virtual s32 Reserved6() = 0;

 protected:
  ~IPluginInterface() = default;
};

}  // namespace Velmora::SDK
