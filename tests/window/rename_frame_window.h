// The fixture for tests of MultiRename's complete window: the frame and the panel over their forms, the
// engine with its worker, and the reference host's container and list. Its message loop runs until nothing is
// left to do.
#pragma once

#include "host/controls/controls.h"
#include "multirename/panel_window.h"
#include "multirename/window/rename_window.h"
#include "window/dialog_controls.h"
#include "window/english_texts.h"

// Provides the reference host's controls to the window.
class FrameHost final : public PanelHost {
 public:
  explicit FrameHost(const ScratchFolder& scratch)
      : files_(scratch.Path(W("settings")), [](const std::string&) {}) {}

  bool hasContainer = true;
  bool hasList = true;
  Velmora::SDK::RenameWindow* window = nullptr;  // receives the events of the list
  HWND container = nullptr;
  HWND list = nullptr;
  int controlsOut = 0;  // controls that were not given back yet
  bool throwsAtClose = false;
  std::vector<std::string> returned;

  void FailAtClose() const;
  Velmora::SDK::IHostConfig* GetConfig() override;
  HWND CreateControl(Velmora::SDK::u32 kind, HWND parent, Velmora::SDK::u32 style) override;
  void* GetService(Velmora::SDK::u32 number, std::uintptr_t handle) override;
  void ReleaseService(void* service, Velmora::SDK::u32 number) override;

 private:
  QxHost::SettingsFiles files_;
  QxHost::Controls controls_{files_, "MultiRename",
                             [this](std::intptr_t source, Velmora::SDK::s32 code) {
                               if (window) window->Form().OnHostEvent(source, code);
                             },
                             nullptr};
  void* listService_ = nullptr;
};

class RenameFrameWindow : public testing::Test, protected Velmora::SDK::RenameWindowOwner {
 protected:
  using WString = ::WString;

  RenameFrameWindow();
  ~RenameFrameWindow() override;

  // Opens the window with files of these names selected and waits for the first preview.
  void Open(const std::vector<WString>& names = {});
  // Like Open, without running the message loop.
  void OpenOnly(const std::vector<WString>& names = {});
  // Selects exactly the files with these names in the host.
  void Select(const std::vector<WString>& names);
  // Runs the message loop until no message waits and the worker is idle.
  void Settle();

  HWND Frame() const { return window_ ? window_->Frame() : nullptr; }
  HWND Panel() const { return window_ ? window_->Panel() : nullptr; }
  HWND List() const { return host_.list; }
  HWND StatusBar() const;

  // The user's actions. The message loop runs after each.
  void Press(int button);
  void Type(int control, const WString& text);
  void Choose(int control, int line);
  void PressFrameKey(WORD key, bool withAlt = false);
  void PressFrameAccessKey(WCHAR character);
  void SelectRows(const std::vector<int>& rows);
  void CloseFrame();

  // What the user sees.
  std::vector<WString> Cells(int column) const;
  std::vector<WString> OldNames() const { return Cells(0); }
  std::vector<WString> NewNames() const { return Cells(1); }
  std::vector<int> SelectedRowsOfList() const;
  WString Pane(int pane) const;
  WString TitleOfFrame() const;

  Velmora::SDK::RenameContext& Context() override { return context_; }
  void OnWindowClosed() override;

  const ScratchFolder scratch_;
  FrameHost host_{scratch_};
  Velmora::SDK::OwnedEngine engine_ = [this] {
    host_.configFolder = scratch_.Path() + W("\\");
    return Velmora::SDK::OwnedEngine(new Velmora::SDK::MultiRenameEngine(&host_));
  }();
  Velmora::SDK::MultiRenameProfiles profiles_{host_};
  Velmora::SDK::RenameContext context_{host_, *engine_, profiles_, {}, {1}, {false}};
  Velmora::SDK::MessageLoop loop_;
  std::unique_ptr<Velmora::SDK::RenameWindow> window_;
  int closed_ = 0;  // number of calls of OnWindowClosed
};
