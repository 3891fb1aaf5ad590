#include "findreplace/tool/confirm_replace_form.h"

#include <array>

#include "data/code_pages.h"
#include "frame/services/format_text.h"

namespace QXFindAndReplace {

namespace {

// The raw text was converted from the bytes of the file with the same code page, so the conversion back
// restores these bytes.
WString Shown(const ConfirmReplaceForm& form, const WString& text) {
  if (form.rawShown) return text;
  return WQDR::FromCodePage(CP_UTF8, WQDR::ToCodePage(CP_THREAD_ACP, text));
}

}  // namespace

WString ShownContext(const ConfirmReplaceForm& form) { return Shown(form, form.context); }
WString ShownReplacement(const ConfirmReplaceForm& form) { return Shown(form, form.replacement); }

WString RangeText(WStringView format, const TextRange& range) {
  const std::array<std::int64_t, 4> numbers = {range.start.line, range.start.column, range.end.line,
                                               range.end.column};
  return FormatCounts(format, numbers);
}

}  // namespace QXFindAndReplace
