// Talking to the elevated helper: a request with its answer on the host's side, and the reading of a request
// on the helper's.
#pragma once

#include <functional>
#include <optional>

#include "frame/host/host_app.h"
#include "frame/host/host_helper_channel.h"

namespace Velmora::SDK {

// Numbers of the messages.
enum HelperMessageCode : s32 {
  kHelperTakeOwnership = 5000,  // count, paths
  kHelperAddAccess = 5001,      // mask, user, count, paths
  kHelperResetAccess = 5003,    // count, paths
  kHelperCreateLink = 5004,     // kind, link, target, 1 for a folder
};

// Reaches the helper, sends it the message that `write` fills, and answers the reply's number. Nothing if the
// helper cannot be reached. Blocks until the answer; the channel is given up in any case.
std::optional<u32> SendToHelper(IHostApp& host, s32 code,
                                const std::function<void(IHostPacketWriter&)>& write);

// The payload of a message, read in the order in which it was written.
class HelperPayload {
 public:
  explicit HelperPayload(IHostHelperMessage& message);
  HelperPayload(const HelperPayload&) = delete;
  HelperPayload& operator=(const HelperPayload&) = delete;
  ~HelperPayload();

  // 0 and the empty text where nothing is left to read, and IsComplete is false from then on.
  u32 ReadU32();
  WString ReadString();
  bool IsComplete() const { return isComplete_; }

 private:
  IHostPacketReader* reader_;
  bool isComplete_;
};

}  // namespace Velmora::SDK
