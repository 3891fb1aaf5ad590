#include "window/window_user.h"

// windows.h must be included first.
#include <commctrl.h>

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>

#include "support/wait_limit.h"

namespace {

constexpr WCHAR kFrameClassName[] = L"QXMultiRenameFrame";
constexpr UINT kCallMessage = WM_APP + 0x3A7;  // to the window's thread; wParam is the number of a call
constexpr int kPairListNumber = 1118;
constexpr auto kPollInterval = std::chrono::milliseconds(10);

// The calls that wait for the window's thread, by number.
std::mutex callsMutex;  // guards the variables below
std::condition_variable callDone;
std::map<WPARAM, const std::function<void()>*> waitingCalls;
WPARAM lastCall = 0;

// A call stays in the map until it has run; its caller waits for that.
LRESULT CALLBACK OnMessageTaken(int code, WPARAM wParam, LPARAM lParam) {
  const MSG& message = *reinterpret_cast<const MSG*>(lParam);
  if (code == HC_ACTION && wParam == PM_REMOVE && message.message == kCallMessage && !message.hwnd) {
    const std::lock_guard lock(callsMutex);
    const auto found = waitingCalls.find(message.wParam);
    if (found != waitingCalls.end()) {
      (*found->second)();
      waitingCalls.erase(found);
      callDone.notify_all();
    }
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

bool IsOfClass(HWND window, WStringView name) {
  WCHAR found[64] = {};
  GetClassNameW(window, found, 64);
  return name == found;
}

template <typename Look>
BOOL CALLBACK LookAtWindow(HWND window, LPARAM look) {
  return (*reinterpret_cast<Look*>(look))(window) ? FALSE : TRUE;
}

// Returns the first window that `look` accepts, or null.
template <typename Enumerate, typename Look>
HWND FirstOf(Enumerate enumerate, Look look) {
  HWND found = nullptr;
  auto take = [&](HWND window) {
    if (!look(window)) return false;
    found = window;
    return true;
  };
  enumerate(LookAtWindow<decltype(take)>, reinterpret_cast<LPARAM>(&take));
  return found;
}

LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendMessageW(window, message, wParam, lParam);
}

constexpr LPARAM kKeyIsUp = static_cast<LPARAM>(0xC0000001);

}  // namespace

WindowUser::WindowUser() {
  WaitUntil("the window", [this] { return Find(); });
  number_ = GetWindowThreadProcessId(frame_, nullptr);
  thread_.Reset(OpenThread(SYNCHRONIZE, FALSE, number_));
  hook_ = SetWindowsHookExW(WH_GETMESSAGE, OnMessageTaken, nullptr, number_);
  if (!hook_) throw std::runtime_error("no hook");
  WaitUntil("the rows", [this] { return IsClosed() || !Pane(0).empty(); });
}

WindowUser::~WindowUser() {
  if (hook_) UnhookWindowsHookEx(hook_);
}

bool WindowUser::Find() {
  frame_ = FirstOf([](auto... look) { EnumWindows(look...); },
                   [](HWND window) {
                     DWORD process = 0;
                     GetWindowThreadProcessId(window, &process);
                     return process == GetCurrentProcessId() && IsOfClass(window, kFrameClassName) &&
                            IsWindowVisible(window);
                   });
  if (!frame_) return false;
  const auto children = [this](auto... look) { EnumChildWindows(frame_, look...); };
  panel_ = FirstOf(children, [](HWND window) { return GetDlgItem(window, kPairListNumber) != nullptr; });
  list_ = FirstOf(children, [](HWND window) {
    return IsOfClass(window, WC_LISTVIEWW) && GetDlgCtrlID(window) != kPairListNumber;
  });
  statusBar_ = FindWindowExW(frame_, nullptr, STATUSCLASSNAMEW, nullptr);
  return panel_ && list_ && statusBar_;
}

bool WindowUser::IsClosed() const {
  return !IsWindow(frame_) || WaitForSingleObject(thread_.Get(), 0) == WAIT_OBJECT_0;
}

void WindowUser::WaitUntil(const std::string& what, const std::function<bool()>& condition) const {
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kWaitLimit);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) throw std::runtime_error("waited in vain for " + what);
    std::this_thread::sleep_for(kPollInterval);
  }
}

bool WindowUser::Do(const std::function<void()>& call) const {
  std::unique_lock lock(callsMutex);
  const WPARAM number = ++lastCall;
  waitingCalls[number] = &call;
  bool isTaken = PostThreadMessageW(number_, kCallMessage, number, 0) != FALSE;
  while (isTaken && waitingCalls.contains(number)) {
    callDone.wait_for(lock, kPollInterval);
    if (waitingCalls.contains(number) && WaitForSingleObject(thread_.Get(), 0) == WAIT_OBJECT_0)
      isTaken = false;
  }
  waitingCalls.erase(number);
  return isTaken;
}

void WindowUser::Press(HWND window, int control) const {
  const HWND button = GetDlgItem(window, control);
  RECT area = {};
  GetClientRect(button, &area);
  const LPARAM middle = MAKELPARAM(area.right / 2, area.bottom / 2);
  if (IsWindowEnabled(button)) {
    PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, middle);
    PostMessageW(button, WM_LBUTTONUP, 0, middle);
  }
  Flush();
}

void WindowUser::Type(HWND window, int control, const WString& text) const {
  const HWND box = GetDlgItem(window, control);
  if (!IsWindowEnabled(box)) return;
  Ask(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(box), TRUE);
  const HWND child = FindWindowExW(box, nullptr, L"Edit", nullptr);
  const HWND field = child ? child : box;
  Ask(field, EM_SETSEL, 0, -1);
  Ask(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(W("")));
  for (const WCHAR character : text) PostMessageW(field, WM_CHAR, character, 1);
  Flush();
}

void WindowUser::Choose(int control, int line) const {
  const HWND box = GetDlgItem(panel_, control);
  if (!IsWindowEnabled(box)) return;
  Ask(panel_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(box), TRUE);
  Ask(box, CB_SHOWDROPDOWN, TRUE);
  const int lines = static_cast<int>(Ask(box, CB_GETCOUNT));
  const int from = static_cast<int>(Ask(box, CB_GETCURSEL));
  const HWND field = FindWindowExW(box, nullptr, L"Edit", nullptr);
  const HWND target = field ? field : box;
  if (line < lines) {
    for (int at = from; at != line; at += at < line ? 1 : -1)
      PostMessageW(target, WM_KEYDOWN, at < line ? VK_DOWN : VK_UP, 1);
  }
  PostMessageW(target, WM_KEYDOWN, VK_RETURN, 1);
  Flush();
}

void WindowUser::PressKey(WORD key, const std::vector<int>& held) const {
  const auto hold = [&held](BYTE state) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    for (const int other : held) keys[other] = state;
    SetKeyboardState(keys);
  };
  if (!Do([&] { hold(0x80); })) return;
  const bool hasAlt = !held.empty() && held.front() == VK_MENU;
  const LPARAM alt = hasAlt ? 1 << 29 : 0;
  const bool isSystemKey = hasAlt || key == VK_F10;
  const HWND focus = Focus();
  PostMessageW(focus, isSystemKey ? WM_SYSKEYDOWN : WM_KEYDOWN, key, 1 | alt);
  PostMessageW(focus, isSystemKey ? WM_SYSKEYUP : WM_KEYUP, key, kKeyIsUp | alt);
  Do([&] { hold(0); });
}

void WindowUser::SelectRows(const std::vector<int>& rows) const {
  LVITEMW item = {};
  item.stateMask = LVIS_SELECTED;
  Ask(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
  item.state = LVIS_SELECTED;
  for (const int row : rows)
    Ask(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void WindowUser::Close() const { PostMessageW(frame_, WM_CLOSE, 0, 0); }

HWND WindowUser::Popup() const {
  return FirstOf([this](auto... look) { EnumThreadWindows(number_, look...); },
                 [](HWND window) { return IsOfClass(window, L"#32770") && IsWindowVisible(window); });
}

HWND WindowUser::WaitForPopup() const {
  HWND popup = nullptr;
  WaitUntil("a box or a dialog", [&] { return (popup = Popup()) != nullptr; });
  Flush();
  return popup;
}

void WindowUser::WaitForNoPopup() const {
  WaitUntil("the end of a box", [this] { return !Popup(); });
  Flush();
}

bool WindowUser::IsMenuOpen() const {
  GUITHREADINFO info = {};
  info.cbSize = sizeof(info);
  return GetGUIThreadInfo(number_, &info) && (info.flags & GUI_INMENUMODE) != 0;
}

HWND WindowUser::Focus() const {
  GUITHREADINFO info = {};
  info.cbSize = sizeof(info);
  if (!GetGUIThreadInfo(number_, &info)) return frame_;
  if (info.hwndMenuOwner) return info.hwndMenuOwner;
  if (info.hwndFocus) return info.hwndFocus;
  return info.hwndActive ? info.hwndActive : frame_;
}

std::vector<WString> WindowUser::Cells(int column) const {
  std::vector<WString> cells(static_cast<std::size_t>(Ask(list_, LVM_GETITEMCOUNT)));
  for (std::size_t row = 0; row < cells.size(); ++row) {
    WCHAR text[1024] = {};
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 1024;
    Ask(list_, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    cells[row] = text;
  }
  return cells;
}

std::vector<int> WindowUser::SelectedRows() const {
  std::vector<int> rows;
  const auto count = static_cast<int>(Ask(list_, LVM_GETITEMCOUNT));
  for (int row = 0; row < count; ++row) {
    if (Ask(list_, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0) rows.push_back(row);
  }
  return rows;
}

WString WindowUser::Pane(int pane) const {
  WCHAR text[1024] = {};
  Ask(statusBar_, SB_GETTEXTW, static_cast<WPARAM>(pane), reinterpret_cast<LPARAM>(text));
  return text;
}

WString WindowUser::Title() const {
  WCHAR text[1024] = {};
  Ask(frame_, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text));
  return text;
}

bool WindowUser::IsEnabled(int control) const {
  return IsWindowEnabled(GetDlgItem(panel_, control)) != FALSE;
}
