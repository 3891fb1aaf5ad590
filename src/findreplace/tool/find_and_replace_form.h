// The fields of the Find and Replace dialog and the way of the options into them and out.
#pragma once

#include <cstdint>

#include "findreplace/engine/find_and_replace_options.h"
#include "platform/text.h"

namespace QXFindAndReplace {

struct FindAndReplaceForm {
  // Characters that the find text, the replace text and the file name keep; what is longer is cut off
  // (C-240).
  static constexpr std::size_t kMostChars = 1023;

  // What the dialog is about.
  FindAndReplaceOptions options;  // as they are before the dialog
  std::uint32_t fileCount = 0;
  WString startName;  // the target name that the dialog starts with: the one file's name, or "*.*"
  WString suffix;     // what the suggested name of a new file has behind the name

  // The fields. Choices are bits of FindAndReplaceFlag.
  int saveMode = SaveAsNew;
  WString targetName;
  bool targetNameEnabled = true;
  WString find;
  WString replace;
  int findMode = ModeOne;
  bool regExp = false;  // never enabled
  bool wildcard = false;
  bool ignoreCase = false;
  bool forceUtf8 = false;
  bool silent = false;
  bool replaceAll = false;  // hidden, and never enabled
};

// Puts the options into the fields and applies the rule of the save mode.
void StartForm(FindAndReplaceForm& form);

// The rule of the save mode, if that differs from `before`: a new file's name may be entered and is
// suggested, for several files as a pattern; otherwise the start name stands and cannot be changed.
void FollowChanges(FindAndReplaceForm& form, const FindAndReplaceForm& before);

// The options of the fields. A target may never be overwritten without a question, whatever the flags were
// before (C-241).
FindAndReplaceOptions ReadOptions(const FindAndReplaceForm& form);

// The name of the target as the run is given it.
WString ReadTargetName(const FindAndReplaceForm& form);

}  // namespace QXFindAndReplace
