#include "filetools/create_link_script.h"

#include <optional>

#include "filetools/links.h"
#include "frame/services/leading_number.h"
#include "frame/services/script_values.h"

using namespace Velmora::SDK;

namespace {

struct LinkRequest {
  LinkKind kind;
  WString link;
  WString target;
  bool isFolder;
};

// Creates the link by way of the helper; returns std::nullopt if the system has no helper or the process is
// already elevated (C-409).
std::optional<DWORD> CreateAsAdministrator(IHostApp& host, const LinkRequest& request) {
  if (!host.IsVistaOrNewer() || host.IsProcessElevated()) return std::nullopt;
  return CreateLinkElevated(host, request.kind, request.link, request.target, request.isFolder);
}

// Creates the link in this process. Scripts get the same error number for every lack of rights (C-410).
DWORD CreateHere(IHostApp& host, const LinkRequest& request) {
  const DWORD error = CreateLinkOfKind(&host, request.kind, request.link, request.target, request.isFolder);
  return error == ERROR_PRIVILEGE_NOT_HELD ? ERROR_ACCESS_DENIED : error;
}

}  // namespace

s32 CreateLinkScript(IHostApp& host, IHostCommandCall& call) {
  // A kind that is not a number is read as 0, which is not a kind of link (C-411).
  const WString kind = ScriptValue(call, "LNKTYPE").value_or(WString());
  std::optional<WString> link = ScriptValue(call, "LNKSRC");
  std::optional<WString> target = ScriptValue(call, "LNKTRG");
  if (!link || !target) return 0;
  const DWORD attributes = GetFileAttributesW(target->c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return 0;
  const LinkRequest request{static_cast<LinkKind>(LeadingNumber(kind)), std::move(*link), std::move(*target),
                            (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0};

  if (call.HasFlag("ASADMIN")) {
    const std::optional<DWORD> error = CreateAsAdministrator(host, request);
    if (error) call.SetResultCode(*error);
    return error == ERROR_SUCCESS ? 1 : 0;
  }
  const DWORD error = CreateHere(host, request);
  call.SetResultText(FromUtf8(std::to_string(error)).c_str());
  call.SetResultCode(error);
  return error == ERROR_SUCCESS ? 1 : 0;
}
