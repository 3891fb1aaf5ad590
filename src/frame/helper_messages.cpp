#include "frame/helper_messages.h"

#include <algorithm>
#include <iterator>

#include "filetools/links.h"
#include "frame/services/helper_requests.h"

using namespace Velmora::SDK;

namespace {

struct MessageRow {
  s32 code;
  void (*handle)(IHostApp* host, IHostHelperMessage& message);
};

// A message that ends too early makes no link.
void HandleCreateLink(IHostApp* host, IHostHelperMessage& message) {
  HelperPayload payload(message);
  const auto kind = static_cast<LinkKind>(payload.ReadU32());
  const WString link = payload.ReadString();
  const WString target = payload.ReadString();
  const bool isFolder = payload.ReadU32() != 0;
  const DWORD error =
      payload.IsComplete() ? CreateLinkOfKind(host, kind, link, target, isFolder) : ERROR_INVALID_DATA;
  message.SetReply(error == ERROR_SUCCESS ? 1 : 0, error, 0, 0);
}

// clang-format off
constexpr MessageRow kMessages[] = {
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
