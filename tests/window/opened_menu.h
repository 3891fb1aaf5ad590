// The popup menus that a dialog opens: what they hold, where they stand, and the keys that choose from them.
#pragma once

#include <vector>

#include "platform/text.h"

// Watches the menus that open on this thread while it lives; one at a time.
class OpenedMenu {
 public:
  OpenedMenu();
  OpenedMenu(const OpenedMenu&) = delete;
  OpenedMenu& operator=(const OpenedMenu&) = delete;
  ~OpenedMenu();

  int opened = 0;
  // Of the one that opened last; the place on the screen.
  std::vector<WString> texts;
  RECT area = {};

 private:
  void Read(HMENU menu);
  static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam);
  static inline OpenedMenu* current_ = nullptr;
  HHOOK hook_;
};

// Clicks a button that opens a menu, and presses these keys while it is open; the last one must close it.
void PressKeysInMenuOf(HWND dialog, int button, const std::vector<WORD>& keys);
