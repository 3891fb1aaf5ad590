// A user of MultiRename's window, on another thread than the window's: sends and posts messages and reads
// what the window shows. The window is searched for among those of this process.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/handles.h"
#include "platform/text.h"

class WindowUser {
 public:
  // Waits until the window is shown with its rows.
  WindowUser();
  WindowUser(const WindowUser&) = delete;
  WindowUser& operator=(const WindowUser&) = delete;
  ~WindowUser();

  HWND Frame() const { return frame_; }
  HWND Panel() const { return panel_; }
  HWND List() const { return list_; }
  // Returns whether the frame was destroyed or its thread has ended.
  bool IsClosed() const;

  // Waits until the condition holds. After a minute throws std::runtime_error with the text `what`.
  void WaitUntil(const std::string& what, const std::function<bool()>& condition) const;

  // Runs `call` on the window's thread, in whichever message loop is running there, after the messages posted
  // before. `call` must not open anything that waits for the user. Returns false without running it if the
  // window is gone.
  bool Do(const std::function<void()>& call) const;
  // Waits until all messages posted before are processed, or have opened a box, a dialog or a menu.
  void Flush() const {
    Do([] {});
  }

  // The user's actions. Each returns after the window has processed it.
  void Press(HWND window, int control) const;
  void Press(int control) const { Press(panel_, control); }
  void Type(HWND window, int control, const WString& text) const;
  void Type(int control, const WString& text) const { Type(panel_, control, text); }
  // Opens the list of a combo box and chooses with the keys.
  void Choose(int control, int line) const;
  // Presses a key in the control with the focus, while the keys in `held` are down.
  void PressKey(WORD key, const std::vector<int>& held = {}) const;
  void SelectRows(const std::vector<int>& rows) const;
  void Close() const;

  // Returns the message box or dialog that is open over the frame, or null.
  HWND Popup() const;
  HWND WaitForPopup() const;
  void WaitForNoPopup() const;
  bool IsMenuOpen() const;

  // What the user sees.
  std::vector<WString> OldNames() const { return Cells(0); }
  std::vector<WString> NewNames() const { return Cells(1); }
  std::vector<int> SelectedRows() const;
  WString Pane(int pane) const;
  WString Title() const;
  bool IsEnabled(int control) const;

 private:
  bool Find();
  std::vector<WString> Cells(int column) const;
  HWND Focus() const;

  HWND frame_ = nullptr;
  HWND panel_ = nullptr;
  HWND list_ = nullptr;
  HWND statusBar_ = nullptr;
  DWORD number_ = 0;  // the id of the window's thread
  OwnedHandle<KernelHandleTraits> thread_;
  HHOOK hook_ = nullptr;
};
