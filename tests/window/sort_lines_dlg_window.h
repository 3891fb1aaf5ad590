// The fixture for tests of the Sort Lines dialog's window: its controls and rows.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "linesorter/tool/sort_lines_dlg.h"
#include "support/fake_host.h"
#include "window/dialog_controls.h"
#include "window/modal_driver.h"

namespace SortLinesWindow {

// The ids of the dialog's controls.
enum Control : int {
  kHeading = 1001,
  kCount,
  kSaveAsLabel,
  kSaveAs,
  kNameLabel,
  kName,
  kTopLabel,
  kTop,
  kTopHint,
  kBottomLabel,
  kBottom,
  kBottomHint,
  kPositionLabel,
  kPosition,
  kSkipSpace,
  kByGroup,
  kByLine,
  kBySubstring,
  kByItem,
  kLengthLabel,
  kLength,
  kEndCharacterLabel,
  kEndCharacter,
  kEndAtSpace,
  kSeparatorLabel,
  kSeparator,
  kItemLabel,
  kItem,
  kMethodGroup,
  kMethod,
  kDateFormat,
  kDatePresets,
  kLanguageAware,
  kIgnoreCase,
  kNatural,
  kReverse,
  kDuplicates,
  kBlank,
  kRuler,
  kSample,
  kDateLabel,
  kSampleLabel,
};

// Rows of the two combo boxes.
inline constexpr int kNewFileRow = 0;
inline constexpr int kKeepBackupRow = 1;
inline constexpr int kDeleteBackupRow = 2;
inline constexpr int kNumberRow = 1;
inline constexpr int kDateRow = 2;

// Returns whether length, end character and the whitespace box are enabled.
inline std::vector<bool> SubstringState(HWND dialog) {
  return {IsEnabled(dialog, kLength), IsEnabled(dialog, kEndCharacter), IsEnabled(dialog, kEndAtSpace)};
}

// Returns whether separator and item are enabled.
inline std::vector<bool> ItemState(HWND dialog) {
  return {IsEnabled(dialog, kSeparator), IsEnabled(dialog, kItem)};
}

class SortLinesDlgWindow : public testing::Test {
 protected:
  SortLinesDlgWindow() { Start(0x100011); }

  // Starts with one file `a.txt` and these stored bits.
  void Start(std::uint32_t bits, const std::function<void(WQLineSorter::SortLinesOptions&)>& more = {}) {
    form_ = {};
    form_.fileCount = 1;
    form_.firstName = W("a.txt");
    form_.newFileSuffix = W("_s");
    form_.sample = W("one\r\ntwo");
    form_.options.options = bits;
    if (more) more(form_.options);
    WQLineSorter::StartForm(form_);
  }

  INT_PTR Show(const Steps& steps) {
    return RunModal([this] { return ShowSortLinesDlg(host_, form_); }, steps);
  }

  OwnerWindow owner_{800, 600};
  FakeHost host_;
  WQLineSorter::SortLinesForm form_;
};

}  // namespace SortLinesWindow
