// Random actions on MultiRename's window of the built module, in the real host: typing, pressing buttons,
// moving rows, renaming real files, undo, boxes, dialogs and menus, closing and reopening. Nothing may crash
// or hang, and no file may be lost.
//
// A long run: QX_MONKEY_SECONDS=3600 QX_MONKEY_SEED=7, with --gtest_filter='DrawnWindowMonkey*'.
#include <cstdio>

#include "frame/host/command_numbers.h"
#include "host/hosted_monkey.h"
#include "support/monkey_actions.h"
#include "support/monkey_session.h"
#include "window/list_rows.h"
#include "window/module_window.h"

// windows.h must be included first.
#include <commctrl.h>

using namespace Velmora::SDK;

namespace {

constexpr std::uint32_t kActionsOfShortRun = 250;
constexpr int kCloseOfPanel = 1041;
constexpr int kTagLinesAtMost = 16;

// Returns the controls of a dialog that can be used at present.
std::vector<HWND> ControlsOf(HWND dialog) {
  std::vector<HWND> controls;
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    WCHAR name[16] = {};
    GetClassNameW(child, name, 16);
    if (IsWindowVisible(child) && IsWindowEnabled(child) && WStringView(name) != L"Static")
      controls.push_back(child);
  }
  return controls;
}

class DrawnWindowMonkey : public ModuleWindow {
 protected:
  DrawnWindowMonkey() {
    answers_ = [this] { return lines_.Line(); };
  }

  void Act(WindowUser& user, const MonkeyAction& action) {
    switch (action.deed) {
      case MonkeyDeed::kType:
        return user.Type(action.control, action.text);
      case MonkeyDeed::kPress:
        return user.Press(action.control);
      case MonkeyDeed::kChoose:
        return Choose(user, action);
      case MonkeyDeed::kDoubleClick:
        return DoubleClick(GetDlgItem(user.Panel(), action.control));
      case MonkeyDeed::kSelectRows:
        return SelectRows(user, action);
      case MonkeyDeed::kMoveRows:
        return MoveRows(user, action);
      case MonkeyDeed::kRun:
      case MonkeyDeed::kUndo:
        user.Press(action.control);
        if (action.isAwaited) WaitForRun(user, action);
        return;
      case MonkeyDeed::kEscape:
        return user.PressKey(VK_ESCAPE);
      case MonkeyDeed::kContextMenu:
        PostMessageW(user.List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(user.List()),
                     MAKELPARAM(300, 300));
        return;
      case MonkeyDeed::kNewSelection:
        return Post(kCommandMultiRename);
      case MonkeyDeed::kClose:
        return user.Close();
      case MonkeyDeed::kShutDown:
        return Post(kCommandShutdown);
    }
  }

  void WaitForRun(WindowUser& user, const MonkeyAction& action) {
    user.WaitUntil(action.Shown(),
                   [&] { return user.IsClosed() || user.Popup() || user.IsEnabled(kCloseOfPanel); });
    // In a window that is closing, a run that was started without waiting may not have finished.
    if (!user.IsClosed() && user.IsEnabled(kCloseOfPanel)) session_.ExpectNoFileLost(action.Shown());
  }
  static void Choose(WindowUser& user, const MonkeyAction& action) {
    const LRESULT lines = SendDlgItemMessageW(user.Panel(), action.control, CB_GETCOUNT, 0, 0);
    if (lines > 0)
      user.Choose(action.control, static_cast<int>(action.number % static_cast<unsigned>(lines)));
  }
  void DoubleClick(HWND list) {
    const LPARAM place = MAKELPARAM(5, generator_.Below(60));
    PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, place);
    PostMessageW(list, WM_LBUTTONUP, 0, place);
  }
  static void SelectRows(WindowUser& user, const MonkeyAction& action) {
    const auto rows = static_cast<std::uint32_t>(SendMessageW(user.List(), LVM_GETITEMCOUNT, 0, 0));
    if (rows == 0) return;
    std::vector<int> selected;
    for (std::uint32_t at = action.number % rows; at < rows && selected.size() < action.count; ++at)
      selected.push_back(static_cast<int>(at));
    user.SelectRows(selected);
  }
  static void MoveRows(WindowUser& user, const MonkeyAction& action) {
    constexpr WORD kKeys[] = {VK_UP, VK_DOWN, VK_HOME, VK_END};
    user.PressKey(kKeys[action.control % std::size(kKeys)], {VK_MENU});
  }

  // Actions outside the forms: resizing, mouse clicks anywhere, keys of all kinds.
  void ActWildly(WindowUser& user) {
    switch (generator_.Below(5)) {
      case 0:
        SetWindowPos(user.Frame(), nullptr, 0, 0, Number(300, 1400), Number(200, 1000),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_ASYNCWINDOWPOS);
        return;
      case 1:
        ShowWindowAsync(user.Frame(), generator_.Chance(50) ? SW_MINIMIZE : SW_MAXIMIZE);
        ShowWindowAsync(user.Frame(), SW_RESTORE);
        return;
      case 2:
        return ClickAnywhere(user);
      default:
        return PressAnyKey(user);
    }
  }
  void ClickAnywhere(WindowUser& user) {
    RECT area = {};
    GetClientRect(user.Frame(), &area);
    POINT place = {Number(0, area.right), Number(0, area.bottom)};
    ClientToScreen(user.Frame(), &place);
    const HWND target = WindowFromPoint(place);
    if (GetWindowThreadProcessId(target, nullptr) != GetWindowThreadProcessId(user.Frame(), nullptr)) return;
    ScreenToClient(target, &place);
    const bool isRight = generator_.Chance(20);
    const LPARAM point = MAKELPARAM(place.x, place.y);
    PostMessageW(target, WM_MOUSEMOVE, 0, point);
    PostMessageW(target, isRight ? WM_RBUTTONDOWN : WM_LBUTTONDOWN, isRight ? MK_RBUTTON : MK_LBUTTON, point);
    PostMessageW(target, isRight ? WM_RBUTTONUP : WM_LBUTTONUP, 0, point);
    user.Flush();
  }
  void PressAnyKey(WindowUser& user) {
    constexpr WORD kKeys[] = {VK_TAB, VK_RETURN, VK_SPACE, VK_UP,   VK_DOWN,   VK_LEFT, VK_RIGHT, VK_HOME,
                              VK_END, VK_PRIOR,  VK_NEXT,  VK_BACK, VK_DELETE, VK_F1,   VK_F2,    VK_F4,
                              VK_F10, VK_APPS,   'A',      'C',     'V',       'X',     'Z',      'S'};
    const std::vector<int> kHeld[] = {{}, {}, {VK_SHIFT}, {VK_CONTROL}, {VK_MENU}};
    user.PressKey(kKeys[generator_.Below(std::size(kKeys))], kHeld[generator_.Below(std::size(kHeld))]);
  }
  int Number(int from, int to) {
    return from + static_cast<int>(generator_.Below(static_cast<std::uint32_t>(to - from)));
  }

  void ActInMenu(WindowUser& user) {
    for (std::uint32_t left = generator_.Below(kTagLinesAtMost); left > 0; --left) user.PressKey(VK_DOWN);
    user.PressKey(generator_.Chance(70) ? VK_RETURN : VK_ESCAPE);
    if (generator_.Chance(10)) user.PressKey(VK_ESCAPE);
  }

  void ActInPopup(WindowUser& user, HWND popup) {
    if (generator_.Chance(3)) return user.Close();
    if (generator_.Chance(2)) return Post(kCommandShutdown);
    if (generator_.Chance(10)) return PressAnyKey(user);
    if (generator_.Chance(10))
      return user.PressKey(static_cast<WORD>(VK_F1 + generator_.Below(24)),
                           generator_.Chance(50) ? std::vector<int>{VK_SHIFT} : std::vector<int>{});
    const std::vector<HWND> controls = ControlsOf(popup);
    if (controls.empty()) return user.PressKey(VK_ESCAPE);
    const HWND control = controls[generator_.Below(static_cast<std::uint32_t>(controls.size()))];
    WCHAR name[32] = {};
    GetClassNameW(control, name, 32);
    if (WStringView(name) == L"Button") return user.Press(popup, GetDlgCtrlID(control));
    if (WStringView(name) == L"Edit") return user.Type(popup, GetDlgCtrlID(control), generator_.Text());
    return ClickIn(user, control);
  }
  void ClickIn(WindowUser& user, HWND control) {
    RECT area = {};
    GetClientRect(control, &area);
    const LPARAM point = MAKELPARAM(Number(0, area.right + 1), Number(0, area.bottom + 1));
    PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, point);
    PostMessageW(control, WM_LBUTTONUP, 0, point);
    user.Flush();
  }

  void PlayWith(WindowUser& user) {
    while (!user.IsClosed() && !session_.IsTimeOver()) {
      if (user.IsMenuOpen()) {
        session_.BeginAction("in a menu");
        ActInMenu(user);
      } else if (const HWND popup = user.Popup()) {
        session_.BeginAction("in a dialog");
        ActInPopup(user, popup);
      } else if (generator_.Chance(15)) {
        session_.BeginAction("wildly");
        ActWildly(user);
      } else {
        const MonkeyAction action = generator_.Next();
        session_.BeginAction(action.Shown());
        Act(user, action);
        if (action.isAwaited) user.Flush();
      }
    }
  }

  // Runs on another thread until the session has ended.
  void Act() {
    try {
      while (!session_.HasEnded()) {
        if (!IsThere()) {
          Sleep(1);
          continue;
        }
        WindowUser user;
        PlayWith(user);
        if (session_.IsTimeOver()) session_.End();
        if (session_.IsOver() && !user.IsClosed()) user.Close();
        user.WaitUntil("the end of the window", [&] { return session_.HasEnded() || user.IsClosed(); });
      }
    } catch (const std::exception& error) {
      std::fprintf(stderr, "seed %u, after %u actions: %s\n", MonkeySeed(), session_.ActionCount(),
                   error.what());
      std::abort();
    }
  }
  static bool IsThere() {
    const HWND frame = FindWindowW(L"QXMultiRenameFrame", nullptr);
    return frame && IsWindowVisible(frame);
  }

  QxHost::HostedMonkey session_{hosted_, kActionsOfShortRun};
  ActionGenerator generator_{MonkeySeed()};
  ActionGenerator lines_{MonkeySeed() + 1};  // used on the window's thread
};

TEST_F(DrawnWindowMonkey, LosesNoFileAndDoesNotHang) {
  session_.Play([this] { Act(); });
}

}  // namespace
