// The form of the Find and Replace dialog: its fields, its rules, and the conversion between the fields and
// the options.
#pragma once

#include <cstdint>

#include "findreplace/engine/find_and_replace_options.h"
#include "platform/text.h"

namespace QXFindAndReplace {

struct FindAndReplaceForm {
  // The maximum length of the find text, the replace text and the file name. Longer texts are cut off
  // (C-240).
  static constexpr std::size_t kMaxChars = 1023;

  // The input of the dialog.
  FindAndReplaceOptions options;  // before the dialog
  std::uint32_t fileCount = 0;
  WString startName;  // the target name that keeps all names: the name of a single file, or "*.*"
  WString suffix;     // added to the suggested name of a new file before the extension

  // The fields. Choices are bits of FindAndReplaceFlag.
  int saveMode = SaveAsNew;
  WString targetName;
  bool targetNameEnabled = true;
  WString find;
  WString replace;
  int findMode = ModeOne;
  bool regExp = false;  // always disabled (C-214)
  bool wildcard = false;
  bool ignoreCase = false;
  bool forceUtf8 = false;
  bool silent = false;
  bool replaceAll = false;  // hidden and always disabled
};

// Stores the options in the fields and applies the rule of the save mode.
void StartForm(FindAndReplaceForm& form);

// Applies the rule of the save mode if that differs from `before`. For a new file, enables the target name
// and suggests one, for several files a pattern; otherwise stores `startName` in it and disables it.
void UpdateForChanges(FindAndReplaceForm& form, const FindAndReplaceForm& before);

// Returns the options that the fields contain. The flag that allows overwriting targets is never set, even if
// it was set before (C-241).
FindAndReplaceOptions ReadOptions(const FindAndReplaceForm& form);

// Returns the target name for the run.
WString ReadTargetName(const FindAndReplaceForm& form);

}  // namespace QXFindAndReplace
