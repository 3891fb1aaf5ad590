// The host's side of a complete window: an extension opens a frame with the host's container and list on its
// own thread, and closes it.
#include <gmock/gmock.h>

#include <stdexcept>
#include <thread>

#include "frame/host/command_numbers.h"
#include "frame/host/plugin_base.h"
#include "host/controls/controls.h"
#include "host/recorded_output.h"
#include "host/services/extensions.h"
#include "multirename/engine/rename_worker.h"
#include "support/row_texts.h"
#include "support/scratch_folder.h"
#include "ui/module_instance.h"

using testing::ElementsAre;

namespace {

using namespace Velmora::SDK;

// Stands in for MultiRename: a list of three rows, and a first preview that finishes at once.
class FramePlugin final : public PluginBase {
 public:
  ~FramePlugin() {
    if (window_.joinable()) window_.join();
  }

  s32 OnRegister(IHostApp*) override { return 1; }
  const char* GetExtensionId() override { return ""; }
  s32 OnCommand(s32 number, std::intptr_t, std::intptr_t) override {
    log.push_back("command " + std::to_string(number));
    if (number == kCommandMultiRename) {
      window_ = std::thread([this] { RunWindow(); });
      return 1;
    }
    return number == kCommandShutdown ? OnShutdown(0) : 0;
  }
  bool OnHostEvent(std::intptr_t source, s32 code) override {
    const bool isOwn = list_ && source == static_cast<std::intptr_t>(list_->GetId());
    events.push_back(isOwn && std::this_thread::get_id() == windowThread_ ? code : 0);
    return true;
  }
  s32 OnShutdown(std::intptr_t) override {
    if (window_.joinable()) window_.join();
    host->ExtensionClosed();
    return 0;
  }

  static inline std::vector<std::string> log;
  static inline std::vector<s32> events;
  static inline std::vector<u32> counts;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(window, message, wParam, lParam);
  }

  template <typename Interface>
  Interface* Service(u32 kind, HWND handle) {
    return static_cast<Interface*>(host->GetService(kind, reinterpret_cast<std::uintptr_t>(handle)));
  }

  void RunWindow() {
    windowThread_ = std::this_thread::get_id();
    WNDCLASSW frameClass = {};
    frameClass.lpfnWndProc = Procedure;
    frameClass.hInstance = Ui::ModuleInstance();
    frameClass.lpszClassName = L"QxTestFrame";
    RegisterClassW(&frameClass);
    const HWND frame = CreateWindowExW(0, L"QxTestFrame", L"Frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10,
                                       500, 300, nullptr, nullptr, Ui::ModuleInstance(), nullptr);
    auto* const container =
        Service<IHostContainer>(kServiceContainerControl, host->CreateControl(1000, frame, 0x56000000));
    const HWND listWindow = container->CreateControl(500, 200);
    list_ = Service<IHostListControl>(kServiceListControl, listWindow);
    list_->AddColumn(W("Old"), 200, 2);
    list_->SetRowProvider(&rows_);
    for (const WCHAR* const name : {W("a"), W("b"), W("c")}) list_->AddRow(list_->CreateRow(rows_.Add(name)));
    list_->Refresh();
    MSG select = {};
    select.hwnd = listWindow;
    select.message = WM_KEYDOWN;
    select.wParam = 'A';
    BYTE keys[256] = {};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    list_->FilterMessage(&select);
    PostMessageW(frame, MRM_RUN_FINISHED, kPreviewFinished, 0);
    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    u32 rows = 0;
    u32 selected = 0;
    list_->GetCounts(&rows, &selected);
    counts.push_back(rows);
    host->ReleaseService(list_, 0);
    host->ReleaseService(container, 0);
    list_ = nullptr;
    host->PostCommand(kCommandShutdown, 0, 0);
  }

  std::thread window_;
  std::thread::id windowThread_;
  RowTexts rows_;
  IHostListControl* list_ = nullptr;
};

void* CreateFramePlugin(s32) { return static_cast<IPluginInterface*>(new FramePlugin); }

bool DeleteFramePlugin(void* object, s32) {
  FramePlugin::log.push_back("delete");
  delete static_cast<FramePlugin*>(static_cast<IPluginInterface*>(object));
  return true;
}

// The module has three extensions; the tested one has MultiRename's index, 2.
bool FramePluginInfo(u32 index, ExtensionInfo* info) {
  info->moduleName[0] = W('M');
  return index < 3;
}

void* CreateThird(s32 index) {
  class Nothing final : public PluginBase {
   public:
    s32 OnRegister(IHostApp*) override { return 1; }
    const char* GetExtensionId() override { return ""; }
    s32 OnCommand(s32, std::intptr_t, std::intptr_t) override { return 0; }
  };
  class NoProperties final : public IFileProperties {
   public:
    const char* GetProviderId() override { return ""; }
    s32 RegisterProperties(IHostApp*) override { return 0; }
    bool Detach() override { return false; }
    bool Attach(u64) override { return false; }
    bool ClearCache() override { return false; }
    bool Reserved1() override { return false; }
    bool GetPropertyValue(IHostFileItem*, WCHAR*, u16, u16) override { return false; }
    bool Reserved2() override { return false; }
    bool Reserved3() override { return false; }
    bool Reserved4() override { return false; }
    bool Reserved5() override { return false; }
    bool Reserved6() override { return false; }
    bool Reserved7() override { return false; }
  };
  static Nothing nothing;
  static NoProperties noProperties;
  if (index == 0) return static_cast<IPluginInterface*>(&nothing);
  if (index == 1) return static_cast<IFileProperties*>(&noProperties);
  return CreateFramePlugin(index);
}

bool DeleteThird(void* object, s32 index) { return index != 2 || DeleteFramePlugin(object, index); }

TEST(HostWindowRun, OpensClosesAfterThePictureAndOpensAgain) {
  FramePlugin::log.clear();
  FramePlugin::events.clear();
  FramePlugin::counts.clear();
  ScratchFolder scratch;
  RecordedOutput recorded;
  const std::unique_ptr<QxHost::Reporter> reporter = MakeJsonReporter(recorded.output);
  QxHost::Questions questions(*reporter, recorded.output, {}, {}, nullptr);
  QxHost::SystemAnswers answers;
  answers.configFolder = scratch.Path(W("config"));
  QxHost::Shared shared(recorded.output, *reporter, QxHost::LanguageTable(), answers, questions, false);
  shared.picture.path = scratch.Path(W("window.png"));
  QxHost::Extensions extensions(shared, {CreateThird, DeleteThird, FramePluginInfo});
  extensions.Start();
  EXPECT_EQ(extensions.RunWindow(kCommandMultiRename), 1);
  EXPECT_TRUE(shared.picture.isSaved);
  shared.picture = {scratch.Path(W("second.png"))};
  extensions.Renew(kCommandMultiRename);
  EXPECT_EQ(extensions.RunWindow(kCommandMultiRename), 1);
  EXPECT_TRUE(shared.picture.isSaved);
  EXPECT_THAT(FramePlugin::log,
              ElementsAre("command 31000", "command 20002", "delete", "command 31000", "command 20002"));
  EXPECT_THAT(FramePlugin::counts, ElementsAre(3u, 3u));
  EXPECT_THAT(FramePlugin::events, ElementsAre(QxHost::kSelectionChanged, QxHost::kSelectionChanged));
  extensions.Stop();
}

}  // namespace
