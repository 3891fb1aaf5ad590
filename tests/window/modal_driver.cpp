#include "window/modal_driver.h"

#include <gtest/gtest.h>

#include <set>

#include "ui/module_instance.h"

namespace {

constexpr UINT kRunSteps = WM_APP + 1;
constexpr UINT kFinish = WM_APP + 2;
constexpr WCHAR kHelperClass[] = L"QXUtilsModalDriver";

// Only one run at a time: the hook can reach its state only through a global variable.
struct Run {
  const std::vector<Steps>* steps = nullptr;
  std::size_t opened = 0;
  HWND helper = nullptr;
  std::set<HWND> dialogs;  // those that exist
};
Run* currentRun = nullptr;

// Ends the run, even after an exception.
class RunScope {
 public:
  RunScope(Run& run, HHOOK hook) : run_(run), hook_(hook) { currentRun = &run; }
  RunScope(const RunScope&) = delete;
  RunScope& operator=(const RunScope&) = delete;
  ~RunScope() {
    UnhookWindowsHookEx(hook_);
    currentRun = nullptr;
    DestroyWindow(run_.helper);
  }

 private:
  Run& run_;
  HHOOK hook_;
};

bool IsDialog(HWND window) {
  WCHAR name[16] = {};
  return GetClassNameW(window, name, 16) > 0 && WStringView(name) == L"#32770";
}

// A dialog becomes visible, and can be used, when its message queue is empty for the first time. This hook
// sees only messages sent to windows of this thread, so windows of other programs are ignored. The handle of
// a destroyed window may be reused.
LRESULT CALLBACK OnSentMessage(int code, WPARAM wParam, LPARAM lParam) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && currentRun) {
    if (sent.message == WM_NCDESTROY) currentRun->dialogs.erase(sent.hwnd);
    if (sent.message == WM_SHOWWINDOW && sent.wParam && IsDialog(sent.hwnd) &&
        currentRun->dialogs.insert(sent.hwnd).second) {
      PostMessageW(currentRun->helper, kRunSteps, currentRun->opened++, reinterpret_cast<LPARAM>(sent.hwnd));
    }
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK OnHelperMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto dialog = reinterpret_cast<HWND>(lParam);
  if (message == kRunSteps && currentRun) {
    if (wParam < currentRun->steps->size()) (*currentRun->steps)[wParam](dialog);
    // Posted after all messages of the steps: a dialog that they close is closed by then.
    PostMessageW(window, kFinish, 0, lParam);
    return 0;
  }
  if (message == kFinish) {
    if (IsWindow(dialog)) EndDialog(dialog, kLeftOpen);
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

void RegisterHelperClass() {
  WNDCLASSW helper = {};
  helper.lpfnWndProc = OnHelperMessage;
  helper.hInstance = Ui::ModuleInstance();
  helper.lpszClassName = kHelperClass;
  RegisterClassW(&helper);  // later registrations fail without effect
}

void SendKey(HWND dialog, UINT message, WPARAM key, LPARAM flags) {
  const HWND focus = GetFocus();
  PostMessageW(focus ? focus : dialog, message, key, flags);
  Pump(dialog);
}

}  // namespace

INT_PTR RunModal(const std::function<INT_PTR()>& show, const std::vector<Steps>& steps) {
  RegisterHelperClass();
  Run run;
  run.steps = &steps;
  run.helper = CreateWindowExW(0, kHelperClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                               Ui::ModuleInstance(), nullptr);
  const RunScope scope(run, SetWindowsHookExW(WH_CALLWNDPROC, OnSentMessage, nullptr, GetCurrentThreadId()));
  const INT_PTR result = show();
  EXPECT_EQ(run.opened, steps.size()) << "dialogs opened, and expected";
  return result;
}

void Pump(HWND dialog) {
  MSG message = {};
  while (IsWindow(dialog) && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (IsDialogMessageW(dialog, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void PressKey(HWND dialog, WORD virtualKey) {
  SendKey(dialog, WM_KEYDOWN, virtualKey, 1);
  if (IsWindow(dialog)) SendKey(dialog, WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000001));
}

void PressAltKey(HWND dialog, WCHAR character) {
  constexpr LPARAM kAltIsDown = 1 << 29;
  SendKey(dialog, WM_SYSCHAR, character, 1 | kAltIsDown);
}

void TypeText(HWND dialog, const WString& text) {
  for (const WCHAR character : text) SendKey(dialog, WM_CHAR, character, 1);
}

void ClickButton(HWND dialog, int control) {
  const HWND button = GetDlgItem(dialog, control);
  ASSERT_NE(button, nullptr);
  RECT area = {};
  GetClientRect(button, &area);
  const LPARAM middle = MAKELPARAM(area.right / 2, area.bottom / 2);
  PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  PostMessageW(button, WM_LBUTTONUP, 0, middle);
  Pump(dialog);
}

void ChooseRow(HWND dialog, int control, int row) {
  const HWND combo = GetDlgItem(dialog, control);
  SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(combo), TRUE);
  PressKey(dialog, VK_F4);
  COMBOBOXINFO info = {};
  info.cbSize = sizeof(info);
  ASSERT_TRUE(GetComboBoxInfo(combo, &info));
  ASSERT_TRUE(IsWindowVisible(info.hwndList));
  RECT place = {};
  ASSERT_NE(
      SendMessageW(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place)),
      LB_ERR);
  const LPARAM point = MAKELPARAM(place.left + 2, (place.top + place.bottom) / 2);
  PostMessageW(info.hwndList, WM_MOUSEMOVE, 0, point);
  PostMessageW(info.hwndList, WM_LBUTTONDOWN, MK_LBUTTON, point);
  PostMessageW(info.hwndList, WM_LBUTTONUP, 0, point);
  Pump(dialog);
  ASSERT_FALSE(IsWindowVisible(info.hwndList));
}

int FocusedControl(HWND dialog) {
  HWND focus = GetFocus();
  while (focus && GetParent(focus) != dialog) focus = GetParent(focus);
  return focus ? GetDlgCtrlID(focus) : 0;
}

OwnerWindow::OwnerWindow(int width, int height) {
  const int x = (GetSystemMetrics(SM_CXSCREEN) - width) / 2;
  const int y = (GetSystemMetrics(SM_CYSCREEN) - height) / 2;
  window_ = CreateWindowExW(0, L"STATIC", L"Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, x, y, width, height,
                            nullptr, nullptr, Ui::ModuleInstance(), nullptr);
  SetActiveWindow(window_);
}

OwnerWindow::~OwnerWindow() { DestroyWindow(window_); }

SentMessages::SentMessages(UINT message)
    : message_(message), hook_(SetWindowsHookExW(WH_CALLWNDPROC, OnHook, nullptr, GetCurrentThreadId())) {
  current_ = this;
}

SentMessages::~SentMessages() {
  UnhookWindowsHookEx(hook_);
  current_ = nullptr;
}

LRESULT CALLBACK SentMessages::OnHook(int code, WPARAM wParam, LPARAM lParam) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && current_ && sent.message == current_->message_) {
    current_->controls_.push_back(GetDlgCtrlID(sent.hwnd));
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}
