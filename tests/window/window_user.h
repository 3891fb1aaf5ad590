// A user of MultiRename's window from another thread than the window's, as the user of a program is: sends
// and posts messages, and looks at what the window shows. The window is found among those of this process.
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
  // The frame is destroyed, or its thread has ended.
  bool IsGone() const;

  // Waits until it is so. Throws std::runtime_error, with what was waited for, after a minute.
  void WaitUntil(const std::string& what, const std::function<bool()>& condition) const;

  // Calls on the window's thread, after what was posted before, from out of whatever loop it runs; `call`
  // must open nothing that waits for the user. False, and not called, if the window is gone.
  bool Do(const std::function<void()>& call) const;
  // Waits until what was posted before is done, or has opened a box, a dialog or a menu.
  void Flush() const {
    Do([] {});
  }

  // What a user does. Each returns after the window has taken it.
  void Press(HWND window, int control) const;
  void Press(int control) const { Press(panel_, control); }
  void Type(HWND window, int control, const WString& text) const;
  void Type(int control, const WString& text) const { Type(panel_, control, text); }
  // Opens the list of a box, and chooses with the keys.
  void Choose(int control, int line) const;
  // A key to the control with the focus; `held` are keys that are down meanwhile.
  void PressKey(WORD key, const std::vector<int>& held = {}) const;
  void SelectRows(const std::vector<int>& rows) const;
  void Close() const;

  // The box or dialog that is open over the frame; or null.
  HWND Popup() const;
  HWND WaitForPopup() const;
  void WaitForNoPopup() const;
  bool IsMenuOpen() const;

  // What a user sees.
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
  DWORD number_ = 0;  // of the window's thread
  OwnedHandle<KernelHandleTraits> thread_;
  HHOOK hook_ = nullptr;
};
