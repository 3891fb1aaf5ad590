// MultiRename's window without drawing, over the real host: real files and the host's batch, list, settings
// and language table. The test's thread is the host's main thread.
#pragma once

#include <atomic>
#include <functional>
#include <thread>

#include "frame/host/command_numbers.h"
#include "frame/qx_utils.h"
#include "host/controls/vector_list.h"
#include "host/hosted_files.h"
#include "multirename/window/qx_multi_rename.h"
#include "multirename/window/undrawn_window.h"
#include "security/ntfs_prop.h"

namespace QxHost {

// Creates the extensions of the module without loading it.
inline void* CreateExtensionOfModule(s32 index) {
  using namespace Velmora::SDK;
  if (index == 1) return static_cast<IFileProperties*>(new NTFSProp);
  if (index == 2) return static_cast<IPluginInterface*>(new QXMultiRename);
  return static_cast<IPluginInterface*>(new CQXUtils);
}

inline bool DeleteExtensionOfModule(void* object, s32 index) {
  using namespace Velmora::SDK;
  if (index == 1) {
    delete static_cast<NTFSProp*>(static_cast<IFileProperties*>(object));
  } else if (index == 2) {
    MultiRenameCloser()(static_cast<QXMultiRename*>(static_cast<IPluginInterface*>(object)));
  } else {
    delete static_cast<CQXUtils*>(static_cast<IPluginInterface*>(object));
  }
  return true;
}

inline bool InfoOfModule(u32 index, Velmora::SDK::ExtensionInfo* info) {
  constexpr const WCHAR* kNames[] = {W("QXUtils"), W("NTFSProp"), W("QXMultiRename")};
  if (index >= std::size(kNames)) return false;
  CopyTerminated(info->moduleName, std::size(info->moduleName), WStringView(kNames[index]));
  return true;
}

class HostedRenameWindow : public HostedFiles {
 public:
  explicit HostedRenameWindow(Questions::ReadLine readLine = nullptr)
      : HostedFiles({CreateExtensionOfModule, DeleteExtensionOfModule, InfoOfModule}, std::move(readLine)) {}

  // Opens the window and serves it until it closes, while `user` runs on another thread. `user` must close
  // the window.
  s32 RunWindow(std::function<void(Velmora::SDK::UndrawnWindow& window)> user) {
    std::thread acting([&] {
      std::shared_ptr<Velmora::SDK::UndrawnWindow> window;
      while (!(window = Velmora::SDK::UndrawnWindow::Current())) Sleep(1);
      user(*window);
    });
    const s32 answer = extensions->RunWindow(Velmora::SDK::kCommandMultiRename);
    acting.join();
    return answer;
  }
};

// Runs all posted messages of the window and all work of its worker. Called on the window's thread.
inline void SettleWindow(Velmora::SDK::UndrawnParts& parts) {
  for (int round = 0; round < 2; ++round) {
    Velmora::SDK::UndrawnWindow::TakeMessages();
    parts.context.engine.worker.WaitUntilIdle();
  }
  Velmora::SDK::UndrawnWindow::TakeMessages();
}

}  // namespace QxHost
