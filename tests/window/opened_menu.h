// The popup menus of a dialog: their lines, their position, and choosing with keys.
#pragma once

#include <vector>

#include "platform/text.h"

// Records the menus that open on this thread. Only one object may exist at a time.
class OpenedMenu {
 public:
  OpenedMenu();
  OpenedMenu(const OpenedMenu&) = delete;
  OpenedMenu& operator=(const OpenedMenu&) = delete;
  ~OpenedMenu();

  int opened = 0;
  // Of the menu that opened last. `area` is in screen coordinates.
  std::vector<WString> texts;
  RECT area = {};

 private:
  void Read(HMENU menu);
  static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam);
  static inline OpenedMenu* current_ = nullptr;
  HHOOK hook_;
};

// Clicks a button that opens a menu and presses these keys in it; the last one must close the menu.
void PressKeysInMenuOf(HWND dialog, int button, const std::vector<WORD>& keys);
