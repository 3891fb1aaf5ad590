// MultiRename's undrawn window over the real host: real files, the host's batch, list, settings and language
// table. The test's thread is the host's main thread.
#pragma once

#include <gmock/gmock.h>

#include <atomic>
#include <functional>
#include <thread>

#include "frame/qx_utils.h"
#include "host/controls/vector_list.h"
#include "host/extensions.h"
#include "host/recorded_output.h"
#include "host/system_places.h"
#include "host/whole_file.h"
#include "multirename/window/qx_multi_rename.h"
#include "multirename/window/undrawn_window.h"
#include "security/ntfs_prop.h"
#include "support/scratch_folder.h"

namespace QxHost {

// The three extensions of the module, without the module.
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

class HostedRenameWindow {
 public:
  explicit HostedRenameWindow(Questions::ReadLine readLine = nullptr)
      : questions(*reporter, recorded.output, {}, {}, std::move(readLine)) {
    std::string bytes;
    EXPECT_EQ(ReadWholeFile(ProgramFolder() + W("\\english.language"), bytes), 0u);
    std::vector<std::string> warnings;
    shared.emplace(recorded.output, *reporter, LanguageTable::Parse(bytes, warnings), Answers(), questions,
                   false);
    scratch.MakeFolder(W("files"));
    extensions.emplace(*shared,
                       ModuleExports{CreateExtensionOfModule, DeleteExtensionOfModule, InfoOfModule});
  }

  // Makes a file of the folder with its own name as its content, and selects it.
  void Add(WStringView name) {
    const WString path = scratch.Write(W("files\\") + WString(name), ToUtf8(name));
    selected_.push_back(shared->items.Find(path));
  }

  void Start() {
    shared->view.emplace(shared->items, selected_, nullptr, WString());
    ASSERT_TRUE(extensions->Start());
  }

  // Opens the window and serves it until it has closed, while the user does something with it on a thread.
  // The window has then closed by the user's doing.
  s32 RunWindow(std::function<void(Velmora::SDK::UndrawnWindow& window)> user) {
    std::thread acting([&] {
      std::shared_ptr<Velmora::SDK::UndrawnWindow> window;
      while (!(window = Velmora::SDK::UndrawnWindow::Current())) Sleep(1);
      user(*window);
    });
    const s32 answer = extensions->RunWindow(31000);
    acting.join();
    return answer;
  }

  SystemAnswers Answers() const {
    SystemAnswers answers;
    answers.configFolder = scratch.MakeFolder(W("config"));
    return answers;
  }

  const ScratchFolder scratch;
  RecordedOutput recorded;
  const std::unique_ptr<Reporter> reporter = MakeJsonReporter(recorded.output);
  Questions questions;
  std::optional<Shared> shared;
  std::optional<Extensions> extensions;

 private:
  std::vector<FileItem*> selected_;
};

// Lets everything through that is posted to the window and that its worker is asked to do. On its thread.
inline void SettleWindow(Velmora::SDK::UndrawnParts& parts) {
  for (int round = 0; round < 2; ++round) {
    Velmora::SDK::UndrawnWindow::TakeMessages();
    parts.context.engine.worker.WaitUntilIdle();
  }
  Velmora::SDK::UndrawnWindow::TakeMessages();
}

}  // namespace QxHost
