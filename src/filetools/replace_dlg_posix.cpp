// The Replace X with Y dialog of the native build: passes its form to Platform::AskForm.
#include "filetools/replace_dlg.h"
#include "frame/services/message_texts.h"
#include "platform/posix/form_fields.h"

namespace {

using Velmora::SDK::kTextReplaceTitle;
using Velmora::SDK::kTextReplaceTop;

constexpr Platform::ChoiceWord kPartWords[] = {
    {ReplaceForm::kBaseName, W("1")},
    {ReplaceForm::kExtension, W("2")},
    {ReplaceForm::kWholeName, W("3")},
    {ReplaceForm::kNoPart, W("-1")},
};

}  // namespace

INT_PTR ShowReplaceDlg(Velmora::SDK::IHostApp& host, ReplaceForm& form) {
  // Both texts are stored in the form however the dialog ends, the part only after OK.
  int part = form.part;
  Platform::FormRequest request;
  request.dialog = "CReplaceDlg";
  request.title = ViewOf(host.GetLanguageString(kTextReplaceTitle));
  request.text = ViewOf(host.GetLanguageString(kTextReplaceTop));
  request.fields = {Platform::TextField("find", form.find), Platform::TextField("replace", form.replace),
                    Platform::ChoiceField("part", part, kPartWords)};
  const INT_PTR result = Platform::AskForm(request);
  if (result == IDOK) form.part = part;
  return result;
}
