// The question whether a match is to be replaced: what its dialog shows.
#pragma once

#include "findreplace/engine/find_and_replace_callback.h"
#include "platform/text.h"

namespace QXFindAndReplace {

struct ConfirmReplaceForm {
  // The answer. It stands as it is where the dialog cannot be shown: what nobody was asked about is left.
  ConfirmResult result = ConfirmResult::Skip;

  Highlight highlight = {};  // the match in the context
  TextRange range = {};
  WQDR::TextFormat format = WQDR::TextFormat::Ansi;
  bool rawShown = true;  // the bytes of a UTF-8 file each as a character of the thread's code page
  WString path;
  WString context;
  WString replacement;
};

// What the two text fields show: the texts as they are, or, where they are not shown raw, their bytes in the
// thread's code page (CP_THREAD_ACP) read as UTF-8.
WString ShownContext(const ConfirmReplaceForm& form);
WString ShownReplacement(const ConfirmReplaceForm& form);

// Whether the user may switch between the two views: for a UTF-8 file.
inline bool CanSwitchView(const ConfirmReplaceForm& form) { return form.format == WQDR::TextFormat::Utf8; }

// The four values of the range put into the format text of the host, in the order start line, start column,
// end line, end column, counted from 0 (C-247).
WString RangeText(WStringView format, const TextRange& range);

}  // namespace QXFindAndReplace
