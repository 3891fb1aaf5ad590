// The window of the Add File Access dialog.
#include "frame/services/dialog_owner.h"
#include "security/change_access_dlg.h"
#include "security/change_access_dlg_ids.h"
#include "ui/dialog.h"
#include "ui/form_binding.h"
#include "ui/resource_ids.h"

namespace {

using namespace Velmora::SDK;

constexpr Ui::ControlText kAccessDlgTexts[] = {
    {Ui::kTitle, kTextAccessDlgTitle},          {QX_ACCESS_INTRODUCTION, kTextAccessDlgIntroduction},
    {QX_ACCESS_USER_LABEL, kTextAccessDlgUser}, {QX_ACCESS_LEVEL_LABEL, kTextAccessDlgLevel},
    {QX_ACCESS_FIND, kTextAccessDlgFind},       {IDOK, kTextAccessDlgGrant},
    {IDCANCEL, kTextAccessDlgCancel},
};

constexpr Ui::Field<ChangeAccessForm> kAccessDlgFields[] = {
    {QX_ACCESS_USER, &ChangeAccessForm::userName},
    {QX_ACCESS_LEVEL, &ChangeAccessForm::accessMask},
};

class ChangeAccessDlg : public Ui::Dialog {
 public:
  ChangeAccessDlg(IHostApp& host, ChangeAccessForm& form, const AccountPicker& pick)
      : Dialog(QX_DIALOG_CHANGE_ACCESS),
        texts_([&host](TextId id) { return host.GetLanguageString(id); }),
        form_(form),
        pick_(pick) {}

 protected:
  void OnInit() override {
    Ui::SetTexts(Window(), kAccessDlgTexts, texts_);
    std::vector<Ui::ComboRow> levels;
    for (const AccessLevel& level : kAccessLevels) levels.push_back({level.mask, level.text});
    Ui::FillComboBox(Control(QX_ACCESS_LEVEL), levels, texts_);
    Ui::LoadFields(Window(), kAccessDlgFields, form_);
  }

  void OnButton(int control) override {
    if (control != QX_ACCESS_FIND) return;
    if (const std::optional<WString> name = pick_(Window())) Ui::SetText(Control(QX_ACCESS_USER), *name);
  }

  void OnOk() override {
    Ui::ReadFields(Window(), kAccessDlgFields, form_);
    Close(IDOK);
  }

 private:
  Ui::TextSource texts_;
  ChangeAccessForm& form_;
  const AccountPicker& pick_;
};

}  // namespace

INT_PTR ShowChangeAccessDlg(IHostApp& host, ChangeAccessForm& form, const AccountPicker& pick) {
  ChangeAccessDlg dialog(host, form, pick);
  return dialog.ShowModal(DialogOwner(host));
}
