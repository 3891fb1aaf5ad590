// The window of MultiRename's frame: title, icon, status bar, keys, menus, size. Its rules are in
// frame_form.h. Windows build only.
#pragma once

#include <functional>

#include "multirename/form/frame_form.h"
#include "multirename/window/form_calls.h"
#include "multirename/window/message_loop.h"

namespace Velmora::SDK {

class MainFrame final : public FrameView, public MessageFilter, public IdleHandler {
 public:
  explicit MainFrame(FormCalls& calls) : calls_(calls) {}
  MainFrame(const MainFrame&) = delete;
  MainFrame& operator=(const MainFrame&) = delete;

  // The functions that the frame calls; each may be empty.
  struct Events {
    std::function<void()> endBoxes;   // WM_CLOSE arrived while a form runs a dialog, box or menu
    std::function<void()> destroy;    // WM_DESTROY; the controls still exist
    std::function<void()> destroyed;  // the window no longer exists
    std::function<void(int pixelsOfAnInch)> setScale;
  };

  // Creates the frame in its initial size, hidden, with its icon and status bar. Returns false if that fails.
  bool Create();
  void SetEvents(Events events) { events_ = std::move(events); }
  // Sets the form that handles input; null for none.
  void SetForm(FrameForm* form) { form_ = form; }
  // Sets the window that fills the area above the status bar and receives the commands that the form does not
  // handle.
  void SetClient(HWND client);
  // Sets the control that has the focus first.
  void SetFirstFocus(HWND control) { focus_ = control; }

  // Returns the scale in pixels per inch.
  int Scale() const { return scale_; }

  // FrameView.
  HWND Window() override { return window_; }
  void SetTitle(const WString& title) override;
  void SetPane(int pane, const WString& text) override;
  int ShowMenu(HWND owner, int x, int y, const MenuLines& lines) override;
  int ShowBox(const WString& title, const WString& text, UINT style) override;
  void Post(RenameMessage message) override { PostToFrame(message); }
  void PostClose() override { PostToFrame(WM_CLOSE); }

  // Handles the keys of the frame: Alt with an arrow, Home or End, and Escape.
  bool FilterMessage(MSG& message) override;
  bool OnIdle(int) override { return false; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  // Returns false if the system must handle the message.
  bool Handle(UINT message, WPARAM wParam, LPARAM lParam);
  void PostToFrame(UINT message) const {
    if (window_) PostMessageW(window_, message, 0, 0);
  }
  void SetIcons();
  void OnSize();
  void OnCommand(WPARAM wParam, LPARAM lParam);
  void OnActivate(bool isActive);
  void OnScale(int pixelsOfAnInch, const RECT& area);
  void OnClose();
  void FitPanes();

  FormCalls& calls_;
  Events events_;
  FrameForm* form_ = nullptr;
  HWND window_ = nullptr;
  HWND statusBar_ = nullptr;
  HWND client_ = nullptr;
  HWND focus_ = nullptr;  // gets the focus when the frame becomes active
  HACCEL keys_ = nullptr;
  int scale_ = USER_DEFAULT_SCREEN_DPI;
};

}  // namespace Velmora::SDK
