#include "frame/qx_utils.h"

#include "filetools/control_panel.h"
#include "frame/dispatcher.h"
#include "frame/helper_messages.h"
#include "frame/menu_tree.h"
#include "frame/script_commands.h"
#include "frame/script_dispatcher.h"
#include "frame/services/extension_ids.h"

namespace Velmora::SDK {

namespace {

void BuildMenus(IHostApp& host) {
  IHostMenuBuilder* const builder = host.GetMenuBuilder();
  if (!builder) return;
  const MenuHandle root = builder->CreateRootMenu(kRootMenuText, 1, 0);
  IHostCommandFactory* const factory = host.GetCommandFactory();
  if (!root || !factory) return;
  BuildFileUtilsMenu(*builder, *factory, root);
  if (host.IsVistaOrNewer()) BuildControlPanelMenu(host, *builder, *factory, root);
}

}  // namespace

s32 CQXUtils::OnRegister(IHostApp* hostApp) {
  if (!hostApp) return 1;
  BuildMenus(*hostApp);
  RegisterScriptCommands(*hostApp);
  return 1;
}

const char* CQXUtils::GetExtensionId() { return fileUtilsId; }

s32 CQXUtils::OnCommand(s32 number, std::intptr_t, std::intptr_t b) {
  switch (number) {
    case kCommandShutdown:
      return OnShutdown(b);
    case kCommandIgnored:
      return 0;
    default:
      return host && DispatchCommand(*host, number) ? 1 : 0;
  }
}

s32 CQXUtils::OnCustomCommand(IHostCommandCall* call) {
  return call && host ? DispatchScriptCommand(*host, *call) : 0;
}

// In the elevated helper process, `host` may be null.
s32 CQXUtils::OnHelperMessage(s32 code, IHostHelperMessage* message) {
  return message ? HandleHelperMessage(host, code, *message) : 0;
}

}  // namespace Velmora::SDK
