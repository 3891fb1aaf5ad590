// The Add File Access dialog of the native build: passes its form to Platform::AskForm.
#include <iterator>

#include "frame/services/language_text.h"
#include "platform/posix/form_fields.h"
#include "security/change_access_dlg.h"

using namespace Velmora::SDK;

namespace {

constexpr Platform::ChoiceWord kAccessWords[] = {
    {kAccessLevels[0].mask, kAccessLevels[0].word},
    {kAccessLevels[1].mask, kAccessLevels[1].word},
    {kAccessLevels[2].mask, kAccessLevels[2].word},
    {kAccessLevels[3].mask, kAccessLevels[3].word},
};
static_assert(std::size(kAccessWords) == std::size(kAccessLevels));

}  // namespace

INT_PTR ShowChangeAccessDlg(IHostApp& host, ChangeAccessForm& form, const AccountPicker&) {
  ChangeAccessForm edited = form;
  Platform::FormRequest request;
  request.dialog = "ChangeAccessDlg";
  request.title = LanguageText(host, kTextAccessDlgTitle);
  request.text = LanguageText(host, kTextAccessDlgIntroduction);
  request.fields = {Platform::TextField("userName", edited.userName),
                    Platform::ChoiceField("access", edited.accessMask, kAccessWords)};
  if (Platform::AskForm(request) != IDOK) return IDCANCEL;
  form = edited;
  return IDOK;
}
