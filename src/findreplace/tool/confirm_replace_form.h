// The form of the dialog that asks whether to replace a match.
#pragma once

#include "findreplace/engine/find_and_replace_callback.h"
#include "platform/text.h"

namespace QXFindAndReplace {

struct ConfirmReplaceForm {
  // The user's answer. Remains Skip if the dialog cannot be shown, so that nothing is replaced without
  // confirmation.
  ConfirmResult result = ConfirmResult::Skip;

  Highlight highlight = {};  // the range of the match in the context
  TextRange range = {};
  WQDR::TextFormat format = WQDR::TextFormat::Ansi;
  bool rawShown = true;  // shows each byte of a UTF-8 file as a character of the thread's code page
  WString path;
  WString context;
  WString replacement;
};

// Return what the two text fields show: the text as it was received or, if rawShown is false, its bytes in
// the thread's code page (CP_THREAD_ACP) decoded as UTF-8.
WString ShownContext(const ConfirmReplaceForm& form);
WString ShownReplacement(const ConfirmReplaceForm& form);

// Returns true if the user can switch between the two views, which is so for UTF-8 files.
inline bool CanSwitchView(const ConfirmReplaceForm& form) { return form.format == WQDR::TextFormat::Utf8; }

// Inserts the four numbers of the range into the host's format text, in the order start line, start column,
// end line, end column, counted from 0 (C-247).
WString RangeText(WStringView format, const TextRange& range);

}  // namespace QXFindAndReplace
