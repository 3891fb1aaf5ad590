// The dialog that edits the search pairs as text, with the numbered lists of "FindReplace.xml" on the
// function keys (MultiRenameFindReplaceDlg).
//
// The window positions the dialog: its client area ends FrameLayout::kPairsDialogGap pixels left of the right
// edge of the rule panel, and its top is that of the panel's "..." button.
#pragma once

#include <optional>

#include "multirename/form/dialog_form.h"
#include "multirename/saved/find_replace_manager.h"

namespace Velmora::SDK {

enum FindReplaceDialogControl : int {
  kPairsLabel = 1109,
  kPairsText = 1110,  // a multi-line edit field that accepts files (CDropEdit)
  kPairsHelp = 1111,  // four lines
  kPairsOk = kDialogOk,
  kPairsCancel = kDialogCancel,
};

// How long a note about a list is shown, in milliseconds.
constexpr u32 kPairsNoteTime = 1500;

// The longest path of a dropped file; longer ones are cut.
constexpr std::size_t kMaxDroppedPathChars = 260;

// Returns the number of a function key, 1 to 24, for its virtual key; 0 for any other key.
constexpr int FunctionKeyNumber(u32 virtualKey) {
  constexpr u32 kF1 = 0x70;
  return virtualKey >= kF1 && virtualKey < kF1 + 24 ? static_cast<int>(virtualKey - kF1 + 1) : 0;
}

class FindReplaceDialogForm final : public DialogForm {
 public:
  // `pairs` are those of the panel's list, with their quotes.
  FindReplaceDialogForm(IHostApp& host, SearchAndReplaceItems pairs)
      : host_(host), pairs_(std::move(pairs)) {}

  void Open(DialogView& view) override;
  void Press(int control) override;
  void PressFunctionKey(int control, int number, bool isShift) override;
  void DropFile(int control, const WString& path) override;

  // Returns the edited pairs after the dialog has ended with kDialogOk.
  const SearchAndReplaceItems& Pairs() const { return pairs_; }

 private:
  void LoadList(int number);
  void SaveList(int number);
  void ShowNote(TextId text, int number);

  IHostApp& host_;
  SearchAndReplaceItems pairs_;
  DialogView* view_ = nullptr;
  std::optional<FindReplaceManager> manager_;  // created by Open
};

}  // namespace Velmora::SDK
