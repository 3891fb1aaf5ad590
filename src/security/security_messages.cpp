#include "security/security_messages.h"

#include <functional>
#include <optional>
#include <vector>

#include "frame/services/helper_requests.h"
#include "security/current_user.h"
#include "security/ntfs_tools.h"

using namespace Velmora::SDK;

namespace {

using MessagePaths = std::vector<WString>;

// Reads a count and that many paths, leaving out empty ones. The count is untrusted: reading ends with the
// payload.
MessagePaths ReadPaths(HelperPayload& payload) {
  MessagePaths paths;
  for (u32 left = payload.ReadU32(); left > 0 && payload.IsComplete(); --left) {
    if (WString path = payload.ReadString(); !path.empty()) paths.push_back(std::move(path));
  }
  return paths;
}

// Reads a message that consists of paths; returns std::nullopt if it is too short. Releases the host's reader
// on return, before the work begins.
std::optional<MessagePaths> ReadPathsOnly(IHostHelperMessage& message) {
  HelperPayload payload(message);
  MessagePaths paths = ReadPaths(payload);
  return payload.IsComplete() ? std::optional(std::move(paths)) : std::nullopt;
}

struct AddAccessRequest {
  u32 mask;
  WString user;
  MessagePaths paths;
};

std::optional<AddAccessRequest> ReadAddAccess(IHostHelperMessage& message) {
  HelperPayload payload(message);
  AddAccessRequest request;
  request.mask = payload.ReadU32();
  request.user = payload.ReadString();
  request.paths = ReadPaths(payload);
  const bool isWhole = payload.IsComplete() && !request.paths.empty();
  return isWhole ? std::optional(std::move(request)) : std::nullopt;
}

// Changes the paths in order until the first error. Returns that error, or 0.
u32 ChangePaths(const MessagePaths& paths, const std::function<u32(const WString&)>& change) {
  for (const WString& path : paths) {
    if (const u32 error = change(path)) return error;
  }
  return ERROR_SUCCESS;
}

u32 TakeOwnershipOf(const MessagePaths& paths) {
  NTFSTools tools;
  PrivilegeList privileges(true);
  tools.EnableTakeOwnership(privileges);
  const WString user = CurrentUserName();
  return ChangePaths(paths, [&](const WString& path) { return tools.TakeOwnership(path, user); });
}

}  // namespace

void HandleTakeOwnership(IHostApp*, IHostHelperMessage& message) {
  const std::optional<MessagePaths> paths = ReadPathsOnly(message);
  message.SetReply(1, paths ? TakeOwnershipOf(*paths) : u32{ERROR_INVALID_DATA}, 0, 0);
}

void HandleAddAccess(IHostApp*, IHostHelperMessage& message) {
  const std::optional<AddAccessRequest> request = ReadAddAccess(message);
  const auto add = [&](const WString& path) {
    return NTFSTools().AddAccess(path, request->user, request->mask);
  };
  message.SetReply(1, request ? ChangePaths(request->paths, add) : u32{ERROR_INVALID_DATA}, 0, 0);
}

void HandleResetAccess(IHostApp*, IHostHelperMessage& message) {
  const std::optional<MessagePaths> paths = ReadPathsOnly(message);
  const auto reset = [](const WString& path) { return NTFSTools().ResetAccess(path); };
  message.SetReply(1, paths ? ChangePaths(*paths, reset) : u32{ERROR_INVALID_DATA}, 0, 0);
}
