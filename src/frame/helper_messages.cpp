#include "frame/helper_messages.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "filetools/links.h"
#include "frame/services/helper_requests.h"
#include "security/security_messages.h"

using namespace Velmora::SDK;

namespace {

struct MessageRow {
  s32 code;
  void (*handle)(IHostApp* host, IHostHelperMessage& message);
};

struct LinkRequest {
  LinkKind kind;
  WString link;
  WString target;
  bool isFolder;
};

// Reads a request; returns std::nullopt if the message is too short. Releases the host's reader on return,
// before the link is created.
std::optional<LinkRequest> ReadLinkRequest(IHostHelperMessage& message) {
  HelperPayload payload(message);
  LinkRequest request;
  request.kind = static_cast<LinkKind>(payload.ReadU32());
  request.link = payload.ReadString();
  request.target = payload.ReadString();
  request.isFolder = payload.ReadU32() != 0;
  return payload.IsComplete() ? std::optional(std::move(request)) : std::nullopt;
}

void HandleCreateLink(IHostApp* host, IHostHelperMessage& message) {
  const std::optional<LinkRequest> request = ReadLinkRequest(message);
  const DWORD error =
      request ? CreateLinkOfKind(host, request->kind, request->link, request->target, request->isFolder)
              : ERROR_INVALID_DATA;
  message.SetReply(error == ERROR_SUCCESS ? 1 : 0, error, 0, 0);
}

// clang-format off
constexpr MessageRow kMessages[] = {
  {kHelperTakeOwnership, HandleTakeOwnership},
  {kHelperAddAccess, HandleAddAccess},
  {kHelperResetAccess, HandleResetAccess},
  {kHelperCreateLink, HandleCreateLink},
};
// clang-format on

}  // namespace

s32 HandleHelperMessage(IHostApp* host, s32 code, IHostHelperMessage& message) {
  const auto* const row = std::ranges::find(kMessages, code, &MessageRow::code);
  if (row == std::end(kMessages)) return 0;
  row->handle(host, message);
  return 1;
}
