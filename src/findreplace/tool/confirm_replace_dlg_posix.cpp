// The dialog that asks about a match in the native build: passes its form to Platform::AskForm. After OK the
// answer is that of the field `result`, which is Replace at first; otherwise it is Cancel.
#include "findreplace/tool/confirm_replace_dlg.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "platform/posix/form_fields.h"

namespace QXFindAndReplace {

namespace {

using namespace Velmora::SDK;

constexpr int NumberOf(ConfirmResult result) { return static_cast<int>(result); }

constexpr Platform::ChoiceWord kResultWords[] = {
    {NumberOf(ConfirmResult::Replace), W("replace")},
    {NumberOf(ConfirmResult::ReplaceAll), W("all")},
    {NumberOf(ConfirmResult::Skip), W("next")},
    {NumberOf(ConfirmResult::Cancel), W("cancel")},
};

// The field that switches between the views. Disabled if the user cannot switch.
Platform::FormField ViewField(ConfirmReplaceForm& form) {
  Platform::FormField field = Platform::FlagField("rawShown", form.rawShown);
  if (CanSwitchView(form)) return field;
  field.set = [](const WString&) { return false; };
  field.isEnabled = [] { return false; };
  return field;
}

}  // namespace

void ShowConfirmReplaceDlg(IHostApp& host, ConfirmReplaceForm& form) {
  int result = NumberOf(ConfirmResult::Replace);
  Platform::FormRequest request;
  request.dialog = "ConfirmReplaceDlg";
  request.title = LanguageText(host, kTextConfirmCaption);
  request.text = LanguageText(host, kTextConfirmFile) + form.path;
  request.text += W('\n');
  request.text += RangeText(LanguageText(host, kTextConfirmRange), form.range);
  request.fields = {
      Platform::ChoiceField("result", result, kResultWords),
      ViewField(form),
      Platform::ShownField("context", [&form] { return ShownContext(form); }),
      Platform::ShownField("replacement", [&form] { return ShownReplacement(form); }),
  };
  const bool isAnswered = Platform::AskForm(request) == IDOK;
  form.result = isAnswered ? static_cast<ConfirmResult>(result) : ConfirmResult::Cancel;
}

}  // namespace QXFindAndReplace
