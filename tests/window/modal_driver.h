// Drives real modal dialogs: opens one, acts as its user from within its own message loop, and never leaves a
// test hanging. Nothing here waits for a time to pass; a step runs when the loop takes its message.
#pragma once

#include <functional>
#include <vector>

#include "platform/text.h"

// What RunModal answers for a dialog that the steps left open; the driver has closed it then.
constexpr INT_PTR kLeftOpen = 99;

// What a user does in one dialog.
using Steps = std::function<void(HWND dialog)>;

// Calls `show`, which opens a modal dialog or a message box on this thread, runs the steps once the dialog is
// up, and answers what `show` answered. Where several dialogs open one after the other, each has its steps. A
// dialog that never opens, or one more than expected, is a failure of the test.
INT_PTR RunModal(const std::function<INT_PTR()>& show, const std::vector<Steps>& steps);
inline INT_PTR RunModal(const std::function<INT_PTR()>& show, const Steps& steps) {
  return RunModal(show, std::vector<Steps>{steps});
}

// Takes all messages that wait, as the dialog's loop would.
void Pump(HWND dialog);

// Key strokes to whatever has the focus, through the dialog's keyboard handling.
void PressKey(HWND dialog, WORD virtualKey);
void PressAltKey(HWND dialog, WCHAR character);
void TypeText(HWND dialog, const WString& text);

// A mouse click on a button, by its place.
void ClickButton(HWND dialog, int control);

// Opens the list of a combo box and clicks on a row that shows; row 0 is the first.
void ChooseRow(HWND dialog, int control, int row);

// The number of the control that has the focus; for the edit field of a combo box, that of the combo box.
int FocusedControl(HWND dialog);

// A visible window of this size in the middle of the screen, to own dialogs.
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

// Watches what is sent to the windows of this thread while it lives; one at a time.
class SentMessages {
 public:
  explicit SentMessages(UINT message);
  SentMessages(const SentMessages&) = delete;
  SentMessages& operator=(const SentMessages&) = delete;
  ~SentMessages();
  // The numbers of the controls that got the message, in order.
  const std::vector<int>& Controls() const { return controls_; }

 private:
  static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam);
  static inline SentMessages* current_ = nullptr;
  UINT message_;
  std::vector<int> controls_;
  HHOOK hook_;
};
