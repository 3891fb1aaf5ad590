// Service 3250: the channel to the elevated helper, a process of this program that has loaded the module.
//
// If the helper cannot be started, ends, does not reply in time or sends an invalid reply, the call returns
// an error number and the process is ended.
#pragma once

#include <chrono>
#include <memory>

#include "frame/host/host_helper_channel.h"
#include "host/helper/helper_process.h"
#include "host/helper/packets.h"

namespace QxHost {

// The time limits of the helper for each step.
struct HelperTimes {
  std::chrono::milliseconds start{60'000};
  std::chrono::milliseconds answer{600'000};
  std::chrono::milliseconds end{5'000};
};

class HelperChannel final : public Velmora::SDK::IHostHelperChannel {
 public:
  explicit HelperChannel(HelperCommand command, HelperTimes times = {});
  HelperChannel(const HelperChannel&) = delete;
  HelperChannel& operator=(const HelperChannel&) = delete;

  bool Connect() override;
  Velmora::SDK::IHostPacketWriter* CreateWriter() override;
  // Sends a message and returns the code of the reply, or an error: ERROR_BROKEN_PIPE (109) if there is no
  // helper or it has ended, ERROR_TIMEOUT (1460), ERROR_INVALID_DATA (13) for an invalid reply,
  // ERROR_INVALID_FUNCTION (1) for a message that the module does not handle.
  u32 Send(s32 code, const void* data, u32 size) override;
  void Disconnect() override;

 private:
  u32 Exchange(s32 code, std::string_view body);

  HelperCommand command_;
  HelperTimes times_;
  std::unique_ptr<HelperProcess> process_;
};

// Returns the command that starts this program as the helper for the module.
HelperCommand OwnHelper(const WString& modulePath);

}  // namespace QxHost
