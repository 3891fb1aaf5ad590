// The host's list in its container in a frame, set up as by MultiRename's window, over rows that are names.
#pragma once

#include <gtest/gtest.h>

#include "host/controls/controls.h"
#include "support/row_texts.h"
#include "support/scratch_folder.h"
#include "ui/common_controls.h"
#include "window/modal_driver.h"

// Rows whose text colour depends on the first letter of the name: "r..." is red, "m..." is marked.
class ColoredRows : public RowTexts {
 public:
  static constexpr COLORREF kRed = 0x1621BB;

  s32 GetTextColor(void* item, u32 column) override {
    return FirstOf(item) == W('r') && column == 3 ? static_cast<s32>(kRed) : -1;
  }
  u32 GetCellStyle(void* item, u32 column) override {
    return FirstOf(item) == W('m') && column == 3 ? 0x1300000 : 0x1000000;
  }

 private:
  static WCHAR FirstOf(void* item) {
    const WString& name = *static_cast<const WString*>(item);
    return name.empty() ? WCHAR() : name.front();
  }
};

class HostedList : public testing::Test {
 protected:
  using u32 = Velmora::SDK::u32;
  using s32 = Velmora::SDK::s32;

  HostedList();
  ~HostedList() override;

  // Creates container and list with the two columns of MultiRename's window. Earlier ones must have been
  // released.
  void MakeControls();
  // Gives both back to the host, the list first.
  void ReleaseControls();

  void AddRows(const std::vector<WString>& names);
  // Returns the names of the rows in the order of the screen.
  std::vector<WString> Names();
  // Returns the positions that the list view shows as selected.
  std::vector<int> SelectedPlaces() const;
  int FocusedPlace() const;
  void Select(int place, bool isSelected = true) const;
  void Focus(int place) const;
  // Returns the rectangle of a row in the list's window.
  RECT RowArea(int place) const;
  std::pair<u32, u32> Counts();

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window_, message, wParam, lParam);
  }
  // Processes all waiting messages of this thread.
  static void TakeMessages();
  // Paints the whole list immediately.
  void Paint() const;

  Ui::CommonControlsScope commonControls_;
  ScratchFolder scratch_;
  QxHost::SettingsFiles files_{scratch_.Path(W("config")), [](const std::string&) {}};
  std::vector<std::pair<std::intptr_t, s32>> events_;
  QxHost::PictureRequest picture_;
  QxHost::Controls controls_{files_, "MultiRename",
                             [this](std::intptr_t source, s32 code) { events_.emplace_back(source, code); },
                             &picture_};
  OwnerWindow frame_{860, 420};
  ColoredRows rows_;
  HWND containerWindow_ = nullptr;
  HWND window_ = nullptr;  // of the list
  Velmora::SDK::IHostContainer* container_ = nullptr;
  Velmora::SDK::IHostListControl* list_ = nullptr;
};
