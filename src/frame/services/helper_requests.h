// Sends requests to the elevated helper, and reads them in the helper process.
#pragma once

#include <functional>
#include <optional>

#include "frame/host/host_app.h"
#include "frame/host/host_helper_channel.h"

namespace Velmora::SDK {

// Codes of the messages, with the fields of their payloads.
enum HelperMessageCode : s32 {
  kHelperTakeOwnership = 5000,  // count, paths
  kHelperAddAccess = 5001,      // mask, user, count, paths
  kHelperResetAccess = 5003,    // count, paths
  kHelperCreateLink = 5004,     // kind, link, target, 1 for a folder
};

// Connects to the helper, sends it the message that `write` fills, waits for the reply and returns its code.
// Returns std::nullopt if the helper cannot be reached. Disconnects in all cases.
std::optional<u32> SendToHelper(IHostApp& host, s32 code,
                                const std::function<void(IHostPacketWriter&)>& write);

// Reads the payload of a message, in the order in which it was written.
class HelperPayload {
 public:
  explicit HelperPayload(IHostHelperMessage& message);
  HelperPayload(const HelperPayload&) = delete;
  HelperPayload& operator=(const HelperPayload&) = delete;
  ~HelperPayload();

  // Read the next value. If the payload has no more values, they return 0 or the empty text, and IsComplete
  // returns false from then on.
  u32 ReadU32();
  WString ReadString();
  bool IsComplete() const { return isComplete_; }

 private:
  IHostPacketReader* reader_;
  bool isComplete_;
};

}  // namespace Velmora::SDK
