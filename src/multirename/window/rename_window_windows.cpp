#include <optional>

#include "multirename/form/panel_controls.h"
#include "multirename/form/panel_form.h"
#include "multirename/window/form_calls.h"
#include "multirename/window/frame_placement_windows.h"
#include "multirename/window/host_list_controls.h"
#include "multirename/window/main_frame_windows.h"
#include "multirename/window/rename_window.h"
#include "multirename/window/rule_panel_windows.h"
#include "ui/common_controls.h"

namespace Velmora::SDK {

namespace {

// Ends the boxes and dialogs that a window owns and the menu of the thread, so that the calls that show them
// return. Windows that the host shows in its own way end only when the user closes them.
void EndBoxesOf(HWND frame) {
  GUITHREADINFO thread = {};
  thread.cbSize = sizeof(thread);
  if (GetGUIThreadInfo(GetCurrentThreadId(), &thread) && (thread.flags & GUI_INMENUMODE) != 0) EndMenu();
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND popup, LPARAM owner) -> BOOL {
        WCHAR name[16] = {};
        const bool isDialog = GetClassNameW(popup, name, 16) > 0 && WStringView(name) == W("#32770");
        if (isDialog && GetWindow(popup, GW_OWNER) == reinterpret_cast<HWND>(owner))
          EndDialog(popup, IDCANCEL);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(frame));
}

class FrameWithPanel final : public RenameWindow {
 public:
  FrameWithPanel(RenameWindowOwner& owner, MessageLoop& loop)
      : owner_(owner), loop_(loop), context_(owner.Context()) {}
  FrameWithPanel(const FrameWithPanel&) = delete;
  FrameWithPanel& operator=(const FrameWithPanel&) = delete;
  ~FrameWithPanel() override {
    if (const HWND frame = frame_.Window()) DestroyWindow(frame);
  }

  // Returns false if a part cannot be created; the destructor then destroys the frame.
  bool Open();

  HWND Frame() const override { return const_cast<MainFrame&>(frame_).Window(); }
  HWND Panel() const override { return const_cast<RulePanel&>(panel_).Window(); }
  void Show() override;
  FrameForm& Form() override { return form_; }

 private:
  void OnDestroy();
  void OnDestroyed() {
    if (isOpen_) calls_.Run([this] { owner_.OnWindowClosed(); });
  }
  void EndBoxes() {
    // A dialog of the module handles WM_CLOSE itself.
    if (!panel_.RunsDialog()) EndBoxesOf(frame_.Window());
  }
  void SetScale(int pixelsOfAnInch);
  u32 Scaled(int pixels) const {
    return static_cast<u32>(MulDiv(pixels, frame_.Scale(), USER_DEFAULT_SCREEN_DPI));
  }
  void DockPanel() {
    if (lists_.Container()) lists_.Container()->Dock(&panel_, static_cast<u32>(panel_.Height()));
  }

  RenameWindowOwner& owner_;
  MessageLoop& loop_;
  RenameContext& context_;
  FormCalls calls_;
  MainFrame frame_{calls_};
  RulePanel panel_{calls_};
  FrameForm form_{frame_, context_};
  PanelForm panelForm_{panel_, form_, context_};
  HostListControls lists_{context_.host};
  std::optional<ControlWrapper> listKeys_;
  bool isOpen_ = false;
};

bool FrameWithPanel::Open() {
  const Ui::CommonControlsScope controls;
  frame_.SetEvents({[this] { EndBoxes(); }, [this] { OnDestroy(); }, [this] { OnDestroyed(); },
                    [this](int pixelsOfAnInch) { SetScale(pixelsOfAnInch); }});
  if (!frame_.Create() || !lists_.OpenContainer(frame_.Window())) return false;
  frame_.SetClient(lists_.ContainerWindow());
  if (!panel_.Create(lists_.ContainerWindow())) return false;
  DockPanel();
  const auto showMenu = [this](const ListContextMenu& menu) {
    calls_.Run([&] { form_.ShowContextMenu(menu.window, menu.x, menu.y); });
  };
  if (!lists_.OpenList(Scaled(FrameLayout::kListWidth), Scaled(FrameLayout::kRowHeight), showMenu))
    return false;
  listKeys_.emplace(*lists_.List());
  panel_.SetNeighbour(lists_.ListWindow());
  form_.Open(lists_.List());
  panelForm_.Open();
  panel_.SetHints([this](TextId text) { return context_.host.GetLanguageString(text); });
  loop_.AddFilter(*listKeys_);
  loop_.AddFilter(panel_);
  loop_.AddFilter(frame_);
  loop_.AddIdleHandler(frame_);
  frame_.SetForm(&form_);
  panel_.SetForm(&panelForm_);
  frame_.SetFirstFocus(GetDlgItem(panel_.Window(), kNameTemplate));
  isOpen_ = true;
  return true;
}

void FrameWithPanel::Show() {
  PlaceFrame(context_.host, frame_.Window());
  ShowWindow(frame_.Window(), SW_SHOW);
  if (lists_.List()) context_.imageSet = lists_.List()->GetImageSet();
}

void FrameWithPanel::OnDestroy() {
  panel_.SetForm(nullptr);
  if (isOpen_) {
    loop_.RemoveIdleHandler(frame_);
    loop_.RemoveFilter(frame_);
    loop_.RemoveFilter(panel_);
    loop_.RemoveFilter(*listKeys_);
    calls_.Run([this] { panelForm_.Close(); });
    calls_.Run([this] { form_.Close(); });
  }
  lists_.CloseWith([this](auto call) { calls_.Run(call); });
  panel_.DestroyHandle();
  if (isOpen_) calls_.Run([this] { StorePlacement(context_.host, frame_.Window()); });
}

void FrameWithPanel::SetScale(int pixelsOfAnInch) {
  panel_.SetScale(pixelsOfAnInch);
  if (lists_.List()) lists_.List()->SetRowHeight(Scaled(FrameLayout::kRowHeight));
  DockPanel();
}

}  // namespace

std::unique_ptr<RenameWindow> OpenRenameWindow(RenameWindowOwner& owner, MessageLoop& loop) {
  auto window = std::make_unique<FrameWithPanel>(owner, loop);
  if (!window->Open()) return nullptr;
  return window;
}

}  // namespace Velmora::SDK
