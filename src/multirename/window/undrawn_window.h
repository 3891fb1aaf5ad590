// MultiRename's window in the native build: it has the forms, the messages, the container and the list of the
// drawn one, and nothing is drawn. A program does here what a user does at the screen. Native build only.
//
// Boxes are answered by the handler of platform/posix/user_interface.h, menus and dialogs by the UndrawnUser,
// all of them on the window's thread.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

#include "multirename/window/undrawn_controls.h"

namespace Velmora::SDK {

class IHostListControl;

// Plays the user of menus and dialogs.
class UndrawnUser {
 public:
  virtual ~UndrawnUser() = default;
  // Returns the number of a line, or 0 for none of them.
  virtual int ChooseLine(const MenuLines& lines) = 0;
  // Uses the dialog, a number of RenameResource, which has been opened. One that is left open is cancelled.
  virtual void UseDialog(int resource, DialogForm& form, UndrawnDialog& dialog) = 0;
};

// Installs the user (null: menus and dialogs are cancelled) and returns the one before. The caller keeps
// ownership.
UndrawnUser* InstallUndrawnUser(UndrawnUser* user);

// What a window consists of. On its thread.
struct UndrawnParts {
  RenameContext& context;
  FrameForm& frame;
  PanelForm& panel;
  UndrawnPanel& controls;
  IHostListControl& list;
  WString& title;
  std::map<int, WString>& panes;  // of the status bar

  // As a user does it; nothing on a control that is disabled.
  void Press(int control);  // a check box changes its mark
  void Type(int control, const WString& text);
  void Choose(int control, int line);
  void DoubleClick(int control);
};

// The way to a window from other threads; it may outlive the window.
class UndrawnWindow {
 public:
  using Action = std::function<void(UndrawnParts& parts)>;

  // The window that was opened last; null once that has closed.
  static std::shared_ptr<UndrawnWindow> Current();

  // Does something on the window's thread, between two of its messages, and waits until it is done. False if
  // the window closes before.
  bool Do(Action action);
  // The same without waiting.
  void Post(Action action);
  // Waits until the window is closed.
  void WaitForClose();

  // As the loop of an open box, menu or dialog does: dispatches the messages that wait for this thread. False
  // if the thread is to end, which also ends the box.
  static bool TakeMessages();

 private:
  friend class UndrawnRenameWindow;

  struct Job {
    Action action;
    bool isDone = false;
  };

  explicit UndrawnWindow(HWND frame) : frame_(frame), thread_(GetCurrentThreadId()) {}
  std::shared_ptr<Job> Add(Action action);
  std::shared_ptr<Job> Next();
  void SetDone(Job& job);
  void SetClosed();

  const HWND frame_;
  const DWORD thread_;
  UndrawnParts* parts_ = nullptr;  // of the window's thread
  std::mutex mutex_;               // guards what follows
  std::condition_variable changed_;
  std::deque<std::shared_ptr<Job>> jobs_;
  bool isClosed_ = false;
};

}  // namespace Velmora::SDK
