#include "multirename/form/dialog_texts.h"

#include "frame/services/language_text.h"

namespace Velmora::SDK {

void SetDialogTexts(ControlView& view, IHostApp& host, std::span<const ControlTextRow> own,
                    std::span<const ControlTextRow> common) {
  for (const auto& [control, text] : own) view.SetText(control, LanguageText(host, text));
  for (const auto& [control, text] : common) view.SetText(control, CommonLanguageText(host, text));
}

WString WithoutAccessKey(WStringView text) {
  WString plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == W('&')) {
      const bool isDoubled = at + 1 < text.size() && text[at + 1] == W('&');
      if (!isDoubled) continue;
      plain += text[at++];
    }
    plain += text[at];
  }
  return plain;
}

}  // namespace Velmora::SDK
