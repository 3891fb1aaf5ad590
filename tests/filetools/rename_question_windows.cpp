// The owner of the rename question, which only a real box has.
#include <gmock/gmock.h>

#include "filetools/quick_rename.h"
#include "support/box_answers.h"
#include "support/fake_host.h"

namespace {

HWND ownerOfBox = nullptr;

LRESULT CALLBACK NoteOwner(int code, WPARAM wParam, LPARAM lParam) {
  const HWND window = reinterpret_cast<HWND>(wParam);
  WCHAR className[16] = {};
  if (code == HCBT_ACTIVATE && GetClassNameW(window, className, 16) && WString(className) == L"#32770") {
    ownerOfBox = GetWindow(window, GW_OWNER);
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

TEST(RenameQuestion, IsOwnedByTheHostsMainWindow) {
  FakeHost host;
  host.mainWindow = CreateWindowExW(0, L"STATIC", L"main", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr,
                                    nullptr, nullptr, nullptr);
  ASSERT_NE(host.mainWindow, nullptr);
  host.SelectFiles({L"a.txt"});
  ownerOfBox = nullptr;
  {
    BoxAnswers boxes{IDOK};
    HHOOK hook = SetWindowsHookExW(WH_CBT, &NoteOwner, nullptr, GetCurrentThreadId());
    QuickRenameCommand(host, 30000);
    UnhookWindowsHookEx(hook);
    EXPECT_EQ(boxes.Boxes().size(), 1u);
  }
  EXPECT_EQ(ownerOfBox, host.mainWindow);
  EXPECT_EQ(host.fileOperation.Runs(), 1);
  DestroyWindow(host.mainWindow);
}
