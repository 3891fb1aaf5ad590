// Rows of a list as a module provides them: an item is its name; the second column shows the name reversed.
#pragma once

#include <algorithm>
#include <atomic>
#include <deque>

#include "frame/host/host_rows.h"

class RowTexts : public Velmora::SDK::IMLRowCallBack {
 public:
  using s32 = Velmora::SDK::s32;
  using s64 = Velmora::SDK::s64;
  using u32 = Velmora::SDK::u32;

  virtual ~RowTexts() = default;

  void* Add(WString name) { return &names_.emplace_back(std::move(name)); }

  u32 Reserved1() override { return 0; }
  u32 GetCellStyle(void*, u32) override { return 0x1000000; }
  u32 Reserved2() override { return 16; }
  u32 Reserved3() override { return 0; }
  u32 GetRowFlags(void*, u32* flags) override {
    *flags = 512;
    return 1;
  }
  s32 Reserved4() override { return -1; }
  s32 GetTextColor(void*, u32) override { return -1; }
  u32 GetBackColor(void*, u32) override { return 0xFFFFFFFF; }
  s64 GetRowImage(void*) override { return 0; }
  u32 Reserved5() override { return 16; }
  u32 GetCellText(void* item, u32 column, WCHAR* buffer, u32 size) override {
    ++texts;
    WString text = *static_cast<const WString*>(item);
    if (column == 3) std::ranges::reverse(text);
    CopyTerminated<WCHAR>(buffer, size, text);
    return 1;
  }
  u32 Reserved6() override { return 0; }

  std::atomic<int> texts = 0;  // how often a text was requested

 private:
  std::deque<WString> names_;
};
