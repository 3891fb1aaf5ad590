// Service 3250: the road to the elevated helper, which is a process of this program with the module in it.
//
// A helper that cannot be started, dies, does not answer in time or sends what is no answer gives an error
// number, and the process is ended.
#pragma once

#include <chrono>
#include <memory>

#include "frame/host/host_helper_channel.h"
#include "host/helper/helper_process.h"
#include "host/helper/packets.h"

namespace QxHost {

// How long the helper may take for each step.
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
  // The number of the reply, or: ERROR_BROKEN_PIPE (109) if there is no helper, or none any more,
  // ERROR_TIMEOUT (1460), ERROR_INVALID_DATA (13) for what is no reply, ERROR_INVALID_FUNCTION (1) for a
  // message that the module does not know.
  u32 Send(s32 code, const void* data, u32 size) override;
  void Disconnect() override;

 private:
  u32 Exchange(s32 code, std::string_view body);

  HelperCommand command_;
  HelperTimes times_;
  std::unique_ptr<HelperProcess> process_;
};

// The helper of this program for the module.
HelperCommand OwnHelper(const WString& modulePath);

}  // namespace QxHost
