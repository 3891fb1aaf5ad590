// MultiRename's window in the native build: the forms with views that only store their contents.

#include <optional>

#include "multirename/form/panel_controls.h"
#include "multirename/window/form_calls.h"
#include "multirename/window/host_list_controls.h"
#include "multirename/window/rename_window.h"
#include "multirename/window/undrawn_messages.h"
#include "platform/message_window.h"

namespace Velmora::SDK {

class UndrawnRenameWindow final : public RenameWindow, private FrameView, private IMultiWindow {
 public:
  UndrawnRenameWindow(RenameWindowOwner& owner, MessageLoop& loop)
      : owner_(owner), loop_(loop), lists_(owner.Context().host) {}
  UndrawnRenameWindow(const UndrawnRenameWindow&) = delete;
  UndrawnRenameWindow& operator=(const UndrawnRenameWindow&) = delete;
  ~UndrawnRenameWindow() override {
    if (isOpen_) Destroy();
  }

  bool Open();

  HWND Frame() const override { return frameWindow_ ? frameWindow_->Handle() : nullptr; }
  HWND Panel() const override { return panelWindow_ ? panelWindow_->Handle() : nullptr; }
  void Show() override { owner_.Context().imageSet = lists_.List()->GetImageSet(); }
  FrameForm& Form() override { return frameForm_; }

 private:
  void OnFrameMessage(const PostedMessage& message);
  void OnClose();
  void RunJob();
  void Destroy();

  HWND Window() override { return Frame(); }
  void SetTitle(const WString& title) override { title_ = title; }
  void SetPane(int pane, const WString& text) override { panes_[pane] = text; }
  int ShowMenu(HWND, int, int, const MenuLines& lines) override { return ChooseUndrawnLine(lines); }
  int ShowBox(const WString& title, const WString& text, UINT style) override {
    return MessageBoxW(Frame(), text.c_str(), title.c_str(), style);
  }
  void Post(RenameMessage message) override { PostMessageW(Frame(), message, 0, 0); }
  void PostClose() override { PostMessageW(Frame(), WM_CLOSE, 0, 0); }

  HWND GetHandle() override { return Panel(); }
  bool FilterMessage(tagMSG*) override { return false; }
  void DestroyHandle() override { panelWindow_.reset(); }

  RenameWindowOwner& owner_;
  MessageLoop& loop_;
  WString title_;
  std::map<int, WString> panes_;
  UndrawnPanel controls_;
  FrameForm frameForm_{*this, owner_.Context()};
  PanelForm panelForm_{controls_, frameForm_, owner_.Context()};
  HostListControls lists_;
  std::optional<ControlWrapper> listKeys_;
  std::optional<UndrawnParts> parts_;
  std::shared_ptr<UndrawnWindow> remote_;
  std::unique_ptr<MessageWindow> frameWindow_;
  std::unique_ptr<MessageWindow> panelWindow_;
  FormCalls calls_;
  bool isOpen_ = false;
};

bool UndrawnRenameWindow::Open() {
  frameWindow_ =
      std::make_unique<MessageWindow>([this](const PostedMessage& message) { OnFrameMessage(message); });
  panelWindow_ = std::make_unique<MessageWindow>([this](const PostedMessage& message) {
    calls_.Run([&] { panelForm_.OnMessage(message.message, message.first, message.second); });
  });
  const auto showMenu = [this](const ListContextMenu& menu) {
    calls_.Run([&] { frameForm_.ShowContextMenu(menu.window, menu.x, menu.y); });
  };
  if (!lists_.OpenContainer(Frame())) return false;
  if (!lists_.OpenList(FrameLayout::kListWidth, FrameLayout::kRowHeight, showMenu)) return false;
  controls_.window = Panel();
  frameForm_.Open(lists_.List());
  isOpen_ = true;
  panelForm_.Open();
  lists_.Container()->Dock(this, FrameLayout::kHeight);
  listKeys_.emplace(*lists_.List());
  loop_.AddFilter(*listKeys_);
  parts_.emplace(
      UndrawnParts{owner_.Context(), frameForm_, panelForm_, controls_, *lists_.List(), title_, panes_});
  remote_.reset(new UndrawnWindow(Frame()));
  remote_->parts_ = &*parts_;
  SetCurrentUndrawnWindow(remote_);
  return true;
}

void UndrawnRenameWindow::OnFrameMessage(const PostedMessage& message) {
  if (message.message == WM_CLOSE) {
    OnClose();
  } else if (message.message == kUndrawnJob) {
    RunJob();
  } else {
    calls_.Run([&] { frameForm_.OnMessage(message.message); });
  }
}

// While a form runs a dialog, box or menu, the window remains; WM_CLOSE is posted again afterwards.
void UndrawnRenameWindow::OnClose() {
  if (calls_.AreRunning()) return calls_.CloseAfter(Frame());
  if (isOpen_) Destroy();
}

void UndrawnRenameWindow::RunJob() {
  const std::shared_ptr<UndrawnWindow::Job> job = remote_->Next();
  if (!job) return;
  calls_.Run([&] { job->action(*parts_); });
  remote_->SetDone(*job);
}

void UndrawnRenameWindow::Destroy() {
  isOpen_ = false;
  if (listKeys_) loop_.RemoveFilter(*listKeys_);
  panelForm_.Close();
  frameForm_.Close();
  lists_.Close();
  DestroyHandle();
  frameWindow_.reset();
  if (remote_) {
    SetCurrentUndrawnWindow(nullptr);
    remote_->SetClosed();
  }
  owner_.OnWindowClosed();
}

std::unique_ptr<RenameWindow> OpenRenameWindow(RenameWindowOwner& owner, MessageLoop& loop) {
  auto window = std::make_unique<UndrawnRenameWindow>(owner, loop);
  if (!window->Open()) return nullptr;
  return window;
}

}  // namespace Velmora::SDK
