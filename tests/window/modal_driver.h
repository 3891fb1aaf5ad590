// Drives real modal dialogs: opens one, acts as its user from inside its message loop, and never leaves a
// test hanging. Nothing waits for a time; a step runs when the loop takes its message.
#pragma once

#include <functional>
#include <vector>

#include "platform/text.h"

// The result of RunModal for a dialog that the steps left open and the driver closed.
constexpr INT_PTR kLeftOpen = 99;

// The user's actions in one dialog.
using Steps = std::function<void(HWND dialog)>;

// Calls `show`, which opens a modal dialog or a message box on this thread, runs the steps when the dialog is
// visible, and returns the result of `show`. If several dialogs open one after the other, each has its own
// steps. The test fails if a dialog does not open, or if more open than expected.
INT_PTR RunModal(const std::function<INT_PTR()>& show, const std::vector<Steps>& steps);
inline INT_PTR RunModal(const std::function<INT_PTR()>& show, const Steps& steps) {
  return RunModal(show, std::vector<Steps>{steps});
}

// Processes all waiting messages, as the dialog's loop does.
void Pump(HWND dialog);

// Send key strokes to the control with the focus, through the dialog's keyboard handling.
void PressKey(HWND dialog, WORD virtualKey);
void PressAltKey(HWND dialog, WCHAR character);
void TypeText(HWND dialog, const WString& text);

// Clicks a button with the mouse.
void ClickButton(HWND dialog, int control);

// Opens the list of a combo box and clicks on a visible row, counted from 0.
void ChooseRow(HWND dialog, int control, int row);

// Returns the id of the control with the focus; for the edit field of a combo box, that of the combo box.
int FocusedControl(HWND dialog);

// A visible window of the given size in the middle of the screen, to own dialogs.
class OwnerWindow {
 public:
  OwnerWindow(int width, int height);
  OwnerWindow(const OwnerWindow&) = delete;
  OwnerWindow& operator=(const OwnerWindow&) = delete;
  ~OwnerWindow();
  HWND Get() const { return window_; }

 private:
  HWND window_;
};

// Records a message that is sent to the windows of this thread. Only one object may exist at a time.
class SentMessages {
 public:
  explicit SentMessages(UINT message);
  SentMessages(const SentMessages&) = delete;
  SentMessages& operator=(const SentMessages&) = delete;
  ~SentMessages();
  // Returns the ids of the controls that received the message, in order.
  const std::vector<int>& Controls() const { return controls_; }

 private:
  static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam);
  static inline SentMessages* current_ = nullptr;
  UINT message_;
  std::vector<int> controls_;
  HHOOK hook_;
};
