#include "multirename/form/dialog_texts.h"

#include "frame/services/language_text.h"

namespace Velmora::SDK {

void SetDialogTexts(ControlView& view, IHostApp& host, std::span<const ControlTextRow> own,
                    std::span<const ControlTextRow> common) {
  for (const auto& [control, text] : own) view.SetText(control, LanguageText(host, text));
  for (const auto& [control, text] : common) view.SetText(control, CommonLanguageText(host, text));
}

}  // namespace Velmora::SDK
