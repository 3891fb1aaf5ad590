// MultiRename's window in the native build. It has the forms, the messages, the container and the list of the
// real window, but is not drawn; a program takes the place of the user. Native build only.
//
// The handler of platform/posix/user_interface.h chooses the buttons of boxes, and the UndrawnUser handles
// menus and dialogs, both on the window's thread.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

#include "multirename/window/undrawn_controls.h"

namespace Velmora::SDK {

class IHostListControl;

// The user of menus and dialogs.
class UndrawnUser {
 public:
  virtual ~UndrawnUser() = default;
  // Returns the number of the chosen line, or 0 for none.
  virtual int ChooseLine(const MenuLines& lines) = 0;
  // Uses the open dialog with this number of RenameResource. If it is still open afterwards, it is cancelled.
  virtual void UseDialog(int resource, DialogForm& form, UndrawnDialog& dialog) = 0;
};

// Installs the user, which the caller owns, and returns the previous one. Without a user, menus and dialogs
// are cancelled.
UndrawnUser* InstallUndrawnUser(UndrawnUser* user);

// The parts of a window. Used on its thread.
struct UndrawnParts {
  RenameContext& context;
  FrameForm& frame;
  PanelForm& panel;
  UndrawnPanel& controls;
  IHostListControl& list;
  WString& title;
  std::map<int, WString>& panes;  // of the status bar

  // Do what a user does; a disabled control is not affected.
  void Press(int control);  // toggles a check box
  void Type(int control, const WString& text);
  void Choose(int control, int line);
  void DoubleClick(int control);
};

// Access to a window from other threads; may outlive the window.
class UndrawnWindow {
 public:
  using Action = std::function<void(UndrawnParts& parts)>;

  // Returns the window that was opened last; null after it has closed.
  static std::shared_ptr<UndrawnWindow> Current();

  // Performs the action on the window's thread, between two of its messages, and waits until it is done.
  // Returns false if the window closes before.
  bool Do(Action action);
  // Performs the action likewise, without waiting.
  void Post(Action action);
  // Waits until the window is closed.
  void WaitForClose();

  // Dispatches the messages that wait for this thread, like the loop of an open box, menu or dialog. Returns
  // false on WM_QUIT, which must also end the box.
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
  UndrawnParts* parts_ = nullptr;  // used by the window's thread
  std::mutex mutex_;               // protects the members below
  std::condition_variable changed_;
  std::deque<std::shared_ptr<Job>> jobs_;
  bool isClosed_ = false;
};

}  // namespace Velmora::SDK
