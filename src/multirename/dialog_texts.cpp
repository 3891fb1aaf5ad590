#include "multirename/dialog_texts.h"

#include "frame/services/language_text.h"

namespace Velmora::SDK {

void SetDialogTexts(ControlView& view, IHostApp& host, std::span<const ControlTextRow> own,
                    std::span<const ControlTextRow> common) {
  for (const auto& [control, text] : own) view.SetText(control, LanguageText(host, text));
  for (const auto& [control, text] : common) view.SetText(control, CommonLanguageText(host, text));
}

WString TrimmedText(WStringView text, WStringView characters) {
  const std::size_t begin = text.find_first_not_of(characters);
  if (begin == WStringView::npos) return {};
  return WString(text.substr(begin, text.find_last_not_of(characters) - begin + 1));
}

}  // namespace Velmora::SDK
